// Placing the panes of the main window.
#include <gtest/gtest.h>

#include "views/core/PaneLayout.h"

namespace korvane {
namespace {

PaneFrame WideFrame() {
    PaneFrame frame;
    frame.clientWidth = 19200;
    frame.clientHeight = 14400;
    frame.paneLeft = 3000;
    frame.paneTop = 900;
    frame.gaugeTop = 900;
    frame.gaugeWidth = 1200;
    frame.panelWidth = 3000;
    frame.statusBarHeight = 300;
    frame.textureListHeight = 1500;
    return frame;  // pane area 15000 x 11700
}

TEST(PaneLayoutTest, FourPanesMeetAtTheSplit) {
    const PaneLayout layout = LayoutPanes(WideFrame(), 0, 0.5F, 0.25F);
    EXPECT_EQ(layout.preview.rect, (TwipRect{3000, 900, 7455, 2902}));
    EXPECT_EQ(layout.views[0].rect, (TwipRect{3000 + 7455 + 30, 900, 7455, 2902}));
    EXPECT_EQ(layout.views[1].rect, (TwipRect{3000, 900 + 2902 + 30, 7455, 8708}));
    EXPECT_EQ(layout.views[2].rect, (TwipRect{3000 + 7455 + 30, 900 + 2902 + 30, 7455, 8708}));
    EXPECT_TRUE(layout.preview.visible && layout.views[0].visible && layout.views[1].visible &&
                layout.views[2].visible && layout.gripVisible);
    EXPECT_EQ(layout.gripLeft, 3000 + 7455 - 180);
    EXPECT_EQ(layout.gripTop, 900 + 2902 - 180);
    EXPECT_EQ(layout.gauge, (TwipRect{18000, 900, 1200, 11670}));
}

TEST(PaneLayoutTest, SmallWindowsAndExtremeSplitsLeaveNoNegativePane) {
    PaneFrame tiny = WideFrame();
    tiny.clientWidth = 4200;  // no room at all
    for (const float split : {0.0F, 1.0F}) {
        const PaneLayout layout = LayoutPanes(tiny, 0, split, split);
        for (const Pane& pane : layout.views)
            EXPECT_TRUE(pane.rect.width >= 0 && pane.rect.height >= 0);
        EXPECT_EQ(layout.preview.rect.width, 0);
    }
    EXPECT_EQ(LayoutPanes(WideFrame(), 0, 1, 1).preview.rect.width, 14910);
    EXPECT_EQ(LayoutPanes(WideFrame(), 0, 1, 1).views[0].rect.width, 0);
    tiny.clientWidth = 3500;
    tiny.clientHeight = 2000;
    EXPECT_EQ(LayoutPanes(WideFrame(), 1, 1, 1).views[0].rect, (TwipRect{3000, 900, 14970, 11670}));
    const PaneLayout layout = LayoutPanes(tiny, 1, 0.5F, 0.5F);
    EXPECT_EQ(layout.views[0].rect, (TwipRect{3000, 900, 1500, 1500}));
    EXPECT_FALSE(layout.gripVisible || layout.views[1].visible || layout.preview.visible);
    EXPECT_EQ(layout.gauge.left, 3000);
    EXPECT_EQ(layout.gauge.height, 3000);
}

TEST(PaneLayoutTest, TheSplitFollowsTheMouseWithinThePaneArea) {
    const PaneFrame frame = WideFrame();
    const Split split = SplitAt(frame, 3000 + 7500, 900 + 2925);
    EXPECT_FLOAT_EQ(split.x, 0.5F);
    EXPECT_FLOAT_EQ(split.y, 0.25F);
    EXPECT_EQ(SplitAt(frame, 0, 0).x, 0);
    EXPECT_EQ(SplitAt(frame, 99999, 99999).y, 1);
    PaneFrame none;
    EXPECT_EQ(SplitAt(none, 10, 10).x, 0) << "no division by an empty area";
}

}  // namespace
}  // namespace korvane
