// What the preferences dialog does, without a window: working copies of the settings, their files,
// the key capture and the checks before they apply.
#pragma once

#include <array>
#include <string>

#include "editor/Editor.h"

namespace korvane {

/// What the pages of the dialog show. Nothing of it reaches the settings before it is applied.
struct Preferences {
    std::string snapSize;  ///< as typed, as are the next two
    std::string pickerSize;
    std::string textureScale;
    bool setMarker = true;
    bool rememberWindow = true;
    std::array<bool, kWarnings> warnings{};
    ColorScheme colors;
    KeyMap keyMap;
    int capturedRow = -1;  ///< the row of the key list that waits for a key; -1: none
};

/// The pages filled from the settings.
Preferences PreferencesOf(const Settings& settings);

/// Takes the pages over into the session, writes the settings file and shows what changed. False
/// when a size lies outside its range: the user has been told and nothing has changed.
bool ApplyPreferences(Editor& editor, const Preferences& pages);

/// Gives the session the settings of a first start, the recent files excepted, and its first edit
/// mode, shape and side count. The file follows at the next save.
void ResetDefaults(Editor& editor);

/// Asks for another colour of item 0..21 of the colour list.
void ChooseColor(Editor& editor, Preferences& pages, int item);

/// The buttons that open and save files. A file that is none of its kind is told and changes
/// nothing.
void OpenColorScheme(Editor& editor, Preferences& pages);
void SaveColorScheme(Editor& editor, const Preferences& pages);
void OpenKeyMap(Editor& editor, Preferences& pages);
void SaveKeyMap(Editor& editor, const Preferences& pages);

/// The function in a row of the key list, and its key code.
const char* KeyRowFunction(int row);
std::int16_t& KeyRowCode(Preferences& pages, int row);

/// Begins to wait for the key of a row, and stops to.
void StartKeyCapture(Preferences& pages, int row);
void EndKeyCapture(Preferences& pages);

/// Ends the capture for a row with a pressed key (virtual-key code). Where it has functions
/// already, the user is asked for each: Yes takes it from there, any other answer leaves the
/// captured row as it is.
void CaptureKey(Editor& editor, Preferences& pages, int captured, int code);

/// Takes the key from the row, and ends the capture.
void ClearKey(Preferences& pages, int row);

}  // namespace korvane
