#include "editor/Editor.h"

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

std::string WindowTitle(const Editor& editor) {
    std::string name = editor.CurrentObjectPath;
    name.erase(0, name.find_last_of("/\\") + 1);
    name = name.empty() ? "New_Object" : name.substr(0, name.rfind('.'));
    return "Korvane - " + name + (editor.SceneModified ? "*" : "");
}

}  // namespace korvane
