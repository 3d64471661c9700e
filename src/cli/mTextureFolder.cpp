#include "cli/mTextureFolder.h"

#include <QDir>
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

std::string TextureFolder(const std::string& asked) {
    if (!asked.empty()) return asked;
    const std::string program = QCoreApplication::applicationDirPath().toStdString();
    const std::string users = DataFolderFor(program) + "/ObjTextures";
    return QDir(QString::fromStdString(users)).exists() ? users : program + "/ObjTextures";
}

TextureLibrary ListTextures(const std::string& asked) {
    const QSize placeholder = PlaceholderPicture().size();
    TextureLibrary library(placeholder.width(), placeholder.height());
    ListAllTextures(library, TextureFolder(asked));
    return library;
}

}  // namespace korvane
