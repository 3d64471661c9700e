#include "editor/Editor.h"

#include <utility>

#include "base/PathText.h"

namespace korvane {

void RedrawAllViews(Editor& editor) {
    editor.host.RequestRedraw(RedrawAll);
}

void UpdateCommandStates(Editor& editor) {
    editor.host.ShowCommandStates();
}

void RefreshAll(Editor& editor) {
    RedrawAllViews(editor);
    UpdateCommandStates(editor);
    editor.host.RefreshPropertyPanel();
}

void ShowError(Editor& editor, std::string text) {
    editor.prompts.ShowMessage(
        {std::move(text), "Error!", MessageIcon::Exclamation, MessageButtons::Ok});
}

std::string WindowTitle(const Editor& editor) {
    std::string name = FileName(editor.CurrentObjectPath);
    name = name.empty() ? "New_Object" : name.substr(0, name.rfind('.'));
    return "Korvane - " + name + (editor.SceneModified ? "*" : "");
}

}  // namespace korvane
