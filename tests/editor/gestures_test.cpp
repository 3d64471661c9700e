// Mouse gestures without a window: what they change and what they ask to be redrawn.
#include <gtest/gtest.h>

#include "support/SessionFixture.h"

namespace korvane {
namespace {

using test::Left;
using test::Right;

class GesturesTest : public test::SessionTest {
  protected:
    void DragGauge(float fromY, float toY) {
        PressGauge(editor, Left(5, fromY));
        MoveOverGauge(editor, Left(5, toY));
        ReleaseGauge(editor, Left(5, toY));
    }

    float GaugeY(double depth) const {
        return static_cast<float>(DepthToScreen(editor.gauge, depth));
    }

    /// The read-outs of the status bar.
    std::string Status() {
        std::string shown;
        for (int panel = 1; panel <= 4; ++panel) shown += host.status[panel] + "|";
        return shown;
    }

    void ExpectLevels(float low, float high) const {
        EXPECT_EQ(editor.depthRange.LO, low);
        EXPECT_EQ(editor.depthRange.HI, high);
    }

    Bounds OnlyBrush() const {
        return editor.scene.brushes.size() == 1 ? BrushBounds(editor.scene.brushes[0]) : Bounds{};
    }

    void AddSelectedBrush() {
        AddBrush(editor.scene, "", "");
        Brushes()[0].selected = true;
    }
};

TEST_F(GesturesTest, ADragCreatesABrushOfTheDepthRangeWhicheverWayItRuns) {
    editor.scene.sideCount = 3;  // a wedge: its ring tells start from end
    constexpr Bounds kTop{{0, 0, 0}, {2, 2, 3}};
    constexpr Bounds kLeft{{0, 0, 0}, {2, 1, 1}};
    constexpr Bounds kFront{{0, 0, 0}, {1, 1, 2}};
    const struct {
        int view;
        MouseInput from, to;
        Bounds bounds;
        Vec3 first, third;  // of the top ring
    } cases[] = {
        {TopView, Left(200, 150), Left(360, 390), kTop, {0, 2, 0}, {2, 2, 3}},
        {TopView, Left(360, 390), Left(200, 150), kTop, {2, 2, 3}, {0, 2, 0}},
        {TopView, Left(360, 150), Left(200, 390), kTop, {0, 2, 0}, {2, 2, 3}},
        {TopView, Left(200, 390), Left(360, 150), kTop, {2, 2, 3}, {0, 2, 0}},
        {LeftView, Left(200, 150), Left(280, 70), kLeft, {0, 1, 0}, {2, 1, 1}},
        {LeftView, Left(280, 70), Left(200, 150), kLeft, {2, 1, 1}, {0, 1, 0}},
        {FrontView, Left(200, 150), Left(280, 70), kFront, {1, 1, 2}, {0, 1, 0}},
        {FrontView, Left(280, 70), Left(200, 150), kFront, {1, 1, 2}, {0, 1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "view " << c.view << " from " << c.from.x);
        ClearScene(editor.scene);
        Drag(c.view, c.from, c.to);
        EXPECT_EQ(OnlyBrush(), c.bounds);
        const Brush& wedge = Brushes().at(0);
        EXPECT_EQ(wedge.vertices[0].Position(), c.first);
        EXPECT_EQ(wedge.vertices[2].Position(), c.third);
        EXPECT_EQ(wedge.faces[0].normal.y, 1) << "the top faces up";
    }
}

TEST_F(GesturesTest, ACreationSelectsOnlyTheNewBrushAndRefreshes) {
    AddBrush(editor.scene, "", "");
    editor.scene.editMode = FaceEdit;  // ignores drags only with something selected
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, Left(360, 390));
    EXPECT_EQ(host.redraws, RedrawOverlay(TopView)) << "the scene did not change yet";
    EXPECT_FALSE(editor.SceneModified);
    ReleaseView(editor, TopView, Left(360, 390));
    EXPECT_EQ(Selected(), "01");
    EXPECT_TRUE(editor.SceneModified);
    EXPECT_EQ(host.redraws & RedrawAll, RedrawAll);
    EXPECT_EQ(host.commandStateRefreshes, 1);
    EXPECT_EQ(host.panelRefreshes, 1);
    EXPECT_EQ(host.focusReturns, 1);
    EXPECT_FALSE(CurrentRubberBand(editor, TopView));
}

TEST_F(GesturesTest, TheRubberBandShowsSizeStartAndEnd) {
    PressView(editor, TopView, Left(361, 391));  // snaps to 2, 3
    MoveOverView(editor, TopView, Left(202, 149));
    const auto band = CurrentRubberBand(editor, TopView);
    ASSERT_TRUE(band);
    EXPECT_NEAR(band->x1, 200, 1e-4);
    EXPECT_NEAR(band->y1, 150, 1e-4);
    EXPECT_NEAR(band->x2, 360, 1e-4);
    EXPECT_NEAR(band->y2, 390, 1e-4);
    EXPECT_EQ(band->size, "[Size: 2.0 x 0.0 x 3.0]");
    EXPECT_EQ(band->start, "2.0 x 0.0 x 3.0");
    EXPECT_EQ(band->end, "0.0 x 0.0 x 0.0");
    EXPECT_FALSE(CurrentRubberBand(editor, FrontView));
    editor.settings.snapToGrid = false;
    MoveOverView(editor, TopView, Left(202, 150));
    EXPECT_EQ(CurrentRubberBand(editor, TopView)->end, "0.03 x 0.0 x 0.0");
}

TEST_F(GesturesTest, WhatIsThinnerThanAHundredthCreatesNothing) {
    Drag(TopView, Left(233, 177), Left(300, 177));
    EXPECT_EQ(editor.scene.brushCount(), 0) << "no height";
    PressView(editor, TopView, Left(203, 153));
    ReleaseView(editor, TopView, Left(203, 153));
    EXPECT_EQ(editor.scene.brushCount(), 0) << "a click off the grid";
    editor.depthRange = {1.5F, 1.5F};
    Drag(TopView, Left(200, 150), Left(360, 390));
    EXPECT_EQ(editor.scene.brushCount(), 0) << "HI = LO";
    editor.scene.markerShown = true;
    editor.depthRange = {1, 0};
    Drag(TopView, Left(200, 150), Left(360, 390));
    EXPECT_EQ(editor.scene.brushCount(), 0) << "the marker is dragged instead";
    editor.scene.markerShown = false;
    EXPECT_EQ(editor.undo.UndoCount, 3) << "the snapshots come before the test of the size";
    EXPECT_EQ(host.commandStateRefreshes, 3) << "they can be undone";
    EXPECT_EQ(host.panelRefreshes, 0);
    editor.depthRange = {0.01F, 0};
    Drag(TopView, Left(200, 150), Left(360, 390));
    EXPECT_EQ(editor.scene.brushCount(), 1) << "exactly a hundredth";
}

TEST_F(GesturesTest, ARightDragPansPixelForPixelInItsViewOnly) {
    AddSelectedBrush();
    const ViewState top = editor.views[TopView];
    PressView(editor, LeftView, Right(100, 100));
    for (const auto& at : {Right(100, 100), Right(113, 95), Right(120, 90)})
        MoveOverView(editor, LeftView, at);
    ReleaseView(editor, LeftView, Right(120, 90));
    EXPECT_EQ(editor.views[LeftView].panX, 20);
    EXPECT_EQ(editor.views[LeftView].panY, -10);
    EXPECT_EQ(editor.views[LeftView].originX, 220);
    EXPECT_EQ(editor.views[LeftView].originY, 140);
    EXPECT_EQ(editor.views[TopView].originX, top.originX);
    EXPECT_EQ(host.redraws, RedrawView(LeftView));
    EXPECT_EQ(Selected(), "1") << "a pan is no click";

    PressView(editor, TopView, Right(100, 100));
    MoveOverView(editor, TopView, Right(100, 100));  // repeated position of the press
    ReleaseView(editor, TopView, Right(100, 100));
    EXPECT_EQ(Selected(), "0") << "a right click unselects";
    EXPECT_EQ(host.redraws, RedrawAll);
    EXPECT_EQ(host.commandStateRefreshes, 1);
    EXPECT_EQ(host.focusReturns, 2);
}

TEST_F(GesturesTest, AGestureBelongsToItsViewAndButton) {
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, Left(360, 390));
    PressView(editor, TopView, Right(10, 10));
    PressView(editor, FrontView, Left(10, 10));
    MoveOverView(editor, FrontView, Left(20, 20));
    ReleaseView(editor, TopView, Right(10, 10));
    ReleaseView(editor, FrontView, Left(20, 20));
    EXPECT_EQ(editor.scene.brushCount(), 0);
    ReleaseView(editor, TopView, Left(360, 390));
    EXPECT_EQ(OnlyBrush(), (Bounds{{0, 0, 0}, {2, 2, 3}}));
    EXPECT_TRUE(editor.scene.brushes[0].selected) << "the right click in between was ignored";
}

TEST_F(GesturesTest, ACancelledOrLostGestureDoesNothing) {
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, Left(360, 390));
    CancelViewGesture(editor);
    EXPECT_FALSE(CurrentRubberBand(editor, TopView));
    EXPECT_TRUE(host.redraws & RedrawView(TopView));
    ReleaseView(editor, TopView, Left(360, 390));
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, {MouseButton::None, NoModifier, 360, 390});
    ReleaseView(editor, TopView, Left(360, 390));
    EXPECT_EQ(editor.scene.brushCount(), 0);
    EXPECT_FALSE(editor.SceneModified);
}

