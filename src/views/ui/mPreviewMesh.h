// The brushes as the preview draws them: corners ready for OpenGL, kept as long as a brush does not
// change, and the runs of triangles that one frame sends. No OpenGL call is made here.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "scene/Scene.h"

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
    Vec3 normal;          ///< of the plane the triangle lies in, unit length; zero without area
    double distance = 0;  ///< of the plane from the origin along the normal
    std::int32_t texture = 0;
    bool selected = false;
    bool invisible = false;
};

/// Where a brush lies in the tables.
struct PreviewBrush {
    std::uint64_t revision = 0;
    std::uint32_t firstCorner = 0;
    std::uint32_t cornerRoom = 0;  ///< corners reserved
    std::uint32_t firstFace = 0;
    std::uint32_t faceCount = 0;
    Vec3 min;  ///< bounds of the corners
    Vec3 max;
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
};

/// Brings the mesh in line with the scene, building only brushes whose revision changed, and tells
/// which corners are new. A face that names a vertex the brush lacks is left out.
std::vector<CornerRange> UpdatePreviewMesh(PreviewMesh& mesh, const Scene& scene);

/// Colour of a run of triangles.
enum class ColorState { None = 0, Plain = 1, SelectedFace = 2, SelectedBrush = 3 };

/// Selection name of faces that a pick draws only to hide what is behind them.
inline constexpr std::uint32_t kNoPickName = std::numeric_limits<std::uint32_t>::max();

/// Triangles drawn under one state.
struct PreviewRun {
    std::int32_t texture = 0;
    ColorState color = ColorState::None;
    std::uint32_t name = kNoPickName;  ///< stays kNoPickName unless picking
    std::uint32_t first = 0;           ///< place in PreviewRuns::corners
    std::uint32_t count = 0;           ///< corners, three per triangle
};

/// What a frame sends.
struct PreviewRuns {
    std::vector<std::uint32_t> corners;  ///< places in the mesh's corner table
    std::vector<PreviewRun> runs;
};

/// From where, and what, the frame looks at.
struct PreviewView {
    Vec3 eye;
    /// Clip coordinates of a world point: column-major, as OpenGL stores them.
    std::array<double, 16> projection{};
    bool showInvisible = true;
    bool PickRendering = false;  ///< give the runs selection names
};

/// Lists the triangles to draw, in brush and face order, never sorted: of two faces in one place
/// the first stays visible. Left out is only what cannot be seen: hidden faces, brushes outside the
/// view, and faces turned away from the eye.
void GatherPreviewRuns(const Scene& scene, const PreviewMesh& mesh, const PreviewView& view,
                       PreviewRuns& runs);

}  // namespace korvane
