#include "editor/mViews.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"

namespace korvane {
namespace {

template <class Change>
void ForEachView(Editor& editor, Change change) {
    for (ViewState& view : editor.views) change(view);
    change(editor.gauge);
}

void ZoomAll(Editor& editor, std::int32_t newZoom) {
    if (newZoom == editor.views[TopView].zoom) return;
    ForEachView(editor, [newZoom](ViewState& view) { ZoomView(view, newZoom); });
    RedrawAllViews(editor);
}

/// Whether the wheel goes on turning where it turned last.
bool GoesOn(const WheelZoom& wheel, const ViewState& state, int view, const MouseInput& mouse) {
    return wheel.view == view && wheel.x == mouse.x && wheel.y == mouse.y && wheel.left == state;
}

/// Rounding at a small zoom would be seen at a large one: steps count from the first.
void AimWheel(Editor& editor, int view, const MouseInput& mouse) {
    WheelZoom& wheel = editor.wheelZoom;
    const ViewState& state = editor.views[static_cast<std::size_t>(view)];
    if (GoesOn(wheel, state, view, mouse)) return;
    wheel = {view, mouse.x, mouse.y, {}, static_cast<double>(state.zoom), state};
    ScreenToWorld(state, view, mouse.x, mouse.y, wheel.point);
}

}  // namespace

void ResetAllViews(Editor& editor) {
    ForEachView(editor, ResetView);
    editor.camera = Camera{};
    editor.splitX = 0.5F;
    editor.splitY = 0.5F;
}

void UpdateViewOrigins(Editor& editor) {
    ForEachView(editor, UpdateViewOrigin);
}

void ZoomIn(Editor& editor) {
    ZoomAll(editor, ZoomedIn(editor.views[TopView].zoom));
}

void ZoomOut(Editor& editor) {
    ZoomAll(editor, ZoomedOut(editor.views[TopView].zoom));
}

void TurnWheel(Editor& editor, int view, const MouseInput& mouse, double notches) {
    constexpr double kFactor = 1.2;  // a notch
    AimWheel(editor, view, mouse);
    WheelZoom& wheel = editor.wheelZoom;
    ViewState& state = editor.views[static_cast<std::size_t>(view)];
    wheel.zoom =
        std::clamp(wheel.zoom * std::pow(kFactor, notches), double{kMinZoom}, double{kMaxZoom});
    const std::int32_t zoom = RoundToInt(wheel.zoom);
    if (zoom == state.zoom) return;
    const ViewState before = state;
    ZoomAll(editor, zoom);
    state = before;
    ZoomViewAbout(state, view, zoom, wheel.point, wheel.x, wheel.y);
    wheel.left = state;
}

void ResetZoom(Editor& editor) {
    ForEachView(editor, [](ViewState& view) { view.zoom = kDefaultZoom; });
    RedrawAllViews(editor);
}

}  // namespace korvane
