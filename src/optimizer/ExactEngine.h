// The exact engine: a polygon is hidden when other brushes cover every point of it, whatever the
// directions it could be looked at from.
#pragma once

#include <memory>

#include "optimizer/OptimizeEngine.h"
#include "scene/Scene.h"

namespace korvane {

/// An engine for a scene, which must outlive it. Convex closed brushes with outward faces cover;
/// others cover nothing. A point of a face is covered where a solid holds it and what lies straight
/// before it: a solid that touches the face from outside covers, one that ends level with it does
/// not, so that of two brushes in one place neither hides the other. Gaps and overhangs of up to
/// kTouching (mSolid.h) count as closed. The result does not depend on the order of brushes.
std::unique_ptr<OptimizeEngine> MakeExactEngine(const Scene& scene);

}  // namespace korvane
