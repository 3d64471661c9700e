#include "platform/UserFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace korvane {
namespace {

/// The way from the programs to the data of an installation, which may have been moved as a whole.
constexpr const char* kFromProgramToData = KORVANE_FROM_BIN_TO_DATA;

std::string InstalledFolder(const std::string& programFolder) {
    const QString folder = QString::fromStdString(programFolder) + "/" + kFromProgramToData;
    return QDir::cleanPath(folder).toStdString();
}

}  // namespace

std::string UserDataFolder() {
    QString userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // A relative XDG_DATA_HOME is to be ignored; Qt takes it.
    if (!QDir::isAbsolutePath(userData)) userData = QDir::homePath() + "/.local/share";
    return (userData + "/korvane").toStdString();
}

std::string ShippedFolder(const std::string& programFolder) {
    return ChooseShippedFolder(programFolder, InstalledFolder(programFolder));
}

ProgramFolders FindFolders(const std::string& programFolder) {
    return ChooseFolders(programFolder, InstalledFolder(programFolder), UserDataFolder());
}

}  // namespace korvane
