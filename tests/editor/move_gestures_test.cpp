// Picking and dragging in the 2D views as the mouse does it: what changes, what is redrawn, what
// can be undone.
#include <cstring>
#include <random>

#include "editor/mFreeRotate.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

using test::Left;

/// Starts with one box, from 0 to 1 on every axis; it is selected.
class MoveGesturesTest : public test::SessionTest {
  protected:
    MoveGesturesTest() { AddSelected({0, 0, 0}, {1, 1, 1}); }
};

TEST_F(MoveGesturesTest, ADragInAnyViewMovesTheSelectionInOneUndoStep) {
    const struct {
        int view;
        MouseInput to;
        Bounds moved;
    } cases[] = {{TopView, Left(360, 390), {{2, 0, 3}, {3, 1, 4}}},
                 {LeftView, Left(280, 70), {{0, 1, 1}, {1, 2, 2}}},
                 {FrontView, Left(120, 166), {{-1, -0.2F, 0}, {0, 0.8F, 1}}}};
    AddBox({0, 0, 0}, {1, 1, 1});
    const auto before = SceneBytes();
    for (const auto& c : cases) {
        host.commandStateRefreshes = 0;
        PressView(editor, c.view, Left(200, 150));
        EXPECT_EQ(host.commandStateRefreshes, 1) << "the snapshot is taken at the press";
        for (int x = 210; x < 300; x += 10) MoveOverView(editor, c.view, Left(float(x), 150));
        MoveOverView(editor, c.view, c.to);
        ReleaseView(editor, c.view, c.to);
        EXPECT_EQ(BoundsOf(0), c.moved) << c.view;
        EXPECT_EQ(BoundsOf(1), (Bounds{{0, 0, 0}, {1, 1, 1}})) << c.view;
        EXPECT_EQ(editor.undo.UndoCount, 1) << c.view;
        Run("mnuUndo");
        EXPECT_EQ(SceneBytes(), before) << c.view;
    }
}

TEST_F(MoveGesturesTest, AStepAsksOnlyForWhatMoves) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        EXPECT_FALSE(IsMovingSelection(editor));
        PressView(editor, TopView, Left(200, 150));
        EXPECT_TRUE(IsMovingSelection(editor));
        host.redraws = 0;
        MoveOverView(editor, TopView, Left(220, 150));
        EXPECT_EQ(host.redraws, RedrawMoveStep);
        ReleaseView(editor, TopView, Left(220, 150));
        EXPECT_EQ(host.redraws & RedrawAll, RedrawAll);
        EXPECT_FALSE(IsMovingSelection(editor));
    }
    editor.scene.editMode = FaceEdit;
    host.redraws = 0;
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, Left(220, 150));
    EXPECT_FALSE(IsMovingSelection(editor));
    EXPECT_EQ(host.redraws, 0U);
    EXPECT_EQ(editor.undo.UndoCount, 3);
}

TEST_F(MoveGesturesTest, WithSnapADragTakesWholeStepsAndAClickNone) {
    Drag(TopView, Left(203, 150), Left(203 + 27, 150));  // 0.34 units
    const float moved = BoundsOf(0).min.x;
    EXPECT_TRUE(moved == 0.3F || moved == 0.4F) << moved;
    // A press halfway between two steps, in the hidden axis too, is no step by itself.
    editor.gesture.dragStart = {0, 0.05F, 0};
    Drag(TopView, Left(204, 154), Left(205, 154));
    EXPECT_EQ(BoundsOf(0).min, (Vec3{moved, 0, 0}));
    Brushes()[0].vertices[0].x = 0.03F;
    const auto before = SceneBytes();
    Drag(TopView, Left(203, 153), Left(203, 153));
    EXPECT_EQ(SceneBytes(), before) << "not even onto the grid";
    editor.settings.snapToGrid = false;
    Drag(TopView, Left(200, 150), Left(201, 150));
    EXPECT_FLOAT_EQ(BoundsOf(0).min.x, 0.03F + 0.0125F);
}

