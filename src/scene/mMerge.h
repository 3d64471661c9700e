// Merging of vertices that lie at the same place.
#pragma once

#include <cstdint>
#include <vector>

#include "scene/Scene.h"

namespace korvane {

/// For every vertex the index of the first one at exactly its position (-0 equals +0; what is no
/// number equals nothing). Takes quadratic time where many positions are no numbers.
std::vector<std::int32_t> FirstOfPosition(const std::vector<Vertex>& vertices);

/// Makes every face use the first of the vertices at exactly its corners' positions (-0 equals +0).
/// The others stay in the list, used by no face. A vertex whose position is not a number is left
/// as it is. Indices must be valid.
void MergeEqualVertices(Brush& brush);

}  // namespace korvane
