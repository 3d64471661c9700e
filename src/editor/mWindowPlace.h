// Where the main window comes up: pure arithmetic over rectangles in twips (1/1440 inch).
#pragma once

#include <span>

#include "files/Settings.h"
#include "views/core/PaneLayout.h"

namespace korvane {

/// How the main window starts.
enum class WindowStart { Default, Normal, Maximized, MinimizedBefore };

/// What the settings ask for; a window that was minimised comes up at its default place.
WindowStart StartOfWindow(const Settings& settings);

/// The word that the start-up log has for it.
const char* LogWord(WindowStart start);

/// The stored place made to fit the screens (at least one, the main one first): no negative corner,
/// at least 640 x 480 pixels, at most as large as all screens together. A window whose title bar
/// would lie off every screen, because one is gone, moves onto the first.
WindowPlace ClampToScreens(WindowPlace place, std::span<const TwipRect> screens);

}  // namespace korvane
