#include "editor/mPreferences.h"

#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "editor/mSettings.h"
#include "files/FileBuffer.h"
#include "files/mPreferenceFiles.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

/// A size on the General page.
struct SizeRow {
    std::string Preferences::*typed;
    float Settings::*setting;
    SizeRange range;
    const char* outOfRange;
};

/// In the order in which they are checked.
constexpr SizeRow kSizes[] = {
    {&Preferences::snapSize, &Settings::snapSize, kSnapRange,
     "Warning: Snap to Grid size is Out of Range.\r\nIt must be between 0.01 and 10."},
    {&Preferences::pickerSize, &Settings::pickerSize, kPickerRange,
     "Warning: Picker size is Out of Range.\r\nIt must be between 0.01 and 1."},
    {&Preferences::textureScale, &Settings::TextureScale, kTextureScaleRange,
     "Warning: Global Scale size is Out of Range.\r\nIt must be between 1 and 200."},
};

bool SizesInRange(Editor& editor, const Preferences& pages) {
    for (const SizeRow& row : kSizes) {
        const double size = NumericValue(pages.*row.typed);
        if (size >= row.range.least && size <= row.range.most) continue;
        editor.prompts.ShowMessage(
            {row.outOfRange, "Warning!", MessageIcon::Exclamation, MessageButtons::Ok});
        return false;
    }
    return true;
}

/// Everything that shows a setting.
void ShowSettings(Editor& editor) {
    editor.host.ApplyColorScheme();
    RefreshAll(editor);
}

FileDialog SchemeDialog(const Editor& editor, const char* title) {
    return {title, "Korvane Color Schemes (*.kvcs)", "*.kvcs", "kvcs", {}, editor.DataFolder()};
}

FileDialog KeyMapDialog(const Editor& editor, const char* title) {
    return {title, "Korvane Keyboard Maps (*.kvkm)", "*.kvkm", "kvkm", {}, editor.DataFolder()};
}

/// Asks for a file and decodes it over `to`.
template <class Content, class Decode>
void OpenInto(Editor& editor, const FileDialog& dialog, Decode decode, Content& to,
              const char* invalid) {
    const auto path = editor.prompts.AskOpenPath(dialog);
    if (!path) return;
    const auto bytes = LoadFile(*path);
    const auto content = bytes ? decode(*bytes, to) : std::nullopt;
    if (content) {
        to = *content;
    } else {
        ShowError(editor, invalid);
    }
}

void SaveTo(Editor& editor, const FileDialog& dialog, const std::vector<std::uint8_t>& bytes) {
    const auto path = editor.prompts.AskSavePath(dialog);
    if (path && !SaveFile(*path, bytes)) ShowError(editor, "Error: Unable to save file!");
}

/// Whether the key may be taken from the function of another row.
bool MayReassign(Editor& editor, int row, int code) {
    return editor.prompts.ShowMessage(
               {"The key pressed (" + KeyName(code) + ") is already assigned\r\nto the function :" +
                    KeyRowFunction(row) + "\r\n\r\nReasign this key?",
                "Key Already Used...", MessageIcon::Exclamation, MessageButtons::YesNoCancel}) ==
           Answer::Yes;
}

}  // namespace

Preferences PreferencesOf(const Settings& settings) {
    Preferences pages;
    for (const SizeRow& row : kSizes) pages.*row.typed = FormatGeneral(settings.*row.setting);
    pages.setMarker = settings.setMarker;
    pages.rememberWindow = settings.rememberWindow;
    pages.warnings = settings.warnings;
    pages.colors = settings.colors;
    pages.keyMap = settings.keyMap;
    return pages;
}

bool ApplyPreferences(Editor& editor, const Preferences& pages) {
    if (!SizesInRange(editor, pages)) return false;
    Settings& settings = editor.settings;
    for (const SizeRow& row : kSizes)
        settings.*row.setting = static_cast<float>(NumericValue(pages.*row.typed));
    settings.setMarker = pages.setMarker;
    settings.rememberWindow = pages.rememberWindow;
    settings.warnings = pages.warnings;
    settings.colors = pages.colors;
    settings.keyMap = pages.keyMap;
    SaveSettingsOrTell(editor);
    ShowSettings(editor);
    return true;
}

void ResetDefaults(Editor& editor) {
    Settings defaults;
    defaults.recentFiles = std::move(editor.settings.recentFiles);
    editor.settings = std::move(defaults);
    const Scene first;
    if (editor.scene.editMode != first.editMode) ClearSelectedVertices(editor.scene);
    editor.scene.editMode = first.editMode;
    editor.scene.createShape = first.createShape;
    editor.scene.sideCount = first.sideCount;
    editor.host.LayoutPanes();
    ShowSettings(editor);
}

void ChooseColor(Editor& editor, Preferences& pages, int item) {
    Color& color = pages.colors.colors.at(static_cast<std::size_t>(item));
    color = editor.prompts.AskColor(color).value_or(color);
}

void OpenColorScheme(Editor& editor, Preferences& pages) {
    OpenInto(editor, SchemeDialog(editor, "Open Color Scheme..."), DecodeColorScheme, pages.colors,
             "Error: Invalid Korvane Color Scheme File!");
}

void SaveColorScheme(Editor& editor, const Preferences& pages) {
    SaveTo(editor, SchemeDialog(editor, "Save Color Scheme..."), EncodeColorScheme(pages.colors));
}

void OpenKeyMap(Editor& editor, Preferences& pages) {
    OpenInto(editor, KeyMapDialog(editor, "Open Keyboard Map..."), DecodeKeyMap, pages.keyMap,
             "Error: Invalid Korvane Keyboard Map File!");
}

void SaveKeyMap(Editor& editor, const Preferences& pages) {
    SaveTo(editor, KeyMapDialog(editor, "Save Keyboard Map..."), EncodeKeyMap(pages.keyMap));
}

const char* KeyRowFunction(int row) {
    return KeyFunctionTable()[KeyDisplayOrder().at(static_cast<std::size_t>(row))].text;
}

std::int16_t& KeyRowCode(Preferences& pages, int row) {
    return pages.keyMap.codes[KeyDisplayOrder().at(static_cast<std::size_t>(row))];
}

void StartKeyCapture(Preferences& pages, int row) {
    pages.capturedRow = row;
}

void EndKeyCapture(Preferences& pages) {
    pages.capturedRow = -1;
}

void CaptureKey(Editor& editor, Preferences& pages, int captured, int code) {
    EndKeyCapture(pages);
    for (int row = 0; row < kKeyFunctions; ++row) {
        if (row == captured || KeyRowCode(pages, row) != code) continue;
        if (!MayReassign(editor, row, code)) return;
        KeyRowCode(pages, row) = 0;
    }
    KeyRowCode(pages, captured) = static_cast<std::int16_t>(code);
}

void ClearKey(Preferences& pages, int row) {
    EndKeyCapture(pages);
    KeyRowCode(pages, row) = 0;
}

}  // namespace korvane
