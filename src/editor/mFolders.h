// The folders of the program: what it brings along and what it writes.
#pragma once

#include <string>

#include "editor/Editor.h"

namespace korvane {

/// Folders of the program (UTF-8, no slash at the end).
struct ProgramFolders {
    std::string shipped;  ///< textures, examples and help that it brings along
    std::string data;     ///< what it writes: textures, undo snapshots, settings and log
};

/// A program with its textures beside it (or with nothing at all) is a portable folder and keeps
/// everything there if it can. An installed one finds them in `installedFolder` and writes among
/// the user's data alone, even where the user may write to the installation.
ProgramFolders ChooseFolders(const std::string& programFolder, const std::string& installedFolder,
                             const std::string& userFolder);

/// The folder of what the program brings along: its own, or `installedFolder` where only that one
/// has textures.
std::string ChooseShippedFolder(const std::string& programFolder,
                                const std::string& installedFolder);

/// The folder (UTF-8) for textures, undo snapshots, settings and log of a portable program: its
/// own where it can be written, else the user's, which is created.
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
