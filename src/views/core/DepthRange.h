// The depth range: the extent that a new brush gets along the axis its view does not show.
#pragma once

#include "scene/Scene.h"
#include "views/core/ViewState.h"

namespace korvane {

/// The gauge's two levels in world units. HI >= LO except while one of them is dragged.
struct DepthRange {
    float HI = 2.0F;
    float LO = 0.0F;
};

/// Takes the selection's extent along Y. An empty selection changes nothing; returns whether the
/// range was set.
bool DepthRangeFromSelection(const Scene& scene, DepthRange& range);

/// Screen y of a world value on the gauge, and the world value at a screen y. Up is positive.
double DepthToScreen(const ViewState& gauge, double depth);
float ScreenToDepth(const ViewState& gauge, double y);

}  // namespace korvane
