// Places to see a whole object from: for pictures that nobody aims by hand.
#pragma once

#include "scene/mNormals.h"
#include "views/core/Camera.h"
#include "views/core/ViewState.h"

namespace korvane {

/// A camera and how deep its picture is.
struct Framing {
    Camera camera;
    double farthest = 0;  ///< depth of the farthest vertex, world units
};

/// The camera that looks down at the object from its right front, from where the light comes, as
/// near as it can with every vertex inside a picture of that size (pixels) with a small margin.
/// `fieldOfView` is the vertical angle in degrees. An object without vertices gets the camera of a
/// new session.
Framing FrameObject(const Scene& scene, int width, int height, double fieldOfView);

/// Zooms and pans view 0..2, whose size has been set, so that the box fills it but for a margin.
/// Small zooms below those of the editor show large objects whole; the smallest is one pixel a
/// unit.
void FrameBounds(ViewState& state, int view, const Bounds& bounds);

}  // namespace korvane
