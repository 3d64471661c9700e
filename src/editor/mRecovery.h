// What a session leaves in ObjCache while it works, so that the next start can restore it: a record
// (names end in "$.$kvrun$") that tells the object's path and names the files that hold the scene.
// These are the undo snapshots and recovery files ("$.$kvrecovery$"), which are snapshots too.
#pragma once

#include <cstdint>

#include "editor/Editor.h"

namespace korvane {

inline constexpr const char* kRecordEnding = "$.$kvrun$";
inline constexpr const char* kRecoveryEnding = "$.$kvrecovery$";

/// From now on the session leaves traces; where it can't write them, it does without until it can.
void BeginRecovery(Editor& editor);

/// The session ends as it should: nothing is left.
void EndRecovery(Editor& editor);

/// Stores the scene behind the user's back if it has unsaved changes that no file holds yet. For
/// idle moments: covers the edits that take no undo snapshot. An empty scene is not stored: an open
/// that failed leaves one, and what was there before is worth more. The user is told once when the
/// last one could not be written. Returns whether a file is on its way: another call in a while
/// tells what became of it.
bool StoreRecovery(Editor& editor);

/// Makes a snapshot in ObjCache (its name without folder) the newest recovery file, under another
/// name: the scene is now as it says. False: it could not be renamed.
bool KeepAsRecovery(Editor& editor, const std::string& name);

/// The scene is stored in this undo snapshot, as it was before the command.
void NoteSnapshot(Editor& editor, const std::string& name);

/// The scene is as its file has it, or empty: what was left so far is of no use.
void NothingUnsaved(Editor& editor);

}  // namespace korvane
