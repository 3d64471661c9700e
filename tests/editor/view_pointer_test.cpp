// What a 2D view tells and does beside editing: the pointer and the wheel.
#include <gtest/gtest.h>

#include <cmath>

#include "editor/mViewPointer.h"
#include "scene/mSelection.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

using test::Left;
using test::Right;

class ViewPointerTest : public test::SessionTest {
  protected:
    /// World X and Z under a pixel of the Top view.
    Vec3 TopAt(const MouseInput& mouse) {
        Vec3 point;
        ScreenToWorld(editor.views[TopView], TopView, mouse.x, mouse.y, point);
        return point;
    }
};

/// The pointer promises what the press then does.
TEST_F(ViewPointerTest, ThePointerShowsWhatAPressWouldDo) {
    using enum PressEffect;
    const MouseInput corner = Left(200, 150), middle = Left(240, 150), inside = Left(230, 190);
    const auto ctrl = [](MouseInput mouse) { return Left(mouse.x, mouse.y, CtrlKey); };
    const struct {
        const char* mode;
        bool selected;
        MouseInput mouse;
        PressEffect effect;
    } rows[] = {
        {"mnuModeBrush", false, inside, Create}, {"mnuModeBrush", false, ctrl(inside), Pick},
        {"mnuModeBrush", true, inside, Move},    {"mnuModeFace", true, inside, Nothing},
        {"mnuModeVertex", true, corner, Pick},   {"mnuModeVertex", true, inside, Nothing},
        {"mnuModeEdge", true, middle, Pick},
    };
    AddBox({0, 0, 0}, {1, 1, 1});
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mode << " at " << row.mouse.x);
        Run(row.mode);
        Brushes()[0].selected = row.selected;
        EXPECT_EQ(EffectOfPress(editor, TopView, row.mouse), row.effect);
        const std::int32_t picked = CountSelectedVertices(editor.scene);
        PressView(editor, TopView, row.mouse);
        EXPECT_EQ(editor.gesture.creating, row.effect == Create);
        const bool picks =
            CountSelectedVertices(editor.scene) != picked || Brushes()[0].selected != row.selected;
        EXPECT_EQ(picks, row.effect == Pick);
        EXPECT_EQ(EffectOfPress(editor, TopView, row.mouse), row.effect == Create ? Create : Move);
        CancelViewGesture(editor);
    }
    Brushes()[0].selected = true;
    Run("mnuModeVertex");
    Click(TopView, corner);
    EXPECT_EQ(EffectOfPress(editor, TopView, inside), Move) << "the corner chosen before";
    editor.scene.markerShown = true;
    EXPECT_EQ(EffectOfPress(editor, TopView, ctrl(inside)), Move) << "the marker";
    PressView(editor, TopView, Right(9, 9));
    EXPECT_EQ(EffectOfPress(editor, TopView, inside), Pan);
}

TEST_F(ViewPointerTest, TheWheelKeepsWhatIsUnderThePointer) {
    const MouseInput at = Left(317, 44);
    for (const double notch : {1.0, -1.0, 0.125, -3.5}) {
        SCOPED_TRACE(notch);
        ResetAllViews(editor);
        editor.wheelZoom = {};
        const Vec3 point = TopAt(at);
        ViewState& left = editor.views[LeftView];
        left.panX = 37;  // no whole unit in the middle
        UpdateViewOrigin(left);
        editor.gauge.panY = -23;
        UpdateViewOrigin(editor.gauge);
        Vec3 middle;
        ScreenToWorld(left, LeftView, left.width / 2, left.height / 2, middle);
        const float depth = ScreenToDepth(editor.gauge, editor.gauge.height / 2);
        for (int i = 0; i < 60; ++i) {
            TurnWheel(editor, TopView, at, notch);
            const ScreenPoint now = WorldToScreen(editor.views[TopView], TopView, point);
            EXPECT_LE(std::hypot(now.x - at.x, now.y - at.y), 0.8) << i;
            EXPECT_NEAR(WorldToScreen(left, LeftView, middle).x, left.width / 2, 0.6) << i;
            EXPECT_NEAR(DepthToScreen(editor.gauge, depth), editor.gauge.height / 2, 0.6) << i;
        }
        const std::int32_t zoom = editor.views[TopView].zoom;
        EXPECT_EQ(zoom, notch > 0.5 ? 500 : notch < 0 ? 10 : 314) << "60 notches at most";
        EXPECT_EQ(editor.views[FrontView].zoom, zoom) << "all views have one zoom";
        EXPECT_EQ(editor.gauge.zoom, zoom);
    }
}

}  // namespace
}  // namespace korvane
