#include "views/core/PaneLayout.h"

#include <algorithm>

#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr std::int32_t kGap = 30;            // between panes
constexpr std::int32_t kFourWayMargin = 90;  // the gap and what is left over at the far edge
constexpr std::int32_t kGripOffset = 180;
constexpr std::int32_t kLeastGauge = 3000;
constexpr std::int32_t kLeastSinglePane = 1500;

struct Area {
    std::int32_t width;
    std::int32_t height;
};

Area PaneArea(const PaneFrame& frame) {
    return {frame.clientWidth - frame.gaugeWidth - frame.panelWidth,
            frame.clientHeight - frame.gaugeTop - frame.statusBarHeight - frame.textureListHeight};
}

/// The two lengths that a split leaves of `length`.
std::array<std::int32_t, 2> Divide(std::int32_t length, float split) {
    const std::int32_t usable = length - kFourWayMargin;
    const std::int32_t first = std::max(0, FloorToInt(static_cast<double>(usable) * split));
    return {first, std::max(0, usable - first)};
}

void PlaceFourWay(PaneLayout& layout, const PaneFrame& frame, float splitX, float splitY) {
    const Area area = PaneArea(frame);
    const auto [w1, w2] = Divide(area.width, splitX);
    const auto [h1, h2] = Divide(area.height, splitY);
    const std::int32_t left = frame.paneLeft, top = frame.paneTop;
    const std::int32_t right = left + w1 + kGap, below = top + h1 + kGap;
    layout.preview = {true, {left, top, w1, h1}};
    layout.views[0] = {true, {right, top, w2, h1}};
    layout.views[1] = {true, {left, below, w1, h2}};
    layout.views[2] = {true, {right, below, w2, h2}};
    layout.gripVisible = true;
    layout.gripLeft = left + w1 - kGripOffset;
    layout.gripTop = top + h1 - kGripOffset;
}

}  // namespace

PaneLayout LayoutPanes(const PaneFrame& frame, int viewLayout, float splitX, float splitY) {
    PaneLayout layout;
    const Area area = PaneArea(frame);
    layout.gauge = {std::max(kLeastGauge, frame.clientWidth - frame.gaugeWidth), frame.gaugeTop,
                    frame.gaugeWidth, std::max(kLeastGauge, area.height - kGap)};
    if (viewLayout < 1 || viewLayout > 4) {
        PlaceFourWay(layout, frame, splitX, splitY);
        return layout;
    }
    Pane& only = viewLayout == 4 ? layout.preview : layout.views[viewLayout - 1];
    only = {true,
            {frame.paneLeft, frame.paneTop, std::max(kLeastSinglePane, area.width - kGap),
             std::max(kLeastSinglePane, area.height - kGap)}};
    return layout;
}

Split SplitAt(const PaneFrame& frame, std::int32_t x, std::int32_t y) {
    const Area area = PaneArea(frame);
    const auto fraction = [](std::int32_t offset, std::int32_t length) {
        if (length <= 0) return 0.0F;
        return static_cast<float>(std::clamp(static_cast<double>(offset) / length, 0.0, 1.0));
    };
    return {fraction(x - frame.paneLeft, area.width), fraction(y - frame.paneTop, area.height)};
}

}  // namespace korvane
