#include "editor/mViewGestures.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "editor/mRotationMarker.h"
#include "editor/mUndo.h"
#include "scene/mBrush.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

constexpr float kThinnestBrush = 0.01F;  // world units, compared as stored
constexpr const char* kMoveCaption = "Move";

bool IsRunning(const ViewGesture& gesture) {
    return gesture.dragging || gesture.panning;
}

/// The button whose release ends the running gesture.
MouseButton OwnButton(const ViewGesture& gesture) {
    if (gesture.dragging) return MouseButton::Left;
    if (!gesture.panning) return MouseButton::None;
    return gesture.unselects ? MouseButton::Right : MouseButton::Middle;
}

Vec3 Snapped(const Editor& editor, const Vec3& point) {
    return SnapToGrid(point, editor.settings.SnapStep());
}

bool MovesVertices(std::int16_t editMode) {
    return editMode == EdgeMove || editMode == VertexMove;
}

/// The title and the undo command show that there is a snapshot.
void TakeGestureSnapshot(Editor& editor, const char* caption) {
    editor.gesture.undoStep = TakeUndoSnapshot(editor, caption);
    UpdateCommandStates(editor);
}

/// Picks brushes with Ctrl; what is selected then can be moved.
void PressBrushMove(Editor& editor, bool ctrl) {
    TakeGestureSnapshot(editor, ctrl ? "Select Brushes" : kMoveCaption);
    if (ctrl) {
        PickBrushAt(editor.scene, editor.gesture.view, editor.gesture.dragStart);
        DepthRangeFromSelection(editor.scene, editor.depthRange);
        RefreshAll(editor);
    }
    editor.gesture.origin = OriginOfBrushes(editor.scene);
}

/// Adds to the selection of vertices, or with Ctrl takes from it; what is selected then can be
/// moved.
void PressVertexMove(Editor& editor, bool ctrl) {
    const bool edges = editor.scene.editMode == EdgeMove;
    const auto pick = edges ? PickEdgesAt : PickVerticesAt;
    TakeGestureSnapshot(editor, edges ? "Select Edges" : "Select Vertices");
    pick(editor.scene, editor.gesture.view, editor.gesture.dragStart, editor.settings.pickerSize,
         !ctrl);
    RedrawAllViews(editor);
    editor.gesture.origin = OriginOfVertices(editor.scene);
}

/// What a left press takes hold of: the marker while it is shown, else the selection, else nothing,
/// and a new brush begins. A modifier asks for the selection even when it is empty.
void PressLeft(Editor& editor, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    const bool picks = mouse.modifiers != NoModifier || SelectedBrushIndex(editor.scene) >= 0;
    const bool ctrl = mouse.modifiers == CtrlKey;
    gesture.movesMarker = editor.scene.markerShown;
    gesture.markerStart = editor.scene.marker;
    gesture.creating = !gesture.movesMarker && !picks;
    gesture.dragging = true;  // already now: a message about the snapshot takes the mouse away
    if (!gesture.movesMarker && picks) {
        if (gesture.editMode == BrushMove) PressBrushMove(editor, ctrl);
        if (MovesVertices(gesture.editMode)) PressVertexMove(editor, ctrl);
    }
    // From here on only steps of the grid count: a start beside it would be felt at the first step.
    gesture.dragStart = Snapped(editor, gesture.dragStart);
    editor.CursorPoint = gesture.dragStart;
}

void ShowCursor(const Editor& editor, int view) {
    static constexpr const char* names[kViewCount] = {"Top", "Left", "Front"};
    const Vec3& p = editor.CursorPoint;
    editor.host.ShowStatus(1, names[view]);
    editor.host.ShowStatus(2, "X: " + FormatFixed(p.x, 2, 2));
    editor.host.ShowStatus(3, "Y: " + FormatFixed(p.y, 2, 2));
    editor.host.ShowStatus(4, "Z: " + FormatFixed(p.z, 2, 2));
}

