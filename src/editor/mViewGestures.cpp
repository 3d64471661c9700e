#include "editor/mViewGestures.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "scene/mBrush.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

constexpr float kThinnestBrush = 0.01F;  // world units, compared as stored

bool IsRunning(const ViewGesture& gesture) {
    return gesture.dragging || gesture.panning;
}

/// The button whose release ends the running gesture.
MouseButton OwnButton(const ViewGesture& gesture) {
    if (gesture.dragging) return MouseButton::Left;
    return gesture.panning ? MouseButton::Right : MouseButton::None;
}

Vec3 Snapped(const Editor& editor, const Vec3& point) {
    return editor.settings.snapToGrid ? SnapToGrid(point, editor.settings.snapSize) : point;
}

/// A left press begins the rectangle of a new brush where there is nothing else for it to mean.
bool PressCreates(const Editor& editor, const MouseInput& mouse) {
    return !editor.scene.markerShown && mouse.modifiers == NoModifier &&
           CountSelectedBrushes(editor.scene) == 0;
}

void StartCreation(Editor& editor) {
    editor.gesture.dragStart = Snapped(editor, editor.gesture.dragStart);
    editor.CursorPoint = editor.gesture.dragStart;  // a click without a drag has no extent
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

void FinishCreation(Editor& editor) {
    TakeUndoSnapshot(editor);
    editor.host.RequestRedraw(RedrawView(editor.gesture.view));  // without the rectangle
    const auto [start, end] = BrushCorners(editor);
    const std::int32_t brush =
        HasExtent(start, end)
            ? CreateBrush(editor.scene, start, end, editor.scene.sideCount, editor.Space())
            : -1;
    if (brush < 0) {
        UpdateCommandStates(editor);  // the snapshot alone marks the scene as modified
        return;
    }
    SelectOnly(editor.scene, brush);
    RefreshAll(editor);
}

void FinishDrag(Editor& editor) {
    if (editor.gesture.creating) {
        FinishCreation(editor);
    } else {
        RedrawAllViews(editor);
    }
}

void FinishPan(Editor& editor) {
    if (editor.gesture.panned) return;
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
    gesture.lastX = mouse.x;
    gesture.lastY = mouse.y;
    gesture.panned = false;
    ScreenToWorld(editor.views[view], view, mouse.x, mouse.y, gesture.dragStart);
    editor.CursorPoint = gesture.dragStart;
    gesture.panning = mouse.button == MouseButton::Right;
    gesture.dragging = mouse.button == MouseButton::Left;
    if (!gesture.dragging) return;
    gesture.creating = PressCreates(editor, mouse);
    if (gesture.creating) StartCreation(editor);
}

void MoveOverView(Editor& editor, int view, const MouseInput& mouse) {
    ViewGesture& gesture = editor.gesture;
    if (IsRunning(gesture) && mouse.button == MouseButton::None) CancelViewGesture(editor);
    if (IsRunning(gesture) && view != gesture.view) return;
    ScreenToWorld(editor.views[view], view, mouse.x, mouse.y, editor.CursorPoint);
    editor.CursorPoint = Snapped(editor, editor.CursorPoint);
    ShowCursor(editor, view);
    if (gesture.panning) PanView(editor, mouse);
    if (gesture.dragging && gesture.creating) editor.host.RequestRedraw(RedrawOverlay(view));
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
    gesture.dragging = false;
    gesture.panning = false;
    gesture.creating = false;
    editor.host.RequestRedraw(RedrawView(gesture.view));
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

}  // namespace korvane
