// The folders of the program: what it brings along and what it writes.
#pragma once

#include <string>

#include "editor/Editor.h"

namespace korvane {

/// The folder (UTF-8) for textures, undo snapshots, settings and log: the program's own where it
/// can be written, else the user's, which is created.
std::string ChooseDataFolder(const std::string& programFolder, const std::string& userFolder);

/// Creates ObjCache and ObjTextures where they are missing. A new ObjTextures outside the program's
/// folder starts with the textures that the program brings along. What can't be made stays missing.
void MakeFolders(const Editor& editor);

/// The path of a file in ObjCache.
std::string CachePath(const Editor& editor, const std::string& name);

/// Brings ObjCache back where it was taken away while the program runs. One that can't be made
/// shows in what is written there next.
void EnsureCacheFolder(const Editor& editor);

}  // namespace korvane
