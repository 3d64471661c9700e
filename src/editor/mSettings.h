// The settings of a session on the disk.
#pragma once

#include "editor/Editor.h"

namespace korvane {

/// Whether a settings file is there, damaged or not: after the first start there is.
bool HasSettings(const Editor& editor);

/// Reads the settings file over the session's settings. False when there is none, or when it is
/// damaged: what stands before the damage has been read.
bool LoadSettings(Editor& editor);

/// Writes the settings file, with the place where the window stands now. A damaged file is not
/// overwritten but kept beside it as "Korvane.kvdat.bad". False when either could not be written;
/// the old file is then as it was.
bool SaveSettings(Editor& editor);

/// The same, and tells the user when it could not be done.
void SaveSettingsOrTell(Editor& editor);

}  // namespace korvane
