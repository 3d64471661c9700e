// The list of the object files used last, and its menu.
#pragma once

#include <string>

#include "editor/Editor.h"

namespace korvane {

/// Items of the menu; those beyond the list are hidden.
inline constexpr int kRecentItems = 10;

/// Puts the path (UTF-8) on top, where it is listed only once ignoring letter case; the oldest
/// beyond the capacity drops out. An empty path changes nothing.
void AddRecentFile(Editor& editor, const std::string& path);

/// Lists the sample objects that the program brings along, by name from the top down, so that the
/// menu of a first start has something to open.
void AddSampleFiles(Editor& editor);

/// Forgets all recent files.
void ClearRecentFiles(Editor& editor);

/// Brings the menu in line with the list.
void RefreshRecentMenu(Editor& editor);

}  // namespace korvane
