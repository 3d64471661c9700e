// The program: one window, and at most one argument, the object file to open.
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QSurfaceFormat>

#include "app/frmMain.h"
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

void OpenArgument(korvane::Editor& editor) {
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) return;
    const QString path = QFileInfo(arguments[1]).absoluteFilePath();
    korvane::OpenObjectFile(editor, path.toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    AskForDesktopOpenGL();
    QApplication::setOrganizationName("Korvane");
    QApplication::setApplicationName("Korvane");
    QApplication::setDesktopFileName("korvane");
    QApplication application(argc, argv);
    korvane::QtPrompts prompts;
    const std::string programFolder = QApplication::applicationDirPath().toStdString();
    korvane::frmMain window(prompts, programFolder, korvane::DataFolderFor(programFolder));
    QApplication::setWindowIcon(QIcon(":/icons/korvane.svg"));
    if (!window.StartUp()) return 1;
    window.show();
    // What is restored has changes that opening a file would drop.
    if (!korvane::OfferRecovery(window.Session())) OpenArgument(window.Session());
    return QApplication::exec();
}