void PanView(Editor& editor, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    const bool moved = mouse.x != gesture.lastX || mouse.y != gesture.lastY;
    if (!moved) return;  // some window systems repeat the position of the press
    ViewState& state = editor.views[gesture.view];
    gesture.panned = true;
    state.panX = RoundToInt(state.panX - (static_cast<double>(gesture.lastX) - mouse.x));
    state.panY = RoundToInt(state.panY - (static_cast<double>(gesture.lastY) - mouse.y));
    gesture.lastX = mouse.x;
    gesture.lastY = mouse.y;
    UpdateViewOrigin(state);
    editor.host.RequestRedraw(RedrawView(gesture.view));
}

/// The corner coordinate along the axis that the view does not show.
float Vec3::*HiddenAxis(int view) {
    static constexpr float Vec3::*table[kViewCount] = {&Vec3::y, &Vec3::x, &Vec3::z};
    return table[view];
}

/// Start and end of the new brush: the depth range along the hidden axis, X and Z running the same
/// way from start to end.
std::pair<Vec3, Vec3> BrushCorners(const Editor& editor) {
    Vec3 start = editor.gesture.dragStart;
    Vec3 end = editor.CursorPoint;
    const auto hidden = HiddenAxis(editor.gesture.view);
    start.*hidden = editor.depthRange.HI;
    end.*hidden = editor.depthRange.LO;
    const bool opposed =
        (start.x > end.x && start.z < end.z) || (start.x < end.x && start.z > end.z);
    if (opposed) std::swap(start.x, end.x);
    return {start, end};
}

bool HasExtent(const Vec3& start, const Vec3& end) {
    const Vec3 size = Absolute(Difference(start, end));
    return size.x >= kThinnestBrush && size.y >= kThinnestBrush && size.z >= kThinnestBrush;
}

/// Index of the new brush, or -1 where the drag has no extent to build one in.
std::int32_t BuildBrush(Editor& editor) {
    const auto [start, end] = BrushCorners(editor);
    if (!HasExtent(start, end)) return -1;
    return CreateBrush(editor.scene, start, end, editor.scene.sideCount, editor.Space());
}

void FinishCreation(Editor& editor) {
    TakeUndoSnapshot(editor, "Create Brush");
    editor.host.RequestRedraw(RedrawView(editor.gesture.view));  // without the rectangle
    const std::int32_t brush = BuildBrush(editor);
    if (brush < 0) {
        UpdateCommandStates(editor);  // the snapshot stands all the same
        return;
    }
    SelectOnly(editor.scene, brush);
    RefreshAll(editor);
}

/// How far the cursor is from the start, as what moved points lose.
Vec3 DragDelta(const Editor& editor) {
    return Difference(editor.CursorPoint, editor.gesture.dragStart);
}

void MoveMarker(Editor& editor) {
    editor.scene.marker =
        MovedPoint(editor.gesture.markerStart, DragDelta(editor), editor.settings.SnapStep());
    ShowMarkerPosition(editor);
    editor.host.RequestRedraw(RedrawMoveStep);
}

/// The press may have been meant to select; now it is a move.
void MoveSelection(Editor& editor) {
    ViewGesture& gesture = editor.gesture;
    const bool moves = !gesture.origin.vertices.empty();
    if (moves && std::exchange(gesture.undoStep, false)) RenameUndoStep(editor, kMoveCaption);
    MoveFromOrigin(editor.scene, gesture.origin, DragDelta(editor), editor.settings.SnapStep(),
                   editor.Space());
    editor.host.RequestRedraw(RedrawMoveStep);
}

void DragTo(Editor& editor, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    // Some window systems repeat the position of the press; a click moves nothing.
    gesture.moved = gesture.moved || mouse.x != gesture.lastX || mouse.y != gesture.lastY;
    if (gesture.creating) {
        editor.host.RequestRedraw(RedrawOverlay(gesture.view));
    } else if (gesture.moved && IsMovingSelection(editor)) {
        gesture.movesMarker ? MoveMarker(editor) : MoveSelection(editor);
    } else if (gesture.moved && (gesture.movesMarker || gesture.editMode != FaceEdit)) {
        CancelViewGesture(editor);
    }
}

void FinishDrag(Editor& editor) {
    if (editor.gesture.creating) {
        FinishCreation(editor);
    } else {
        editor.gesture.origin = {};
        RedrawAllViews(editor);
    }
}

void FinishPan(Editor& editor) {
    if (editor.gesture.panned || !editor.gesture.unselects) return;
    UnSelect(editor.scene);
    RefreshAll(editor);
}

