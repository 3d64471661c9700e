#include "app/mStartUp.h"

#include <QDate>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QStyle>
#include <QTime>
#include <algorithm>
#include <string>
#include <vector>

#include "app/frmMain.h"
#include "app/ucWorkspace.h"
#include "base/Rounding.h"
#include "base/Version.h"
#include "editor/mFolders.h"
#include "editor/mSettings.h"
#include "editor/mViews.h"
#include "editor/mWindowPlace.h"
#include "textures/ui/mOGLTextures.h"
#include "textures/ui/ucTextureList.h"

namespace korvane {
namespace {

struct Run {
    frmMain& window;
    StartUpLog& log;
    ContextMaker makeContext;
    OpenGLStrings driver;
    bool failed = false;
};

std::string HeaderLine() {
    return std::string("Korvane v") + kVersionText + " - " + kLegalNotice + " - " + kCompanyName;
}

std::string TimeLine() {
    const QLocale locale = QLocale::system();
    QString when = locale.toString(QDate::currentDate(), QLocale::ShortFormat) + " - " +
                   locale.toString(QTime::currentTime(), QLocale::ShortFormat);
    // Some locales put a narrow no-break space before AM and PM, which the log's code page lacks.
    when.replace(QChar(0x202F), ' ');
    return "START_UP(" + when.toStdString() + ") {";
}

std::string InitDefaults(Run& run) {
    Editor& editor = run.window.Session();
    editor.settings = Settings{};
    MakeFolders(editor);
    return "Okay";
}

std::string InitUserPreferences(Run& run) {
    return LoadSettings(run.window.Session()) ? "Okay" : "Failed!";
}

std::string InitRenderContext(Run& run) {
    constexpr std::uint8_t kColorBits = 32, kDepthBits = 32;
    run.failed = run.makeContext(run.window.Context(), kColorBits, kDepthBits) < 0;
    if (run.failed) return "FAILED!";
    run.driver = QueryOpenGLStrings(run.window.Context());
    return "Okay";
}

std::string Renderer(Run& run) {
    return run.driver.renderer;
}
std::string Vendor(Run& run) {
    return run.driver.vendor;
}
std::string DriverVersion(Run& run) {
    return run.driver.version;
}

std::string ListExtensions(Run& run) {
    for (const std::string& name : run.driver.extensions) run.log.AddText("            " + name);
    return {};
}

std::string InitOpenGLDefaults(Run& run) {
    ApplyGLDefaults(run.window.Context());
    ApplyColorMaterial(run.window.Context());
    return "Okay";
}

std::string InitLights(Run& run) {
    ApplyLights(run.window.Context(), true);
    return "Okay";
}

std::string LoadMaterialMaps(Run& run) {
    frmMain& window = run.window;
    ucTextureList& browser = window.Workspace().TextureList();
    const auto addThumbnail = [&browser](const QImage& picture) { browser.AddThumbnail(picture); };
    LoadAllTextures({window.Context(), window.Textures(), window.Session().textures, addThumbnail},
                    window.Session().DataFolder() + "/ObjTextures", run.log);
    browser.SelectTexture(0);
    return {};
}

std::string InitViewPorts(Run& run) {
    run.window.LayoutPanes();  // the views are centred by their sizes
    ResetAllViews(run.window.Session());
    return "Okay";
}

std::string InitColorScheme(Run& run) {
    run.window.ApplyColorScheme();
    return "Okay";
}

void CentreWindow(frmMain& window) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    window.resize(window.size().boundedTo(screen.size()));
    QRect place(QPoint(), window.size());
    place.moveCenter(screen.center());
    window.move(place.topLeft());
}

/// The screens, the main one first.
std::vector<TwipRect> Screens() {
    std::vector<TwipRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->geometry();
        screens.push_back({area.x() * kTwipsPerPixel, area.y() * kTwipsPerPixel,
                           area.width() * kTwipsPerPixel, area.height() * kTwipsPerPixel});
    }
    return screens;
}

void PlaceWindow(frmMain& window, WindowPlace& place) {
    place = ClampToScreens(place, Screens());
    const auto pixels = [](float twips) { return RoundToInt(twips / kTwipsPerPixel); };
    // The frame lies around the place: its title bar needs room above.
    const int titleHeight = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    window.setGeometry(pixels(place.left), std::max(pixels(place.top), titleHeight),
                       pixels(place.width), pixels(place.height));
}

std::string InitWindowState(Run& run) {
    Settings& settings = run.window.Session().settings;
    const WindowStart start = StartOfWindow(settings);
    const bool maximized = start == WindowStart::Maximized;
    if (maximized || start == WindowStart::Normal) {
        PlaceWindow(run.window, settings.window);
    } else {
        CentreWindow(run.window);
    }
    if (maximized) run.window.setWindowState(Qt::WindowMaximized);
    return LogWord(start);
}

/// A line of the log and the work behind it, whose verdict completes the line.
struct Step {
    const char* line;
    std::string (*run)(Run&);  ///< null for a line that stands alone
};

constexpr Step kSteps[] = {
    {"    INIT_Defaults: ", InitDefaults},
    {"    INIT_User_Preferences: ", InitUserPreferences},
    {"    INIT_OpenGL {", nullptr},
    {"        INIT_OpenGL_Render_Context: ", InitRenderContext},
    {"        INFO_OpenGL_Renderer: ", Renderer},
    {"        INFO_OpenGL_Vendor: ", Vendor},
    {"        INFO_OpenGL_Version: ", DriverVersion},
    {"        INFO_OpenGL_Extentions {", ListExtensions},
    {"        }", nullptr},
    {"        INIT_OpenGL_Defaults: ", InitOpenGLDefaults},
    {"        INIT_OpenGL_Lights: ", InitLights},
    {"    }", nullptr},
    {"    INIT_Material_Maps {", LoadMaterialMaps},
    {"    }", nullptr},
    {"    INIT_2D_View_Ports: ", InitViewPorts},
    {"    INIT_Color_Scheme: ", InitColorScheme},
    {"    INIT_Window_State: ", InitWindowState},
    {"}", nullptr},
    {"ALL_SYSTEMS_GO", nullptr},
};

void TellNoContext(Prompts& prompts) {
    prompts.ShowMessage({"Fatal Error: Could not create an OpenGL Render Context!", "Fatal Error!",
                         MessageIcon::Stop, MessageButtons::Ok});
}

}  // namespace

bool RunStartUp(frmMain& window, StartUpLog& log, ContextMaker makeContext) {
    Run run{window, log, makeContext, {}};
    log.AddText(HeaderLine());
    log.AddText(TimeLine());
    for (const Step& step : kSteps) {
        log.AddText(step.line);
        if (step.run == nullptr) continue;
        log.AppendText(step.run(run));
        if (run.failed) {
            TellNoContext(window.Session().prompts);
            return false;
        }
    }
    return true;
}

}  // namespace korvane
