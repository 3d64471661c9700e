// The program: one window, and at most one argument, the object file to open.
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QPalette>
#include <QSurfaceFormat>
#include <iostream>
#include <string>

#include "app/frmMain.h"
#include "app/mObjectPicture.h"
#include "base/FreedMemory.h"
#include "base/Version.h"
#include "editor/mFileOpenSave.h"
#include "editor/mRestore.h"
#include "platform/QtPrompts.h"
#include "platform/UserFolder.h"

namespace {

/// Fixed-function OpenGL; must be asked for before the application object exists, or some
/// platforms hand out contexts without it.
void AskForDesktopOpenGL() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
}

/// Qt 6.4 leaves placeholders black where a desktop hands over a dark palette without their colour.
void KeepPlaceholdersLegible() {
    QColor faint = QApplication::palette().color(QPalette::Text);
    faint.setAlpha(128);
    QPalette palette;
    palette.setColor(QPalette::PlaceholderText, faint);
    QApplication::setPalette(palette);
}

void OpenArgument(korvane::Editor& editor) {
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) return;
    const QString path = QFileInfo(arguments[1]).absoluteFilePath();
    korvane::OpenObjectFile(editor, path.toStdString());
}

/// Answers a question about the program, which needs no window; whether there was one.
bool AnswersQuestion(const std::string& argument) {
    if (argument == "--version") {
        std::cout << "korvane " << korvane::kVersionText << "\n";
    } else if (argument == "--help" || argument == "-h") {
        std::cout << "Usage: korvane [FILE.kvobject]\n"
                     "Editor for textured 3D objects built out of brushes.\n"
                     "  -h, --help   Print this help message and exit\n"
                     "  --version    Print the version and exit\n";
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && AnswersQuestion(argv[1])) return 0;
    korvane::KeepFreedMemory();
    AskForDesktopOpenGL();
    QApplication::setOrganizationName("Korvane");
    QApplication::setApplicationName("Korvane");
    QApplication::setDesktopFileName("org.korvane.Korvane");
    QApplication application(argc, argv);
    KeepPlaceholdersLegible();
    korvane::QtPrompts prompts;
    const korvane::ProgramFolders folders =
        korvane::FindFolders(QApplication::applicationDirPath().toStdString());
    korvane::frmMain window(prompts, folders.shipped, folders.data);
    QApplication::setWindowIcon(QIcon(":/icons/korvane.svg"));
    if (!window.StartUp()) return 1;
    korvane::ObjectPainter painter(window.Session(), window.Context(), window.Textures());
    prompts.ShowObjectsBy([&painter](const QString& path, const QSize& pixels) {
        return painter.Paint(path.toStdString(), pixels);
    });
    window.show();
    // What is restored has changes that opening a file would drop.
    if (!korvane::OfferRecovery(window.Session())) OpenArgument(window.Session());
    return QApplication::exec();
}