TEST_F(GesturesTest, ReadOutsNameTheViewAndTheSnappedPoint) {
    const auto hover = [this](int view, float x, float y) {
        MoveOverView(editor, view, {MouseButton::None, NoModifier, x, y});
        return Status();
    };
    editor.CursorPoint = {0, 1.5F, 0};
    EXPECT_EQ(hover(TopView, 227, 44), "Top|X: 0.30|Y: 1.50|Z: -1.30|");
    editor.settings.snapToGrid = false;
    EXPECT_EQ(hover(FrontView, 201, 150), "Front|X: 0.01|Y: 0.00|Z: -1.30|");
    EXPECT_EQ(hover(LeftView, 200, 150), "Left|X: 0.01|Y: 0.00|Z: 0.00|");
    EXPECT_EQ(host.redrawRequests, 0);
}

TEST_F(GesturesTest, GaugePicksTheNearerLevelSnapsAndSwaps) {
    editor.settings.snapToGrid = false;
    DragGauge(GaugeY(1.0), GaugeY(1.5));
    ExpectLevels(0.5F, 2.0F);  // LO at equal distance
    DragGauge(GaugeY(1.75), GaugeY(2.75));
    ExpectLevels(0.5F, 3.0F);
    EXPECT_EQ(host.redraws, RedrawDepthGauge);
    EXPECT_EQ(host.focusReturns, 2);
    editor.settings.snapToGrid = true;
    PressGauge(editor, Left(5, GaugeY(0.5) + 3));
    MoveOverGauge(editor, Left(5, GaugeY(1.234)));
    EXPECT_EQ(Status(), "Depth|HI: 3.00|LO: 1.20|D: 1.20|");
    MoveOverGauge(editor, Left(5, GaugeY(3.54)));
    ExpectLevels(3.5F, 3.0F);  // LO above HI while it is dragged
    ReleaseGauge(editor, Left(5, GaugeY(3.54)));
    ExpectLevels(3.0F, 3.5F);
}

