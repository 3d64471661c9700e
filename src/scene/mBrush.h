// Construction of brushes: box (prism), cone and sphere. The cross-section ring lies in the X-Z
// plane whatever view the brush was drawn in; the axis is Y.
#pragma once

#include "scene/Scene.h"
#include "scene/mTextureCoords.h"

namespace korvane {

inline constexpr int kMinSides = 3;
inline constexpr int kMaxSides = 64;

/// Triangulates the ring 0..n-1 of the brush into n-2 faces without a fan, of the given polygonId.
/// n is half the vertex count for a box, the vertex count otherwise.
void TriangulateCap(Brush& brush, std::int32_t polygonId);

/// Builds a brush of scene.createShape between two corners whose X and Z orders agree, with
/// normals, the selected texture and texture coordinates. Returns its index, or -1 where nothing is
/// built (a sphere without radius or with 2 sides or less).
std::int32_t CreateBrush(Scene& scene, const Vec3& p1, const Vec3& p2, std::int32_t sides,
                         const TextureSpace& space);

}  // namespace korvane
