#include "editor/mRecentFiles.h"

#include <algorithm>

#include "base/SingleByteText.h"

namespace korvane {

void AddRecentFile(Editor& editor, const std::string& path) {
    if (path.empty()) return;
    const std::string added = path;  // may be an entry of the list
    std::vector<std::string>& list = editor.settings.recentFiles;
    std::erase_if(list, [&](const std::string& p) { return EqualIgnoringCase(p, added); });
    list.insert(list.begin(), added);
    list.resize(std::min(list.size(), kRecentFiles));
    RefreshRecentMenu(editor);
}

void ClearRecentFiles(Editor& editor) {
    editor.settings.recentFiles.clear();
    RefreshRecentMenu(editor);
}

void RefreshRecentMenu(Editor& editor) {
    UpdateCommandStates(editor);
}

}  // namespace korvane