TEST_F(GesturesTest, GaugePansVerticallyByItself) {
    PressGauge(editor, Right(5, 100));
    MoveOverGauge(editor, Right(40, 130));
    EXPECT_EQ(editor.gauge.panY, 30);
    EXPECT_EQ(editor.gauge.panX, 0);
    EXPECT_EQ(editor.gauge.originY, 330);
    EXPECT_EQ(editor.views[TopView].panY, 0);
    ReleaseGauge(editor, Left(5, 100));
    MoveOverGauge(editor, Right(5, 120));
    EXPECT_EQ(editor.gauge.panY, 20) << "the other button's release ends nothing";
    ReleaseGauge(editor, Right(5, 120));
    MoveOverGauge(editor, {MouseButton::None, NoModifier, 5, 400});
    EXPECT_EQ(editor.gauge.panY, 20);
    ExpectLevels(0, 2);
}

TEST_F(GesturesTest, ResetBringsViewsCameraAndSplitBack) {
    editor.views[LeftView].panX = 9;
    editor.gauge.panY = 9;
    editor.gauge.zoom = 10;
    editor.camera = {1, 2, 3, 4, 5, 0};
    editor.splitX = editor.splitY = 0.9F;
    Run("mnuResetAllViews");
    EXPECT_EQ(editor.views[LeftView].panX, 0);
    EXPECT_EQ(editor.gauge.originY, 300);
    EXPECT_EQ(editor.gauge.zoom, 80);
    EXPECT_EQ(editor.camera.y, 3.0F);
    EXPECT_EQ(editor.camera.pitch, -30.0F);
    EXPECT_EQ(editor.camera.yaw, 0.0F);
    EXPECT_EQ(editor.splitX + editor.splitY, 1.0F);
    EXPECT_EQ(host.layouts, 1);
}

}  // namespace
}  // namespace korvane
