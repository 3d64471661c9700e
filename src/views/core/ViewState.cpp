#include "views/core/ViewState.h"

#include <algorithm>

#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr std::int32_t kZoomStep = 2;

/// Centre of a side of the surface plus the pan, without overflow for any pan.
std::int32_t Origin(std::int32_t size, std::int32_t pan) {
    return FloorToInt(Int(size * 0.5) + pan);
}

/// The pan that keeps the whole unit nearest to the centre in place when the zoom changes.
std::int32_t PanForZoom(std::int32_t size, std::int32_t origin, std::int32_t oldZoom,
                        std::int32_t newZoom) {
    const double unit = -Round((Round(size * 0.5) - origin) / oldZoom);
    return RoundToInt(unit * newZoom);
}

}  // namespace

void UpdateViewOrigin(ViewState& view) {
    view.originX = Origin(view.width, view.panX);
    view.originY = Origin(view.height, view.panY);
}

void ResetView(ViewState& view) {
    view.panX = 0;
    view.panY = 0;
    view.zoom = kDefaultZoom;
    UpdateViewOrigin(view);
}

std::int32_t ZoomedIn(std::int32_t zoom) {
    return std::min(zoom + kZoomStep, kMaxZoom);
}

std::int32_t ZoomedOut(std::int32_t zoom) {
    return std::max(zoom - kZoomStep, kMinZoom);
}

void ZoomView(ViewState& view, std::int32_t newZoom) {
    view.panX = PanForZoom(view.width, view.originX, view.zoom, newZoom);
    view.panY = PanForZoom(view.height, view.originY, view.zoom, newZoom);
    view.zoom = newZoom;
    UpdateViewOrigin(view);
}

const ViewAxes& AxesOf(int view) {
    static constexpr ViewAxes table[kViewCount] = {
        {&Vec3::x, &Vec3::z, +1}, {&Vec3::z, &Vec3::y, -1}, {&Vec3::x, &Vec3::y, -1}};
    return table[view];
}

ScreenPoint WorldToScreen(const ViewState& state, int view, const Vec3& point) {
    const ViewAxes& axes = AxesOf(view);
    return {static_cast<double>(point.*axes.horizontal) * state.zoom + state.originX,
            state.originY + axes.down * (static_cast<double>(point.*axes.vertical) * state.zoom)};
}

void ScreenToWorld(const ViewState& state, int view, double x, double y, Vec3& point) {
    const ViewAxes& axes = AxesOf(view);
    const double down = axes.down > 0 ? y - state.originY : state.originY - y;
    point.*axes.horizontal = static_cast<float>((x - state.originX) / state.zoom);
    point.*axes.vertical = static_cast<float>(down / state.zoom);
}

void ZoomViewAbout(ViewState& state, int view, std::int32_t newZoom, const Vec3& point, double x,
                   double y) {
    state.zoom = newZoom;
    const ScreenPoint lies = WorldToScreen(state, view, point);
    state.panX = RoundToInt(state.panX + x - lies.x);
    state.panY = RoundToInt(state.panY + y - lies.y);
    UpdateViewOrigin(state);
}

float SnapToGrid(float value, float snapSize) {
    const double step = snapSize;
    if (!(step > 0)) return value;
    return static_cast<float>(Round(Int((value + step / 2) / step) * step, 2));
}

Vec3 SnapToGrid(const Vec3& point, float snapSize) {
    return {SnapToGrid(point.x, snapSize), SnapToGrid(point.y, snapSize),
            SnapToGrid(point.z, snapSize)};
}

}  // namespace korvane
