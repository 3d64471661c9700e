#include "views/core/DepthRange.h"

#include "scene/mNormals.h"

namespace korvane {

bool DepthRangeFromSelection(const Scene& scene, DepthRange& range) {
    const Bounds bounds = SelectionBounds(scene);
    const bool inReach = bounds.min.y <= 900 && bounds.max.y >= -900;
    if (!inReach) return false;  // an empty selection gives inverted bounds
    range.LO = bounds.min.y;
    range.HI = bounds.max.y;
    return true;
}

double DepthToScreen(const ViewState& gauge, double depth) {
    return gauge.originY - depth * gauge.zoom;
}

float ScreenToDepth(const ViewState& gauge, double y) {
    return static_cast<float>((gauge.originY - y) / gauge.zoom);
}

}  // namespace korvane
