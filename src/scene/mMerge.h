// Merging of vertices that lie at the same place.
#pragma once

#include "scene/Scene.h"

namespace korvane {

/// Makes every face use the first of the vertices at exactly its corners' positions (-0 equals +0).
/// The others stay in the list, used by no face. A vertex whose position is not a number is left
/// as it is. Indices must be valid.
void MergeEqualVertices(Brush& brush);

}  // namespace korvane
