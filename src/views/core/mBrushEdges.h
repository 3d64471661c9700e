// The edges of a brush as the 2D views draw them and the mouse picks them: pairs of vertices,
// derived from the brush's shape.
#pragma once

#include <cstdint>

#include "base/Rounding.h"
#include "scene/Scene.h"

namespace korvane {

/// Vertices in one ring of a box, or around the base of a cone. May announce more vertices than a
/// brush of foreign origin has.
inline std::int32_t RingSize(const Brush& brush) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    return brush.shape == Box ? RoundToInt(count * 0.5) : count - 1;
}

/// Calls visit(a, b) with two vertex indices for every edge: a box has its two rings and the edges
/// that join them, a cone its base and the edges to the apex, anything else two sides of each
/// triangle. Edges to vertices that do not exist are left out.
template <class Visit>
void ForEachEdge(const Brush& brush, Visit visit) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    const auto edge = [&](std::int32_t a, std::int32_t b) {
        if (a >= 0 && a < count && b >= 0 && b < count) visit(a, b);
    };
    const std::int32_t n = RingSize(brush);
    const auto next = [n](std::int32_t i) { return i + 1 == n ? 0 : i + 1; };
    switch (brush.shape) {
        case Box:
            for (std::int32_t i = 0; i < n; ++i) {
                edge(i, next(i));
                edge(n + i, n + next(i));
                edge(i, n + i);
            }
            break;
        case Cone:
            for (std::int32_t i = 0; i < n; ++i) {
                edge(i, next(i));
                edge(i, n);
            }
            break;
        default:
            for (const BrushFace& face : brush.faces) {
                edge(face.a, face.b);
                edge(face.a, face.c);
            }
    }
}

}  // namespace korvane
