#include "editor/mRecentFiles.h"

#include <algorithm>
#include <filesystem>
#include <functional>

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

void AddSampleFiles(Editor& editor) {
    namespace fs = std::filesystem;
    const std::string folder = editor.programFolder + "/examples";
    std::error_code failed;
    std::vector<std::string> paths;
    fs::directory_iterator entry(std::u8string(folder.begin(), folder.end()), failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        const std::u8string path = entry->path().generic_u8string();
        if (path.ends_with(u8".kvobject")) paths.emplace_back(path.begin(), path.end());
    }
    std::ranges::sort(paths, std::greater<>());  // what is added last stands on top
    for (const std::string& path : paths) AddRecentFile(editor, path);
}

void ClearRecentFiles(Editor& editor) {
    editor.settings.recentFiles.clear();
    RefreshRecentMenu(editor);
}

void RefreshRecentMenu(Editor& editor) {
    UpdateCommandStates(editor);
}

}  // namespace korvane
