// Where the panes of the main window lie: pure arithmetic over rectangles, so that it needs no
// window. All lengths are twips (1/1440 inch, 15 to a pixel).
#pragma once

#include <array>
#include <cstdint>

namespace korvane {

inline constexpr std::int32_t kTwipsPerPixel = 15;

/// A rectangle in twips.
struct TwipRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

/// The fixed measures of the window that the layout works in.
struct PaneFrame {
    std::int32_t clientWidth = 0;
    std::int32_t clientHeight = 0;
    std::int32_t paneLeft = 0;  ///< top left corner of the pane area
    std::int32_t paneTop = 0;
    std::int32_t gaugeTop = 0;
    std::int32_t gaugeWidth = 0;
    std::int32_t panelWidth = 0;  ///< property panel
    std::int32_t statusBarHeight = 0;
    std::int32_t textureListHeight = 0;
};

/// A placed pane.
struct Pane {
    bool visible = false;
    TwipRect rect;
};

/// The result: where everything goes.
struct PaneLayout {
    Pane preview;
    std::array<Pane, 3> views;  ///< Top, Left, Front
    TwipRect gauge;
    bool gripVisible = false;
    std::int32_t gripLeft = 0;  ///< top left corner of the split grip
    std::int32_t gripTop = 0;
};

/// Places the panes. `viewLayout` is 0 four-way, 1 Top, 2 Left, 3 Front, 4 preview; the split
/// fractions (0..1) divide the four-way layout.
PaneLayout LayoutPanes(const PaneFrame& frame, int viewLayout, float splitX, float splitY);

/// Position of the four-way split as fractions of the pane area.
struct Split {
    float x = 0.5F;
    float y = 0.5F;
};

/// The split that lies under a point of the window, clamped to 0..1.
Split SplitAt(const PaneFrame& frame, std::int32_t x, std::int32_t y);

}  // namespace korvane
