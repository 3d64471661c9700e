// Undo and redo by snapshots of the whole scene, selection of brushes and faces included.
#pragma once

#include <string>
#include <string_view>

#include "editor/Editor.h"

namespace korvane {

/// Called once by a command, just before it changes the scene: marks the scene as modified and
/// stores it. Where it can't be stored the edit goes on without an undo step of its own, and the
/// user is told the first time. The oldest of 50 snapshots is dropped for the next one; what was
/// undone can't be redone any more. The caption names the change for the user; an empty one takes
/// that of the command that runs. Returns whether there is an undo step for the change.
bool TakeUndoSnapshot(Editor& editor, std::string_view caption = {});

/// The scene changes in a way that takes no snapshot: marks it as modified, and what was undone
/// can't be redone any more.
void MarkChanged(Editor& editor);

/// Puts the newest snapshot in the place of the scene, which can be redone from now on, and drops
/// it. The clipboard is emptied; SceneModified and CurrentObjectPath stay. A snapshot that can't be
/// read back is dropped without a word and leaves the scene as it is.
void Undo(Editor& editor);

/// Takes the last Undo back, to the byte; the same holds for the clipboard and for a snapshot that
/// can't be read. The scene counts as modified.
void Redo(Editor& editor);

/// What Undo would take back and Redo would do again; empty if there is nothing.
std::string UndoCaption(const Editor& editor);
std::string RedoCaption(const Editor& editor);

/// Gives the newest snapshot another caption: a gesture shows only later what it is.
void RenameUndoStep(Editor& editor, std::string_view caption);

/// Drops all snapshots of this session: the scene is another one, or the program ends.
void ClearUndoCache(Editor& editor);

}  // namespace korvane
