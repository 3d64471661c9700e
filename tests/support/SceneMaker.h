// A scene with a small texture library, and short ways of building brushes in it.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "scene/mBrush.h"

namespace korvane {

/// Texture 1 is 256 x 128 pixels, texture 2 is 512 x 512; texture 1 is selected.
struct SceneMaker {
    Scene scene;
    TextureLibrary library;
    float TextureScale = 4.0F;

    SceneMaker() {
        library.AddTexture("brick.jpg", 256, 128);
        library.AddTexture("sand.tga", 512, 512);
        library.SelectTexture(1);
    }

    TextureSpace Space() const { return {library, TextureScale}; }

    /// Builds a brush and returns it; the reference holds until the next one.
    Brush& Create(BrushShape shape, std::int32_t sides, const Vec3& p1, const Vec3& p2) {
        scene.createShape = shape;
        const std::int32_t index = CreateBrush(scene, p1, p2, sides, Space());
        return scene.brushes.at(static_cast<std::size_t>(index));
    }

    /// The same for a selected box with four sides.
    Brush& SelectedBox(const Vec3& min, const Vec3& max) {
        Brush& brush = Create(Box, 4, min, max);
        brush.selected = true;
        return brush;
    }
};

inline Vec3 At(const Brush& brush, std::int32_t vertex) {
    return brush.vertices.at(static_cast<std::size_t>(vertex)).Position();
}

/// Which brushes, faces or vertices of a list are selected, as "1" and "0".
template <class Record>
std::string SelectedFlags(const std::vector<Record>& records) {
    std::string flags;
    for (const Record& record : records) flags += record.selected ? '1' : '0';
    return flags;
}

inline double Dot(const Vec3& a, const Vec3& b) {
    return double{a.x} * b.x + double{a.y} * b.y + double{a.z} * b.z;
}

/// Whether two corners of a face are one vertex, as at the poles of a sphere.
inline bool IsLine(const BrushFace& face) {
    return face.a == face.b || face.b == face.c || face.c == face.a;
}

/// Whether every directed edge of the faces that are no mere lines occurs once, and so does its
/// opposite.
inline bool IsClosed(const Brush& brush) {
    std::vector<std::pair<std::int32_t, std::int32_t>> edges;
    for (const BrushFace& face : brush.faces) {
        if (IsLine(face)) continue;
        edges.insert(edges.end(), {{face.a, face.b}, {face.b, face.c}, {face.c, face.a}});
    }
    std::ranges::sort(edges);
    return std::ranges::adjacent_find(edges) == edges.end() &&
           std::ranges::all_of(edges, [&](const auto& edge) {
               return std::ranges::binary_search(edges, std::pair(edge.second, edge.first));
           });
}

/// Whether all faces of a convex brush point away from its middle (+1) or towards it (-1); those
/// that are lines have no direction.
inline bool AllPoint(const Brush& brush, int side) {
    double x = 0, y = 0, z = 0;
    for (const Vertex& v : brush.vertices) x += v.x, y += v.y, z += v.z;
    const auto n = static_cast<double>(brush.vertices.size());
    const Vec3 middle{static_cast<float>(x / n), static_cast<float>(y / n),
                      static_cast<float>(z / n)};
    return std::ranges::all_of(brush.faces, [&](const BrushFace& face) {
        if (IsLine(face)) return face.normal == Vec3{0, 0, 0};
        return Dot(Difference(middle, At(brush, face.a)), face.normal) * side > 0;
    });
}

}  // namespace korvane