TEST_F(MoveGesturesTest, ADragOutAndBackLeavesEveryVertexWhereItWas) {
    std::mt19937 random(11);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (const float snap : {0.1F, 0.25F, 0.01F, 0.3F, 0.125F, 0.025F}) {
        editor.settings.snapSize = snap;
        for (int run = 0; run < 60; ++run) {
            Brushes().clear();
            Brush& brush = AddSelected({0, 0, 0}, {1, 1, 1});
            for (Vertex& v : brush.vertices) {
                v.MoveTo(SnapToGrid({pick(-900, 900) * 0.1F, pick(-90, 90) * 1.0F, v.z}, snap));
            }
            const std::vector<Vertex> start = brush.vertices;
            const int view = run % 3;
            for (ViewState& state : editor.views) state.zoom = pick(10, 500);
            editor.scene.editMode = run % 2 == 0 ? BrushMove : VertexMove;
            for (Vertex& v : brush.vertices) v.selected = run % 4 == 1;
            const MouseInput press = Left(float(pick(0, 399)), float(pick(0, 299)));
            editor.gesture.dragStart = {pick(-99, 99) * 0.05F, pick(-99, 99) * 0.05F, 0.05F};
            PressView(editor, view, press);
            for (int i = 0; i < 20; ++i) {
                MoveOverView(editor, view, Left(float(pick(-99, 499)), float(pick(-99, 399))));
            }
            MoveOverView(editor, view, press);
            ReleaseView(editor, view, press);
            for (std::size_t v = 0; v < start.size(); ++v) {
                const Vec3 a = start[v].Position(), b = Brushes()[0].vertices[v].Position();
                ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << snap << " run " << run;
            }
        }
    }
}

TEST_F(MoveGesturesTest, CtrlPicksBrushesAndTakesTheirDepth) {
    Brushes().clear();
    AddBox({0, -1, 0}, {1, 3, 1});
    AddBox({2, 0, 0}, {3, 1, 1});
    const auto before = SceneBytes();
    const struct {
        MouseInput click;
        const char* selected;
    } cases[] = {{Left(240, 190, CtrlKey), "10"}, {Left(400, 190, CtrlKey), "11"},
                 {Left(240, 190, CtrlKey), "01"}, {Left(360, 190, CtrlKey), "01"},  // on the edge
                 {Left(10, 10, CtrlKey), "01"},   {Left(240, 190, CtrlKey | ShiftKey), "01"}};
    for (const auto& c : cases) {
        Click(TopView, c.click);
        EXPECT_EQ(Selected(), c.selected) << "at " << c.click.x << ", " << c.click.y;
        if (Selected() != "10") continue;
        EXPECT_EQ(editor.depthRange.LO, -1);
        EXPECT_EQ(editor.depthRange.HI, 3);
        EXPECT_GE(host.panelRefreshes, 1);
    }
    EXPECT_EQ(editor.undo.UndoCount, 6);
    for (int i = 0; i < 6; ++i) Run("mnuUndo");
    Drag(TopView, Left(240, 190, CtrlKey), Left(320, 190, CtrlKey));
    EXPECT_EQ(BoundsOf(0).min.x, 1) << "a drag moves at once what its press picked";
    Run("mnuUndo");
    EXPECT_EQ(SceneBytes(), before);
}

TEST_F(MoveGesturesTest, EdgeAndVertexDragsReadOutTheCursor) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        PressView(editor, TopView, Left(200, 150));
        EXPECT_FALSE(CurrentReadOut(editor, TopView));
        MoveOverView(editor, TopView, Left(241, 150));
        const auto readOut = CurrentReadOut(editor, TopView);
        ASSERT_EQ(readOut.has_value(), mode != BrushMove);
        if (readOut) {
            EXPECT_EQ(readOut->text, "0.5 x 0.0 x 0.0");
            EXPECT_NEAR(readOut->x, 240, 1e-4);
            EXPECT_FALSE(CurrentReadOut(editor, LeftView));
        }
        ReleaseView(editor, TopView, Left(241, 150));
        EXPECT_FALSE(CurrentReadOut(editor, TopView));
    }
}

