// Between the world and the pixels of a 2D view; snapping to the grid.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "views/core/ViewState.h"

namespace korvane {
namespace {

ViewState Surface(std::int32_t width, std::int32_t height) {
    ViewState view;
    view.width = width;
    view.height = height;
    UpdateViewOrigin(view);
    return view;
}

TEST(ViewState, EveryViewShowsItsTwoAxes) {
    const ViewState view = Surface(400, 300);
    const struct {
        int view;
        Vec3 point;
        double x, y;
    } cases[] = {
        {TopView, {1, 7, 0}, 280, 150},    {TopView, {0, 7, 1}, 200, 230},
        {LeftView, {7, 0, 1}, 280, 150},   {LeftView, {7, 1, 0}, 200, 70},
        {FrontView, {1, 0, 7}, 280, 150},  {FrontView, {0, 1, 7}, 200, 70},
        {FrontView, {-2, -1, 7}, 40, 230},
    };
    for (const auto& c : cases) {
        const ScreenPoint screen = WorldToScreen(view, c.view, c.point);
        EXPECT_EQ(screen.x, c.x) << c.view;
        EXPECT_EQ(screen.y, c.y) << c.view;
        Vec3 back{7, 7, 7};
        ScreenToWorld(view, c.view, screen.x, screen.y, back);
        EXPECT_EQ(back, c.point) << "the axis that is not shown keeps its 7";
    }
    Vec3 origin{-1, -1, -1};
    ScreenToWorld(view, FrontView, view.originX, view.originY, origin);
    EXPECT_FALSE(std::signbit(origin.x) || std::signbit(origin.y)) << "positive zeros";
}

TEST(ViewState, ZoomStepsStayInTheirRange) {
    const struct {
        std::int32_t zoom, in, out;
    } cases[] = {{80, 82, 78}, {498, 500, 496}, {499, 500, 497}, {500, 500, 498},
                 {12, 14, 10}, {11, 13, 10},    {10, 12, 10}};
    for (const auto& c : cases) {
        EXPECT_EQ(ZoomedIn(c.zoom), c.in) << c.zoom;
        EXPECT_EQ(ZoomedOut(c.zoom), c.out) << c.zoom;
    }
}

TEST(ViewState, ZoomKeepsTheWholeUnitNearestToTheCentre) {
    ViewState view = Surface(401, 299);
    view.panX = -250;  // the centre shows X = 251 / 80, nearest whole unit 3
    view.panY = 100;   // and -100 / 80, nearest -1
    UpdateViewOrigin(view);
    EXPECT_EQ(view.originX, 200 - 250);
    EXPECT_EQ(view.originY, 149 + 100);
    ZoomView(view, 100);
    EXPECT_EQ(view.zoom, 100);
    EXPECT_EQ(view.originX, 200 - 300);
    EXPECT_EQ(view.originY, 149 + 100);
    view.panY = std::numeric_limits<std::int32_t>::max();
    UpdateViewOrigin(view);
    EXPECT_EQ(view.originY, std::numeric_limits<std::int32_t>::max());
}

TEST(SnapToGrid, RoundsHalvesUpAndToTwoDecimals) {
    const struct {
        float value, step, snapped;
    } cases[] = {
        {0.05F, 0.1F, 0.1F},   {0.149F, 0.1F, 0.1F},  {-0.05F, 0.1F, 0.0F},   {1.26F, 0.1F, 1.3F},
        {-0.06F, 0.1F, -0.1F}, {0.34F, 0.1F, 0.3F},   {0.5F, 1.0F, 1.0F},     {-0.5F, 1.0F, 0.0F},
        {14.9F, 10.0F, 10.0F}, {0.5F, 0.125F, 0.5F},  {0.37F, 0.125F, 0.38F}, {0.123F, 0, 0.123F},
        {0.123F, -1, 0.123F},  {0.123F, NAN, 0.123F},
    };
    for (const auto& c : cases) {
        const float snapped = SnapToGrid(c.value, c.step);
        EXPECT_EQ(snapped, c.snapped) << c.value << " by " << c.step;
        EXPECT_FALSE(c.snapped == 0 && std::signbit(snapped)) << c.value;
    }
    EXPECT_EQ(SnapToGrid(Vec3{0.16F, -0.24F, 3}, 0.1F), (Vec3{0.2F, -0.2F, 3}));
}

}  // namespace
}  // namespace korvane
