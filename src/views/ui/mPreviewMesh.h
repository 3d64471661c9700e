// The brushes as the preview draws them: corners ready for OpenGL, kept as long as a brush does not
// change. No OpenGL call is made here.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "scene/Scene.h"
#include "views/ui/mPreviewTree.h"

namespace korvane {

/// A corner of a triangle, as it lies in the vertex buffer.
struct PreviewCorner {
    TexCoord uv;
    Vec3 normal;
    Vec3 position;

    friend bool operator==(const PreviewCorner&, const PreviewCorner&) = default;
};

/// What a frame needs to know of a triangle.
struct PreviewFace {
    std::array<std::uint32_t, 3> corners{};  ///< places in the corner table
    std::array<std::uint32_t, 3> points{};   ///< vertices of the brush
    std::uint32_t number = 0;                ///< index among the brush's faces
    Vec3 normal;          ///< of the plane the triangle lies in, unit length; zero without area
    double distance = 0;  ///< of the plane from the origin along the normal
    std::int32_t texture = 0;
    bool selected = false;
    bool invisible = false;
};

/// Whether a brush is a convex solid, see IsConvexSolid.
enum class Solid : std::uint8_t { NotAsked, No, Yes };

/// Where a brush lies in the tables.
struct PreviewBrush {
    std::uint32_t firstCorner = 0;
    std::uint32_t cornerRoom = 0;  ///< corners reserved
    std::uint32_t firstFace = 0;
    std::uint32_t faceCount = 0;
    BoundingBox bounds;         ///< of the corners
    bool hasInvisible = false;  ///< some face is invisible
    Solid solid = Solid::NotAsked;
};

/// A stretch of the corner table.
struct CornerRange {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// The tables, in brush and face order.
struct PreviewMesh {
    std::vector<PreviewCorner> corners;
    std::vector<PreviewFace> faces;
    std::vector<PreviewBrush> brushes;
    std::vector<std::uint64_t> revisions;  ///< by brush: of what was built; all are read each frame
    PreviewTree tree;                      ///< of the brushes that have faces
    std::vector<std::uint32_t> loose;  ///< brushes too far out, or too broken, to stand in the tree
};

/// The triangles of a brush.
inline std::span<const PreviewFace> FacesOf(const PreviewMesh& mesh, const PreviewBrush& brush) {
    return {mesh.faces.data() + brush.firstFace, brush.faceCount};
}

/// Brings the mesh in line with the scene, building only brushes whose revision changed, and tells
/// which corners are new. A face that names a vertex the brush lacks is left out.
std::vector<CornerRange> UpdatePreviewMesh(PreviewMesh& mesh, const Scene& scene);

}  // namespace korvane
