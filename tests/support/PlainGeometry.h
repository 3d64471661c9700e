// The merge of equal vertices and the shading normals as they are defined: every record compared
// with every other. Slow; the references that the fast versions have to equal bit for bit.
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "scene/Scene.h"
#include "scene/mNormals.h"

namespace korvane::plain {

/// What MergeEqualVertices does.
inline void MergeEqualVertices(Brush& brush) {
    const std::size_t count = brush.vertices.size();
    std::vector<std::int32_t> map(count);
    std::vector<char> merged(count, 0);
    for (std::size_t v = 0; v < count; ++v) map[v] = static_cast<std::int32_t>(v);
    for (std::size_t v = 0; v < count; ++v) {
        if (merged[v] != 0) continue;
        for (std::size_t w = v + 1; w < count; ++w) {
            if (merged[w] != 0) continue;
            if (!(brush.vertices[w].Position() == brush.vertices[v].Position())) continue;
            map[w] = static_cast<std::int32_t>(v);
            merged[w] = 1;
        }
    }
    for (BrushFace& face : brush.faces) {
        face.a = map[static_cast<std::size_t>(face.a)];
        face.b = map[static_cast<std::size_t>(face.b)];
        face.c = map[static_cast<std::size_t>(face.c)];
    }
}

/// Undoes the merge of a sphere as built: face k was made of vertices 3k, 3k + 1 and 3k + 2.
inline void UnmergeSphere(Brush& brush) {
    std::int32_t next = 0;
    for (BrushFace& face : brush.faces) {
        face.a = next++;
        face.b = next++;
        face.c = next++;
    }
}

inline Vec3 Average(const std::vector<Vec3>& normals) {
    double x = 0;
    double y = 0;
    double z = 0;
    for (const Vec3& n : normals) {
        x += n.x;
        y += n.y;
        z += n.z;
    }
    const auto count = static_cast<double>(normals.size());
    return {static_cast<float>(x / count), static_cast<float>(y / count),
            static_cast<float>(z / count)};
}

/// What UpdateBrushNormals does, but for the revision.
inline void UpdateBrushNormals(Brush& brush) {
    const auto at = [&](std::int32_t v) {
        return brush.vertices[static_cast<std::size_t>(v)].Position();
    };
    for (BrushFace& face : brush.faces) {
        face.normal = FaceNormal(at(face.a), at(face.b), at(face.c));
        face.cornerNormals.fill(face.normal);
    }
    std::array<std::vector<Vec3>, 3> lists;
    for (BrushFace& f : brush.faces) {
        if (f.polygonId <= 2) continue;
        for (std::vector<Vec3>& list : lists) list.assign(1, f.normal);
        const std::int32_t corners[3] = {f.a, f.b, f.c};
        for (const BrushFace& g : brush.faces) {
            if (&g == &f || g.polygonId <= 2) continue;
            for (std::size_t i = 0; i < 3; ++i) {
                const std::int32_t v = corners[i];
                if (g.a != v && g.b != v && g.c != v) continue;
                std::vector<Vec3>& list = lists[i];
                const bool known = std::find(list.begin(), list.end(), g.normal) != list.end();
                if (!known) list.push_back(g.normal);
            }
        }
        for (std::size_t i = 0; i < 3; ++i) f.cornerNormals[i] = Average(lists[i]);
    }
}

}  // namespace korvane::plain
