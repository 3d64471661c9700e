// What a 2D view tells and does beside editing: the pointer, the wheel, the middle button, the
// selection's size.
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
        {"mnuModeBrush", false, inside, Create},
        {"mnuModeFace", false, inside, Create},
        {"mnuModeBrush", false, ctrl(inside), Pick},
        {"mnuModeBrush", false, Left(230, 190, ShiftKey), Nothing},
        {"mnuModeBrush", true, inside, Move},
        {"mnuModeBrush", true, ctrl(inside), Pick},
        {"mnuModeFace", true, inside, Nothing},
        {"mnuModeVertex", true, corner, Pick},
        {"mnuModeVertex", true, inside, Nothing},
        {"mnuModeEdge", true, middle, Pick},
        {"mnuModeEdge", true, inside, Nothing},
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
        const ViewState left = editor.views[LeftView];
        for (int i = 0; i < 60; ++i) {
            TurnWheel(editor, TopView, at, notch);
            const ScreenPoint now = WorldToScreen(editor.views[TopView], TopView, point);
            EXPECT_LE(std::hypot(now.x - at.x, now.y - at.y), 0.8) << i;
        }
        const std::int32_t zoom = editor.views[TopView].zoom;
        EXPECT_EQ(zoom, notch > 0.5 ? 500 : notch < 0 ? 10 : 314) << "60 notches at most";
        EXPECT_EQ(editor.views[FrontView].zoom, zoom) << "all views have one zoom";
        EXPECT_EQ(editor.gauge.zoom, zoom);
        for (int i = 0; i < 60; ++i) TurnWheel(editor, TopView, at, -notch);
        EXPECT_LT(std::abs(TopAt(at).x - point.x) * static_cast<float>(editor.views[TopView].zoom),
                  0.6F);
        EXPECT_EQ(editor.views[LeftView].panX, left.panX) << "about its middle";
    }
    const Vec3 elsewhere = TopAt(Left(10, 10));
    TurnWheel(editor, TopView, Left(10, 10), 2);
    EXPECT_NEAR(TopAt(Left(10, 10)).x, elsewhere.x, 0.6 / editor.views[TopView].zoom);
}

TEST_F(ViewPointerTest, TheMiddleButtonPansAndUnselectsNothing) {
    AddSelected({0, 0, 0}, {1, 1, 1});
    const MouseInput from{MouseButton::Middle, NoModifier, 100, 100};
    const MouseInput to{MouseButton::Middle, NoModifier, 130, 90};
    Click(TopView, from);
    EXPECT_EQ(Selected(), "1");
    PressView(editor, TopView, from);
    MoveOverView(editor, TopView, to);
    ReleaseView(editor, TopView, Right(130, 90));
    MoveOverView(editor, TopView, to);
    EXPECT_TRUE(editor.gesture.panning) << "another button went up";
    ReleaseView(editor, TopView, to);
    EXPECT_FALSE(editor.gesture.panning);
    EXPECT_EQ(editor.views[TopView].panX, 30);
    EXPECT_EQ(editor.views[TopView].panY, -10);
    EXPECT_EQ(Selected(), "1");
    EXPECT_EQ(editor.undo.UndoCount, 0);
}

TEST_F(ViewPointerTest, TheSelectionTellsItsSizeAndMiddle) {
    EXPECT_EQ(SelectionText(editor.scene), "");
    AddSelected({-1, 0, -1}, {1, 2, 1.5F});
    EXPECT_EQ(SelectionText(editor.scene), "2.0 x 2.0 x 2.5 at 0.0, 1.0, 0.25");
    AddSelected({-2, 0, 0}, {-1, 1, 1});
    AddBox({50, 50, 50}, {60, 60, 60});
    EXPECT_EQ(SelectionText(editor.scene), "3.0 x 2.0 x 2.5 at -0.5, 1.0, 0.25");
}

}  // namespace
}  // namespace korvane