std::string JoinedCoordinates(const Vec3& p) {
    return FormatFixed(p.x, 1, 2) + " x " + FormatFixed(p.y, 1, 2) + " x " + FormatFixed(p.z, 1, 2);
}

}  // namespace

void PressView(Editor& editor, int view, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    if (IsRunning(gesture)) return;
    gesture.view = view;
    gesture.editMode = editor.scene.editMode;
    gesture.lastX = mouse.x;
    gesture.lastY = mouse.y;
    gesture.panned = false;
    gesture.moved = false;
    gesture.undoStep = false;
    ScreenToWorld(editor.views[view], view, mouse.x, mouse.y, gesture.dragStart);
    editor.CursorPoint = gesture.dragStart;
    gesture.unselects = mouse.button == MouseButton::Right;
    gesture.panning = gesture.unselects || mouse.button == MouseButton::Middle;
    if (mouse.button == MouseButton::Left) PressLeft(editor, mouse);
}

void MoveOverView(Editor& editor, int view, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    if (IsRunning(gesture) && mouse.button == MouseButton::None) CancelViewGesture(editor);
    if (IsRunning(gesture) && view != gesture.view) return;
    ScreenToWorld(editor.views[view], view, mouse.x, mouse.y, editor.CursorPoint);
    editor.CursorPoint = Snapped(editor, editor.CursorPoint);
    ShowCursor(editor, view);
    if (gesture.panning) PanView(editor, mouse);
    if (gesture.dragging) DragTo(editor, mouse);
}

void ReleaseView(Editor& editor, int view, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    const bool ends =
        IsRunning(gesture) && view == gesture.view && mouse.button == OwnButton(gesture);
    if (ends) {
        const bool wasDrag = std::exchange(gesture.dragging, false);
        gesture.panning = false;
        wasDrag ? FinishDrag(editor) : FinishPan(editor);
    }
    editor.host.FocusViews();
}

void CancelViewGesture(Editor& editor) {
    ViewGesture& gesture = editor.gesture;
    if (!IsRunning(gesture)) return;
    const bool moves = gesture.dragging && !gesture.creating;
    gesture.dragging = false;
    gesture.panning = false;
    gesture.creating = false;
    gesture.origin = {};
    editor.host.RequestRedraw(moves ? RedrawAll : RedrawView(gesture.view));
}

bool IsMovingSelection(const Editor& editor) {
    const ViewGesture& gesture = editor.gesture;
    if (!gesture.dragging || gesture.creating) return false;
    if (gesture.movesMarker) return editor.scene.markerShown;
    return gesture.editMode != FaceEdit && gesture.editMode == editor.scene.editMode &&
           IsCurrent(editor.scene, gesture.origin);
}

std::optional<RubberBand> CurrentRubberBand(const Editor& editor, int view) {
    const ViewGesture& gesture = editor.gesture;
    if (!gesture.dragging || !gesture.creating || gesture.view != view) return std::nullopt;
    const ViewState& state = editor.views[view];
    const ScreenPoint start = WorldToScreen(state, view, gesture.dragStart);
    const ScreenPoint end = WorldToScreen(state, view, editor.CursorPoint);
    RubberBand band;
    std::tie(band.x1, band.x2) = std::minmax({start.x, end.x});
    std::tie(band.y1, band.y2) = std::minmax({start.y, end.y});
    band.size =
        "[Size: " + JoinedCoordinates(Absolute(Difference(gesture.dragStart, editor.CursorPoint))) +
        "]";
    band.start = JoinedCoordinates(gesture.dragStart);
    band.end = JoinedCoordinates(editor.CursorPoint);
    return band;
}

std::optional<ReadOut> CurrentReadOut(const Editor& editor, int view) {
    const ViewGesture& gesture = editor.gesture;
    const bool shown = gesture.view == view && gesture.moved && !gesture.movesMarker &&
                       MovesVertices(gesture.editMode) && IsMovingSelection(editor);
    if (!shown) return std::nullopt;
    const ScreenPoint cursor = WorldToScreen(editor.views[view], view, editor.CursorPoint);
    return ReadOut{cursor.x, cursor.y, JoinedCoordinates(editor.CursorPoint)};
}

}  // namespace korvane
