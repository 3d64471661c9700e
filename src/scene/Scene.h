// The records of the scene that is edited, and the primitive operations that grow and shrink it.
//
// A brush owns its vertices and its triangles; nothing is shared between brushes, there is no scene
// graph and no edge record. An edge is the pair of vertices of a face side.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Flag16.h"
#include "scene/mVector.h"

namespace korvane {

enum EditMode : std::int16_t { BrushMove = 0, FaceEdit = 1, EdgeMove = 2, VertexMove = 3 };
enum BrushShape : std::int16_t { Box = 0, Cone = 1, Sphere = 2 };

/// A corner of a brush.
struct Vertex {
    Flag16 selected;
    float x = 0;  ///< world units
    float y = 0;
    float z = 0;

    Vec3 Position() const { return {x, y, z}; }
    void MoveTo(const Vec3& p) {
        x = p.x;
        y = p.y;
        z = p.z;
    }
};

/// Texture coordinates of one corner.
struct TexCoord {
    float u = 0;
    float v = 0;

    friend bool operator==(const TexCoord&, const TexCoord&) = default;
};

/// One triangle. The triangles of a brush that share a polygonId form one polygon.
struct BrushFace {
    Flag16 selected;
    std::int32_t a = 0;  ///< vertex indices, counter-clockwise seen from outside the solid
    std::int32_t b = 0;
    std::int32_t c = 0;
    std::array<TexCoord, 3> uv{};  ///< of corners a, b, c; see mTextureCoords.h
    Vec3 normal{0, 1, 0};          ///< unit normal of (A - C) x (B - C); see mNormals.h
    std::array<Vec3, 3>
        cornerNormals{};       ///< shading normals, used instead of normal when smooth is 1
    std::int32_t texture = 0;  ///< index into the texture library; 0 is "NO Material"
    Flag16 localCoords;  ///< texture stretched over the brush instead of laid out in the world
    float offsetX = 0;   ///< texture offset, in texture widths
    float offsetY = 0;
    float repeatX = 1;  ///< texture repeat over the brush
    float repeatY = 1;
    Flag16 flipped;
    Flag16 mirrored;
    std::int32_t rotation = 0;  ///< whole degrees; 0 or less is not rotated
    std::int32_t polygonId = 0;
    std::int32_t transparency = 0;  ///< 0 opaque; above 0 the face counts as transparent
    Flag16 invisible;               ///< left out of the preview unless invisible faces are shown
    std::uint8_t smooth = 0;        ///< 1: shaded with cornerNormals; 0: flat
};

/// A closed solid.
struct Brush {
    Flag16 selected;
    std::int16_t shape =
        Box;            ///< BrushShape; a box holds two rings of equal size, the top one first
    std::string name;   ///< UTF-8
    std::string group;  ///< UTF-8; empty: not grouped
    std::vector<Vertex> vertices;
    std::vector<BrushFace> faces;

    /// Changes whenever anything a view derives from this brush may have changed, selection of its
    /// faces and vertices included, and is never the same for two different contents in one run; a
    /// copy keeps it. A view may keep what it derived as long as the stamp stays. The brush's own
    /// selected flag, name and group do not count: read them directly. See Touch.
    std::uint64_t revision = 0;
};

/// Everything that belongs to the object being edited and to the way of editing it.
struct Scene {
    std::vector<Brush> brushes;    ///< in creation order
    std::vector<Brush> clipboard;  ///< copied brushes
    std::int16_t editMode = BrushMove;
    std::int16_t createShape = Box;       ///< shape of the next brush
    std::int16_t sideCount = 4;           ///< sides of the next brush, 3..64
    std::int16_t arbitrarySideCount = 9;  ///< what the arbitrary-size dialog shows
    Vec3 marker;                          ///< RotationMarker
    Flag16 markerShown;  ///< true while a dialog that turns about the marker is open

    std::int32_t brushCount() const { return static_cast<std::int32_t>(brushes.size()); }
    std::int32_t clipboardCount() const { return static_cast<std::int32_t>(clipboard.size()); }
};

/// Gives the brush a fresh revision; every operation that changes a brush ends with it. AddVertex
/// and AddFace leave that to UpdateBrushNormals, which has to follow them; who writes fields
/// directly calls it.
void Touch(Brush& brush);

/// Removes all brushes and empties the clipboard.
void ClearScene(Scene& scene);

/// The default name of the brush at an index: "Brush-0007", never cut.
std::string DefaultBrushName(std::int32_t index);

/// Appends an empty brush; an empty name becomes the default name of its index. Returns the index.
std::int32_t AddBrush(Scene& scene, std::string name, std::string group);

/// Appends a vertex and returns its index. With reuse, a vertex of exactly the same position is
/// returned instead of adding one (the first such).
std::int32_t AddVertex(Brush& brush, const Vec3& point, bool reuse);

/// Appends a face with default settings and returns its index. Normal and texture coordinates are
/// left to UpdateBrushNormals and UpdateTextureCoords.
std::int32_t AddFace(Brush& brush, std::int32_t a, std::int32_t b, std::int32_t c,
                     std::int32_t polygonId);

/// Removes one brush and renumbers the names of all.
void DeleteBrush(Scene& scene, std::int32_t index);

/// Gives every brush the default name of its index.
void RenumberBrushNames(Scene& scene);

}  // namespace korvane
