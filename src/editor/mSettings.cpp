#include "editor/mSettings.h"

#include <filesystem>

#include "editor/mRecentFiles.h"
#include "files/FileBuffer.h"
#include "files/mSettingsFile.h"

namespace korvane {
namespace {

std::string SettingsPath(const Editor& editor) {
    return editor.DataFolder() + "/Korvane.kvdat";
}

/// Looks at the file as it is now: another window may have written it since this one started.
bool KeepDamaged(const std::string& path) {
    const auto old = LoadFile(path);
    if (!old) return true;
    Settings ignored;
    bool foreign = false;
    const bool known = DecodeSettings(*old, ignored, &foreign) && !foreign;
    return known || SaveFile(path + ".bad", *old);
}

}  // namespace

bool HasSettings(const Editor& editor) {
    const std::string path = SettingsPath(editor);
    std::error_code unknown;  // counts as being there
    return std::filesystem::exists(std::u8string(path.begin(), path.end()), unknown) || unknown;
}

bool LoadSettings(Editor& editor) {
    const auto bytes = LoadFile(SettingsPath(editor));
    const bool whole = bytes && DecodeSettings(*bytes, editor.settings);
    RefreshRecentMenu(editor);
    return whole;
}

bool SaveSettings(Editor& editor) {
    editor.settings.window = editor.host.PlaceOfWindow();
    const std::string path = SettingsPath(editor);
    return KeepDamaged(path) && SaveFile(path, EncodeSettings(editor.settings));
}

void SaveSettingsOrTell(Editor& editor) {
    if (!SaveSettings(editor)) ShowError(editor, "Error: Unable to save settings!");
}

}  // namespace korvane
