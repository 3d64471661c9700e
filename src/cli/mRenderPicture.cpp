// korvane-cli render: the picture of one of the editor's panes, without a window or a display.
#include <QBuffer>
#include <QImage>
#include <charconv>
#include <cmath>
#include <map>
#include <memory>
#include <optional>

#include "cli/SilentSession.h"
#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"
#include "cli/mTextureFolder.h"
#include "textures/ui/mOGLTextures.h"
#include "views/core/mFraming.h"
#include "views/ui/mRender.h"
#include "views/ui/mRender2D.h"

namespace korvane {
namespace {

constexpr int kLargestSide = 8192;  // pixels
constexpr int kView3D = -1;

struct Options {
    std::string input;
    std::string output;
    std::string textures;
    std::string size = "800x600";
    int view = kView3D;  ///< or TopView, LeftView, FrontView
    std::string camera;  ///< empty: frames the object
    int thumbnail = 0;   ///< length of both sides in pixels; 0: `size` counts
};

// --- options

/// The numbers that the text consists of, separated by `separator`; nothing unless there are
/// `count` of them, all finite.
std::optional<std::vector<float>> NumbersIn(const std::string& text, char separator,
                                            std::size_t count) {
    std::vector<float> numbers;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (numbers.size() < count) {
        float number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
        numbers.push_back(number);
        at = next;
        if (at == end) break;
        if (*at++ != separator) return std::nullopt;
    }
    if (numbers.size() != count || at != end) return std::nullopt;
    return numbers;
}

std::optional<QSize> SizeIn(const std::string& text) {
    const auto numbers = NumbersIn(text, 'x', 2);
    if (!numbers) return std::nullopt;
    for (const float side : *numbers) {
        if (side < 1 || side > kLargestSide || side != std::floor(side)) return std::nullopt;
    }
    return QSize(int((*numbers)[0]), int((*numbers)[1]));
}

std::optional<Camera> CameraIn(const std::string& text) {
    const auto numbers = NumbersIn(text, ',', 5);
    if (!numbers) return std::nullopt;
    const std::vector<float>& n = *numbers;
    return Camera{n[0], n[1], n[2], n[3], n[4], 0};
}

std::string CheckSize(const std::string& text) {
    if (SizeIn(text)) return {};
    return text + " is no size like 800x600 with sides of 1 to " + std::to_string(kLargestSide);
}

std::string CheckCamera(const std::string& text) {
    return CameraIn(text) ? "" : text + " is no camera like 0,3,5,-30,0";
}

QSize PictureSize(const Options& options) {
    if (options.thumbnail > 0) return {options.thumbnail, options.thumbnail};
    return *SizeIn(options.size);
}

void CheckUsage(const Options& options) {
    const std::string objection = ObjectionToEnding(options.output, {".png"});
    // File managers hand out names without an ending.
    if (options.thumbnail == 0 && !objection.empty()) {
        throw CLI::ValidationError("--output", objection);
    }
    if (!options.camera.empty() && options.view != kView3D) {
        throw CLI::ValidationError("--camera", "only goes with --view 3d");
    }
}

// --- the preview

struct SilentLog final : StartUpLog {
    void AddText(const std::string&) override {}
    void AppendText(const std::string&) override {}
};

void PrepareContext(RenderContext& context, const Options& options) {
    constexpr std::uint8_t kColorBits = 32, kDepthBits = 32;
    if (CreateSurfacelessContext(context, kColorBits, kDepthBits) < 0) {
        throw FileError(options.output, "Fatal Error: Could not create an OpenGL Render Context!");
    }
    ApplyGLDefaults(context);
    ApplyColorMaterial(context);
    ApplyLights(context, true);
}

/// The driver may allow less than was asked for.
void SizeContext(RenderContext& context, const Options& options, double depth) {
    const QSize size = PictureSize(options);
    ResizePreviewViewport(context, size.width(), size.height(), depth, kPreviewFieldOfView);
    if (QSize(context.width, context.height) == size) return;
    throw FileError(options.output, "Error: The picture is too large for the graphics driver!");
}

/// A camera that is given sees as deep as the editor's; the one that frames the object sees all of
/// it.
Framing FramingOf(const Options& options, const Scene& scene) {
    if (!options.camera.empty()) return {*CameraIn(options.camera), 0};
    const QSize size = PictureSize(options);
    return FrameObject(scene, size.width(), size.height(), kPreviewFieldOfView);
}

QImage RenderView3D(const Options& options, Editor& editor) {
    RenderContext context;
    TextureObjects textures;
    PrepareContext(context, options);
    SilentLog log;
    LoadAllTextures({context, textures, editor.textures, [](const QImage&) {}},
                    TextureFolder(options.textures), log);
    ReadObjectAsShown(options.input, editor.textures, editor.scene);
    const Framing framing = FramingOf(options, editor.scene);
    constexpr double kBehind = 1.01;  // the farthest vertex must not lie on the far plane itself
    SizeContext(context, options, std::max(kPreviewFar, framing.farthest * kBehind));
    PreviewRenderer renderer;
    RenderPreview(context, renderer, {editor.scene, editor.settings, framing.camera, textures});
    return context.frame;
}

// --- the 2D views

/// Below the zooms of the editor the labels and the lines every half unit would run into each
/// other: only the coarsest lines are left.
void ThinOut(Settings& settings) {
    settings.showRulers = false;
    for (const ColorItem item : {ColorItem::GridNormal, ColorItem::GridMinor}) {
        settings.colors[item] = settings.colors[ColorItem::View2DBackground];
    }
}

QImage RenderView2D(const Options& options, Editor& editor) {
    ReadObjectAsShown(options.input, editor.textures, editor.scene);
    const QSize size = PictureSize(options);
    ViewState& state = editor.views[static_cast<std::size_t>(options.view)];
    state.width = size.width();
    state.height = size.height();
    FrameBounds(state, options.view, SceneBounds(editor.scene));
    if (state.zoom < kMinZoom) ThinOut(editor.settings);
    PaintSurface surface;
    PaintView(editor, options.view, surface);
    return surface.image;
}

// --- running

std::vector<std::uint8_t> PngOf(const QImage& image, const std::string& path) {
    QByteArray png;
    QBuffer buffer(&png);
    CheckWritten(path, !image.isNull() && image.save(&buffer, "PNG"));
    return {png.begin(), png.end()};
}

void Run(const Options& options) {
    const bool is3D = options.view == kView3D;
    const auto application = MakeApplication(!is3D);
    SilentSession session;
    if (options.thumbnail > 0) session.editor.settings.show3DGrid = false;
    const QImage picture = (is3D ? RenderView3D : RenderView2D)(options, session.editor);
    WriteOutput(options.output, PngOf(picture, options.output));
}

}  // namespace

void AddRender(CLI::App& app) {
    static const std::map<std::string, int> views = {
        {"3d", kView3D}, {"top", TopView}, {"left", LeftView}, {"front", FrontView}};
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddSubCommand(
        app, "render", "Draws an object as a pane of the editor shows it; needs no display",
        "The picture has the editor's first settings: its colours, the grid, the rulers, and\n"
        "invisible faces shown. The object is framed; with --camera the picture is that of the\n"
        "preview from there, which sees 100 units deep. The other views show large objects\n"
        "smaller than the editor can, without rulers, down to one pixel a unit.");
    AddInput(command, options->input);
    AddAnyOutput(command, options->output, ".png");
    CLI::Option* size =
        command.add_option("--size", options->size, "Size in pixels (default: 800x600)")
            ->type_name("WxH")
            ->check(CLI::Validator(CheckSize, ""));
    command
        .add_option("--thumbnail", options->thumbnail,
                    "Draw a square of this side in pixels without the preview's grid;\n"
                    "OUT may have any name (for file managers)")
        ->type_name("SIDE")
        ->check(CLI::Range(1, kLargestSide).description(""))
        ->excludes(size);
    command.add_option("--view", options->view, "Pane to draw: 3d (default), top, left or front")
        ->type_name("VIEW")
        ->transform(CLI::CheckedTransformer(views, CLI::ignore_case).description(""));
    command
        .add_option("--camera", options->camera,
                    "Place of the camera in world units and its angles in degrees:\n"
                    "positive pitch looks up, positive yaw turns left; the editor\n"
                    "starts at 0,3,5,-30,0")
        ->type_name("X,Y,Z,PITCH,YAW")
        ->check(CLI::Validator(CheckCamera, ""));
    AddTextureFolder(command, options->textures);
    command.callback([options] {
        CheckUsage(*options);
        Run(*options);
    });
}

}  // namespace korvane
