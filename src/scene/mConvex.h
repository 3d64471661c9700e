// Whether a brush is a plain solid: what its front side covers is then covered without a gap.
#pragma once

#include "scene/Scene.h"

namespace korvane {

/// Whether the faces close a convex body and all look outwards. Brushes of very many faces and
/// vertices are not examined and give false; so do broken ones.
bool IsConvexSolid(const Brush& brush);

}  // namespace korvane
