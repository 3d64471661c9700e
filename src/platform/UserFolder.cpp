#include "platform/UserFolder.h"

#include <QDir>
#include <QStandardPaths>

#include "editor/mFolders.h"

namespace korvane {

std::string UserDataFolder() {
    QString userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // A relative XDG_DATA_HOME is to be ignored; Qt takes it.
    if (!QDir::isAbsolutePath(userData)) userData = QDir::homePath() + "/.local/share";
    return (userData + "/korvane").toStdString();
}

std::string DataFolderFor(const std::string& programFolder) {
    return ChooseDataFolder(programFolder, UserDataFolder());
}

}  // namespace korvane
