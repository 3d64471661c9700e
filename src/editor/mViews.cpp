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

/// Calls `visit` with each view, the gauge after them, its anchor, and the view whose axes it has.
template <class Visit>
void ForEachAnchor(Editor& editor, Visit visit) {
    auto& anchors = editor.wheelZoom.anchors;
    for (int v = 0; v < kViewCount; ++v) {
        const auto i = static_cast<std::size_t>(v);
        visit(editor.views[i], anchors[i], v);
    }
    visit(editor.gauge, anchors[kViewCount], int{FrontView});  // both show heights
}

/// Whether the wheel goes on turning where it turned last.
bool GoesOn(Editor& editor, int view, const MouseInput& mouse) {
    const WheelZoom& wheel = editor.wheelZoom;
    bool untouched = true;
    ForEachAnchor(editor, [&](const ViewState& state, const WheelZoom::Anchor& anchor, int) {
        untouched = untouched && anchor.left == state;
    });
    return untouched && wheel.view == view && wheel.x == mouse.x && wheel.y == mouse.y;
}

/// Rounding at a small zoom would be seen at a large one: steps count from the first.
void AimWheel(Editor& editor, int view, const MouseInput& mouse) {
    if (GoesOn(editor, view, mouse)) return;
    WheelZoom& wheel = editor.wheelZoom;
    wheel = {view, mouse.x, mouse.y, static_cast<double>(editor.views[TopView].zoom), {}};
    ForEachAnchor(editor, [](const ViewState& state, WheelZoom::Anchor& anchor, int axes) {
        anchor = {Int(state.width * 0.5), Int(state.height * 0.5), {}, state};
        ScreenToWorld(state, axes, anchor.x, anchor.y, anchor.point);
    });
    WheelZoom::Anchor& under = wheel.anchors[static_cast<std::size_t>(view)];
    under.x = mouse.x;
    under.y = mouse.y;
    ScreenToWorld(under.left, view, under.x, under.y, under.point);
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
    wheel.zoom =
        std::clamp(wheel.zoom * std::pow(kFactor, notches), double{kMinZoom}, double{kMaxZoom});
    const std::int32_t zoom = RoundToInt(wheel.zoom);
    if (zoom == editor.views[TopView].zoom) return;
    ForEachAnchor(editor, [zoom](ViewState& state, WheelZoom::Anchor& anchor, int axes) {
        ZoomViewAbout(state, axes, zoom, anchor.point, anchor.x, anchor.y);
        anchor.left = state;
    });
    RedrawAllViews(editor);
}

void ResetZoom(Editor& editor) {
    ForEachView(editor, [](ViewState& view) { view.zoom = kDefaultZoom; });
    RedrawAllViews(editor);
}

}  // namespace korvane
