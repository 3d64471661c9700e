// Undo by snapshots of the whole scene, selection of brushes and faces included. There is no redo.
#pragma once

#include "editor/Editor.h"

namespace korvane {

/// Called once by a command, just before it changes the scene: marks the scene as modified and
/// stores it. Where it can't be stored the edit goes on without an undo step of its own, and the
/// user is told the first time. The oldest of 50 snapshots is dropped for the next one.
void TakeUndoSnapshot(Editor& editor);

/// Puts the newest snapshot in the place of the scene and drops it. The clipboard is emptied;
/// SceneModified and CurrentObjectPath stay. A snapshot that can't be read back is dropped without
/// a word and leaves the scene as it is.
void Undo(Editor& editor);

/// Drops all snapshots of this session: the scene is another one, or the program ends.
void ClearUndoCache(Editor& editor);

}  // namespace korvane
