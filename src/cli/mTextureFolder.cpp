#include "cli/mTextureFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include "platform/UserFolder.h"
#include "textures/ui/mOGLTextures.h"

namespace korvane {

std::unique_ptr<QCoreApplication> MakeApplication(bool fonts) {
    static char name[] = "korvane-cli", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;  // Qt keeps a reference
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (fonts) return std::make_unique<QGuiApplication>(count, arguments);
    return std::make_unique<QCoreApplication>(count, arguments);
}

/// The user's folder takes part where the editor can't write in its own. Unlike the editor this
/// creates nothing: a run that only reads leaves no trace.
std::string TextureFolder(const std::string& asked) {
    if (!asked.empty()) return asked;
    const QString program = QCoreApplication::applicationDirPath();
    const std::string shipped = ShippedFolder(program.toStdString());
    const std::string users = UserDataFolder() + "/ObjTextures";
    const bool isPortable = shipped == program.toStdString() && QFileInfo(program).isWritable();
    const bool isUsers = !isPortable && QDir(QString::fromStdString(users)).exists();
    return isUsers ? users : shipped + "/ObjTextures";
}

TextureLibrary ListTextures(const std::string& asked) {
    const QSize placeholder = PlaceholderPicture().size();
    TextureLibrary library(placeholder.width(), placeholder.height());
    ListAllTextures(library, TextureFolder(asked));
    return library;
}

}  // namespace korvane
