// The optimizer's reference: every stop of every pair is drawn in OpenGL's selection mode, and the
// driver tells what lies under the pixel at the centre.
#pragma once

#include <memory>

#include "optimizer/OptimizeEngine.h"
#include "optimizer/mStops.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

/// A frame of one target and one other brush in selection mode.
struct PickPair {
    const Brush& target;
    const std::vector<bool>& invisible;  ///< faces of the target that are not drawn
    const Brush& other;                  ///< drawn whole
};

/// Draws the pair under the current projection and modelview matrices: each face of the target with
/// its index as name, the other brush with a name that no face has. Positions only; turned-away
/// faces are culled as in the preview.
void RenderPickPair(const PickPair& pair);

/// The face of the target that is nearest under the pixel at the centre of the viewport, seen from
/// a stop; -1: none, or the other brush is nearer. Leaves the state of the context as it was. Needs
/// the context to be current.
std::int32_t SelectAtStop(const CameraStop& stop, const StopView& view, const PickPair& pair);

/// An engine for a scene, which must outlive it, in the context's viewport; the viewport of the
/// options plays no part.
std::unique_ptr<OptimizeEngine> MakeSelectionEngine(RenderContext& context, const Scene& scene,
                                                    const OptimizeOptions& options);

}  // namespace korvane
