// Picking and dragging in the 2D views as the mouse does it: what changes, what is redrawn, what
// can be undone.
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
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove, FaceEdit}) {
        SCOPED_TRACE(mode);
        const bool moves = mode != FaceEdit;
        editor.scene.editMode = mode;
        PressView(editor, TopView, Left(200, 150));
        EXPECT_EQ(IsMovingSelection(editor), moves);
        host.redraws = 0;
        MoveOverView(editor, TopView, Left(220, 150));
        EXPECT_EQ(host.redraws, moves ? RedrawMoveStep : 0U);
        ReleaseView(editor, TopView, Left(220, 150));
        EXPECT_FALSE(IsMovingSelection(editor));
    }
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
    for (const EditMode mode : {BrushMove, VertexMove}) {  // out and back, as often as one likes
        editor.scene.editMode = mode;
        for (Vertex& v : Brushes()[0].vertices) v.selected = true;
        const auto start = SceneBytes();
        PressView(editor, TopView, Left(203, 153));
        for (int i = 0; i < 60; ++i) MoveOverView(editor, TopView, Left(7.0F * i, 291 - 3.0F * i));
        MoveOverView(editor, TopView, Left(203, 153));
        ReleaseView(editor, TopView, Left(203, 153));
        EXPECT_EQ(SceneBytes(), start) << mode;
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

TEST_F(MoveGesturesTest, VerticesAndEdgesArePickedMovedAndWithCtrlPutDown) {
    const struct {
        EditMode mode;
        float x, y;
        const char* picked;  // ring order: (0, 0), (0, 1), (1, 1), (1, 0)
        Bounds moved;
    } rows[] = {{VertexMove, 280, 230, "00100010", {{0, 0, 0}, {1, 1, 2}}},
                {EdgeMove, 240, 150, "10011001", {{0, 0, 1}, {1, 1, 1}}}};
    for (const auto& row : rows) {
        editor.scene.editMode = row.mode;
        Click(TopView, Left(row.x, row.y));
        EXPECT_EQ(SelectedFlags(Brushes()[0].vertices), row.picked);
        Click(TopView, Left(10, 10));
        EXPECT_EQ(SelectedFlags(Brushes()[0].vertices), row.picked) << "a click beside all";
        Drag(TopView, Left(row.x, row.y), Left(row.x, row.y + 80));
        EXPECT_EQ(BoundsOf(0), row.moved);
        Run("mnuUndo");
        EXPECT_EQ(BoundsOf(0), (Bounds{{0, 0, 0}, {1, 1, 1}}));
        Click(TopView, Left(row.x, row.y));
        Click(TopView, Left(row.x, row.y, CtrlKey));
        EXPECT_EQ(SelectedFlags(Brushes()[0].vertices), "00000000");
    }
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
