// Pan and zoom of an orthographic view, the mapping between world and pixels, and snapping.
#pragma once

#include <array>
#include <cstdint>

#include "scene/mVector.h"

namespace korvane {

enum View : int { TopView = 0, LeftView = 1, FrontView = 2 };
inline constexpr int kViewCount = 3;

inline constexpr std::int32_t kMinZoom = 10;
inline constexpr std::int32_t kMaxZoom = 500;
inline constexpr std::int32_t kDefaultZoom = 80;

/// State of one view, in (logical) pixels of its surface. Invariant:
/// origin = Int(size * 0.5) + pan, kept by UpdateViewOrigin.
struct ViewState {
    std::int32_t originX = 0;  ///< screen x of world coordinate 0 of the horizontal axis
    std::int32_t originY = 0;  ///< screen y of world coordinate 0 of the vertical axis
    std::int32_t panX = 0;     ///< offset of the origin from the view's centre
    std::int32_t panY = 0;
    std::int32_t zoom = kDefaultZoom;  ///< pixels per world unit
    std::int32_t width = 0;            ///< size of the surface, set when it is laid out
    std::int32_t height = 0;

    friend bool operator==(const ViewState&, const ViewState&) = default;
};

/// The world axes that a view shows.
struct ViewAxes {
    float Vec3::*horizontal;  ///< grows to the right
    float Vec3::*vertical;
    int down;  ///< +1: the vertical axis grows down, -1: up
};

/// The axes of view 0..2.
const ViewAxes& AxesOf(int view);

/// A point in a view's pixels.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

/// Recomputes the origin from size and pan.
void UpdateViewOrigin(ViewState& view);

/// Pan 0, zoom 80, origin at the centre.
void ResetView(ViewState& view);

/// The zoom one step in or out from `zoom`: two pixels a unit, within 10..500.
std::int32_t ZoomedIn(std::int32_t zoom);
std::int32_t ZoomedOut(std::int32_t zoom);

/// Sets a new zoom and pans so that the whole world unit nearest to the view's centre stays there.
void ZoomView(ViewState& view, std::int32_t newZoom);

/// Sets a new zoom and pans so that the world point of view 0..2 lies at (x, y), to half a pixel.
void ZoomViewAbout(ViewState& state, int view, std::int32_t newZoom, const Vec3& point, double x,
                   double y);

/// Where a world point lies in view 0..2 (Top: X right, Z down; Left: Z right, Y up; Front: X
/// right, Y up).
ScreenPoint WorldToScreen(const ViewState& state, int view, const Vec3& point);

/// Writes the two coordinates that the view shows from a screen position; the third keeps its
/// value.
void ScreenToWorld(const ViewState& state, int view, double x, double y, Vec3& point);

/// The nearest multiple of `snapSize` per axis, halves up, then rounded to two decimals. A step of
/// 0 or less snaps nothing.
float SnapToGrid(float value, float snapSize);
Vec3 SnapToGrid(const Vec3& point, float snapSize);

}  // namespace korvane
