// What the mouse does to the scene in a 2D view: picking brushes, edges and vertices, and moving
// the selection.
#pragma once

#include <vector>

#include "scene/Scene.h"
#include "scene/mTextureCoords.h"

namespace korvane {

/// Toggles the selection of every brush whose bounds hold the point strictly inside in the view's
/// two axes. A brush that becomes selected starts with none of its faces and vertices selected.
void PickBrushAt(Scene& scene, int view, const Vec3& point);

/// Sets the flag of every vertex of every selected brush that lies near the point: at most
/// `pickerSize` world units away in each of the view's two axes. The third axis does not count.
void PickVerticesAt(Scene& scene, int view, const Vec3& point, float pickerSize, bool select);

/// Picks at both ends of every drawn edge of a selected brush whose midpoint lies near the point.
/// What coincides with an end in the view is picked with it, in other selected brushes too.
void PickEdgesAt(Scene& scene, int view, const Vec3& point, float pickerSize, bool select);

/// Whether a pick there would meet a vertex, or an edge, of a selected brush.
bool IsVertexNear(const Scene& scene, int view, const Vec3& point, float pickerSize);
bool IsEdgeNear(const Scene& scene, int view, const Vec3& point, float pickerSize);

/// The selected brushes and where those of their vertices that move lay at the start of a drag.
/// Every step places the vertices anew from there: whatever path the mouse takes, no rounding of an
/// earlier step is left, and what comes back lies where it was to the bit.
struct MoveOrigin {
    struct MovedVertex {
        std::int32_t index = 0;
        Vec3 start;
    };
    struct MovedBrush {
        std::int32_t index = 0;
        std::uint64_t revision = 0;  ///< the stamp it was left with, see Brush::revision
        std::size_t end = 0;         ///< its vertices end here; they start where the last ones end
    };
    std::vector<MovedBrush> brushes;
    std::vector<MovedVertex> vertices;
};

/// Remembers all vertices of the selected brushes.
MoveOrigin OriginOfBrushes(const Scene& scene);

/// Remembers the selected vertices of the selected brushes.
MoveOrigin OriginOfVertices(const Scene& scene);

/// Whether the brushes are still selected and as the last step left them. A command in the middle
/// of a drag can change that; the origin is of no use then.
bool IsCurrent(const Scene& scene, const MoveOrigin& origin);

/// Places the remembered vertices at their start minus delta, on the grid where `snapSize` (world
/// units) is above 0. Normals and texture coordinates of the brushes follow: snapping can change
/// the shape, and textures laid out in the world slide over a moving brush. The origin must be
/// current and stays so. Costs what the remembered brushes cost, whatever the size of the scene.
void MoveFromOrigin(Scene& scene, MoveOrigin& origin, const Vec3& delta, float snapSize,
                    const TextureSpace& space);

/// Where a vertex lies after one step: the point minus delta, on the grid where `snapSize` is above
/// 0.
Vec3 MovedPoint(const Vec3& point, const Vec3& delta, float snapSize);

/// One step on its own: MoveFromOrigin with all vertices of the selected brushes.
void MoveSelectedBrushes(Scene& scene, const Vec3& delta, float snapSize,
                         const TextureSpace& space);

/// One step on its own: MoveFromOrigin with the selected vertices of the selected brushes.
void MoveSelectedVertices(Scene& scene, const Vec3& delta, float snapSize,
                          const TextureSpace& space);

}  // namespace korvane