TEST_F(MoveGesturesTest, TheMarkerIsDraggedInPlaceOfEverythingElse) {
    const auto before = SceneBytes();
    editor.scene.markerShown = true;
    editor.scene.marker = {0.52F, 0.5F, 0.5F};
    PressView(editor, FrontView, Left(203, 150));
    EXPECT_TRUE(IsMovingSelection(editor));
    MoveOverView(editor, FrontView, Left(283, 70));
    EXPECT_EQ(editor.scene.marker, (Vec3{1.5F, 1.5F, 0.5F}));
    EXPECT_EQ(host.status[0], "Rotation Marker: X: 1.50  Y: 1.50  Z: 0.50");
    EXPECT_EQ(host.redraws, RedrawMoveStep);
    MoveOverView(editor, FrontView, Left(203, 150));
    EXPECT_EQ(editor.scene.marker, (Vec3{0.5F, 0.5F, 0.5F})) << "onto the grid";
    editor.settings.snapToGrid = false;
    MoveOverView(editor, FrontView, Left(207, 150));
    ReleaseView(editor, FrontView, Left(207, 150));
    EXPECT_FLOAT_EQ(editor.scene.marker.x, 0.52F + 7 / 80.0F);
    EXPECT_EQ(SceneBytes(), before);
    EXPECT_EQ(editor.undo.UndoCount, 0);
}

TEST_F(MoveGesturesTest, AMarkerDragEndsWithItsDialog) {
    for (const EditMode mode : {BrushMove, FaceEdit}) {
        editor.scene.editMode = mode;
        OpenFreeRotate(editor);
        PressView(editor, FrontView, Left(200, 150));
        MoveOverView(editor, FrontView, Left(280, 150));
        const Vec3 left = editor.scene.marker;
        CloseFreeRotate(editor);
        MoveOverView(editor, FrontView, Left(360, 150));
        EXPECT_EQ(editor.scene.marker, left);
        EXPECT_EQ(host.status[0], "") << "there is no marker to tell of";
        OpenFreeRotate(editor);
        MoveOverView(editor, FrontView, Left(400, 150));
        EXPECT_EQ(editor.scene.marker, (Vec3{0.5F, 0.5F, 0.5F})) << "the drag is over for good";
        ReleaseView(editor, FrontView, Left(400, 150));
        CloseFreeRotate(editor);
    }
}

TEST_F(MoveGesturesTest, ACancelledDragStandsAsFarAsItWent) {
    const auto before = SceneBytes();
    PressView(editor, TopView, Left(200, 150));
    MoveOverView(editor, TopView, Left(280, 150));
    const auto dragged = SceneBytes();
    host.redraws = 0;
    CancelViewGesture(editor);
    EXPECT_EQ(host.redraws, RedrawAll);
    MoveOverView(editor, TopView, Left(360, 150));
    ReleaseView(editor, TopView, Left(360, 150));
    EXPECT_EQ(SceneBytes(), dragged);
    EXPECT_EQ(editor.undo.UndoCount, 1);
    Run("mnuUndo");
    EXPECT_EQ(SceneBytes(), before);
}

TEST_F(MoveGesturesTest, AMessageAtThePressEndsTheDrag) {
    // A message box deactivates the window, which cancels the gesture; its release never comes.
    prompts.whenAsked = [this] { CancelViewGesture(editor); };
    editor.programFolder = "/nowhere/at/all";
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        Brushes().clear();
        AddSelected({0, 0, 0}, {1, 1, 1});
        editor.undo = {};
        prompts.messages.clear();
        for (const float x : {0.0F, 1.0F}) {  // the user is told once; the next drag goes on
            Drag(TopView, Left(200, 150), Left(280, 150));
            EXPECT_EQ(Brushes()[0].vertices[0].x, x) << mode;
        }
        EXPECT_EQ(prompts.messages.size(), 1U) << mode;
    }
}

TEST_F(MoveGesturesTest, ACommandInTheMiddleOfADragEndsIt) {
    const char* const commands[] = {"mnuUndo",       "mnuDelete", "mnuUnSelect",
                                    "mnuModeVertex", "mnuFlipX",  "mnuNew",
                                    "mnuRotY",       "mnuInvert", "mnuModeFace"};
    editor.settings.warnings.fill(false);
    for (const char* command : commands) {
        Brushes().clear();
        editor.scene.editMode = BrushMove;
        AddSelected({0, 0, 0}, {1, 1, 1});
        PressView(editor, TopView, Left(200, 150));
        MoveOverView(editor, TopView, Left(280, 150));
        Run(command);
        const auto after = SceneBytes();
        EXPECT_FALSE(IsMovingSelection(editor)) << command;
        MoveOverView(editor, TopView, Left(360, 150));
        ReleaseView(editor, TopView, Left(360, 150));
        EXPECT_EQ(SceneBytes(), after) << command;
    }
}

}  // namespace
}  // namespace korvane
