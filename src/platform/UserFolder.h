// Where the program keeps what it writes: settings, log, textures and the undo cache.
#pragma once

#include <string>

namespace korvane {

/// The folder "korvane" among the user's data, whether or not it is there (UTF-8, no slash at the
/// end). Needs no application object.
std::string UserDataFolder();

/// The program's folder, or where that can't be written, UserDataFolder(), which is created
/// then.
std::string DataFolderFor(const std::string& programFolder);

}  // namespace korvane
