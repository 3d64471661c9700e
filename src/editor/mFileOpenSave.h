// Opening, merging and saving objects, with their prompts.
#pragma once

#include <string>

#include "editor/Editor.h"

namespace korvane {

/// What became of LoadObject.
enum class LoadResult {
    Done,       ///< the scene holds the file
    Cancelled,  ///< the user cancelled the dialog; nothing changed
    Failed      ///< unreadable or no valid object file
};

/// Writes the scene. An empty path asks for one, which becomes CurrentObjectPath. Returns whether
/// the scene was written; on failure the old file is whole, SceneModified stays and the user has
/// been told.
bool SaveObject(Editor& editor, const std::string& path);

/// Reads a file into the scene, replacing it or (merge) appending to it. An empty path asks for
/// one, which becomes CurrentObjectPath unless merging. A failed merge leaves the scene as it was;
/// a failed open leaves it empty if the file could be read at all, else as it was; a failed undo
/// leaves it as it was. A failure leaves SceneModified alone: what was lost can still be in the
/// undo snapshots.
LoadResult LoadObject(Editor& editor, const std::string& path, bool merge, bool isUndo,
                      bool withSelection);

/// The commands of the File menu.
void NewObject(Editor& editor);
void OpenObject(Editor& editor);
void MergeObject(Editor& editor);
void SaveCurrentObject(Editor& editor);
void SaveObjectAs(Editor& editor);

/// Opens entry `index` of the recent files, with the question of OpenObject. The undo cache stays.
void OpenRecentFile(Editor& editor, std::size_t index);

/// Opens or merges a file that was dropped on the window: like OpenObject and MergeObject without
/// their dialog.
void OpenFile(Editor& editor, const std::string& path);
void MergeFile(Editor& editor, const std::string& path);

/// Opens the file named by the user outside the dialog (an argument of the program), like
/// OpenObject without its question and dialog.
void OpenObjectFile(Editor& editor, const std::string& path);

}  // namespace korvane
