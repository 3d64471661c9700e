#include "scene/mConvex.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "scene/mMerge.h"

namespace korvane {
namespace {

/// Bounds the work, which is done anew for each step of a drag.
constexpr std::size_t kMostTests = 60000;

/// How far a vertex may stand out over a face, in parts of the largest coordinate: rounding of
/// turned brushes, not more.
constexpr double kRounding = 2e-6;

struct Direction {
    double x, y, z;
};

Direction Side(const Vertex& from, const Vertex& to) {
    return {double(to.x) - from.x, double(to.y) - from.y, double(to.z) - from.z};
}

/// Of (A - C) x (B - C); its length is twice the area.
Direction Normal(const Brush& brush, const BrushFace& face) {
    const Direction p = Side(brush.vertices[face.c], brush.vertices[face.a]);
    const Direction q = Side(brush.vertices[face.c], brush.vertices[face.b]);
    return {p.y * q.z - p.z * q.y, p.z * q.x - p.x * q.z, p.x * q.y - p.y * q.x};
}

double Dot(const Direction& a, const Direction& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

bool NamesVertices(const Brush& brush) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    return std::ranges::all_of(brush.faces, [&](const BrushFace& face) {
        return std::min({face.a, face.b, face.c}) >= 0 &&
               std::max({face.a, face.b, face.c}) < count;
    });
}

/// The largest absolute coordinate; not finite where one is not.
double LargestCoordinate(const Brush& brush) {
    double largest = 0;
    for (const Vertex& v : brush.vertices) {
        const double size = std::abs(double(v.x)) + std::abs(double(v.y)) + std::abs(double(v.z));
        if (!std::isfinite(size)) return size;
        largest = std::max(largest, size);
    }
    return largest;
}

/// Whether each side is run along as often one way as the other.
bool IsClosed(const Brush& brush) {
    using Edge = std::pair<std::int32_t, std::int32_t>;
    std::vector<Edge> forward, backward;
    // Hashed: a file may put a cloud of vertices behind one face.
    const std::vector<std::int32_t> places = FirstOfPosition(brush.vertices);
    const auto add = [&](std::int32_t from, std::int32_t to) {
        const Edge edge = std::minmax(places[from], places[to]);
        if (edge.first == edge.second) return;
        (edge.first == places[from] ? forward : backward).push_back(edge);
    };
    for (const BrushFace& face : brush.faces) {
        add(face.a, face.b);
        add(face.b, face.c);
        add(face.c, face.a);
    }
    std::ranges::sort(forward);
    std::ranges::sort(backward);
    return forward == backward;
}

/// Whether every face has the whole brush behind it, some of it clearly: of a flat brush everything
/// would be behind every face, whatever its outline.
bool IsBehindItsFaces(const Brush& brush) {
    const double tolerance = kRounding * LargestCoordinate(brush);
    bool hasDepth = false;
    for (const BrushFace& face : brush.faces) {
        const Direction normal = Normal(brush, face);
        const double length = std::sqrt(Dot(normal, normal));
        for (const Vertex& vertex : brush.vertices) {
            const double ahead = Dot(normal, Side(brush.vertices[face.a], vertex));
            if (ahead > tolerance * length) return false;
            hasDepth |= ahead < -4 * tolerance * length;
        }
    }
    return hasDepth;
}

}  // namespace

bool IsConvexSolid(const Brush& brush) {
    if (brush.faces.size() * brush.vertices.size() > kMostTests) return false;
    return NamesVertices(brush) && std::isfinite(LargestCoordinate(brush)) &&
           IsBehindItsFaces(brush) && IsClosed(brush);
}

}  // namespace korvane
