// Where the program finds what it brings along, and where it keeps what it writes.
#pragma once

#include <string>

#include "editor/mFolders.h"

namespace korvane {

/// The folder "korvane" among the user's data, whether or not it is there (UTF-8, no slash at the
/// end). Needs no application object.
std::string UserDataFolder();

/// Where the textures, examples and help lie that a program in `programFolder` brings along; see
/// ChooseShippedFolder.
std::string ShippedFolder(const std::string& programFolder);

/// The folders of a program that lies in `programFolder` (UTF-8, no slash at the end): a portable
/// folder, a build tree or an installation; see ChooseFolders. The user's folder is
/// UserDataFolder().
ProgramFolders FindFolders(const std::string& programFolder);

}  // namespace korvane
