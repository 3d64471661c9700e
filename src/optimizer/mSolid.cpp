#include "optimizer/mSolid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace korvane {
namespace {

using Corners = std::array<std::uint32_t, 3>;

/// Corners times planes beyond which a brush isn't looked into: twice those of the largest sphere.
constexpr std::size_t kMostTests = std::size_t{1} << 25;

/// A triangle with an area.
struct Side {
    Corners corners{};
    std::int32_t polygonId = 0;
    double area = 0;  ///< twice
    SolidPlane plane;
};

bool NamesExist(const Brush& brush) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    return std::all_of(brush.faces.begin(), brush.faces.end(), [count](const BrushFace& face) {
        const auto [low, high] = std::minmax({face.a, face.b, face.c});
        return low >= 0 && high < count;
    });
}

/// For each vertex the first one in its place.
std::vector<std::uint32_t> Welded(const Brush& brush) {
    const auto at = [&brush](std::uint32_t i) {
        const Vertex& v = brush.vertices[i];
        return std::array{v.x, v.y, v.z};
    };
    std::vector<std::uint32_t> order(brush.vertices.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return at(a) < at(b); });
    std::vector<std::uint32_t> welded(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool same = i > 0 && at(order[i]) == at(order[i - 1]);
        welded[order[i]] = same ? welded[order[i - 1]] : order[i];
    }
    return welded;
}

/// The triangles that are left when the corners in one place have become one.
std::vector<Side> SidesOf(const Brush& brush, const std::vector<std::uint32_t>& welded) {
    std::vector<Side> sides;
    sides.reserve(brush.faces.size());
    for (const BrushFace& face : brush.faces) {
        const auto corner = [&](std::int32_t v) { return welded[static_cast<std::size_t>(v)]; };
        Side side{{corner(face.a), corner(face.b), corner(face.c)}, face.polygonId, 0, {}};
        const auto [a, b, c] = side.corners;
        if (a == b || b == c || c == a) continue;
        const Point3 p = ToPoint3(brush.vertices[a].Position());
        const Point3 q = Along(ToPoint3(brush.vertices[b].Position()), p, -1);
        const Point3 r = Along(ToPoint3(brush.vertices[c].Position()), p, -1);
        const Point3 normal = Cross(q, r);
        side.area = std::sqrt(Dot(normal, normal));
        if (side.area > 0) side.plane.normal = Along({}, normal, 1 / side.area);
        side.plane.distance = Dot(side.plane.normal, p);
        sides.push_back(side);
    }
    return sides;
}

/// Whether every edge is shared by two sides, which run along it in opposite directions.
bool AreClosed(const std::vector<Side>& sides) {
    std::vector<std::uint64_t> ahead, back;
    for (const Side& side : sides) {
        for (std::size_t i = 0; i < 3; ++i) {
            const std::uint64_t a = side.corners[i];
            const std::uint64_t b = side.corners[(i + 1) % 3];
            ahead.push_back(a << 32 | b);
            back.push_back(b << 32 | a);
        }
    }
    std::sort(ahead.begin(), ahead.end());
    std::sort(back.begin(), back.end());
    return !ahead.empty() && ahead == back &&
           std::adjacent_find(ahead.begin(), ahead.end()) == ahead.end();
}

/// The planes of one polygon: that of its largest side if it is flat. Those of its slivers may be
/// off by a lot.
void AddPlanes(const Brush& brush, std::vector<Side>::const_iterator first,
               std::vector<Side>::const_iterator last, std::vector<SolidPlane>& planes) {
    const auto largest =
        std::max_element(first, last, [](const Side& a, const Side& b) { return a.area < b.area; });
    if (!(largest->area > 0)) return;
    const bool flat = std::all_of(first, last, [&](const Side& side) {
        return std::all_of(side.corners.begin(), side.corners.end(), [&](std::uint32_t corner) {
            const Point3 p = ToPoint3(brush.vertices[corner].Position());
            return std::fabs(largest->plane.Side(p)) <= kTouching;
        });
    });
    if (flat) {
        planes.push_back(largest->plane);
        return;
    }
    for (; first != last; ++first) {
        if (first->area > 0) planes.push_back(first->plane);
    }
}

/// A box around a few vertices that follow each other, which mostly lie side by side.
struct VertexBox {
    std::size_t first = 0;
    std::size_t last = 0;
    Point3 centre;
    Point3 half;

    /// How far the box reaches before the plane.
    double Reach(const SolidPlane& plane) const {
        const Point3& n = plane.normal;
        return plane.Side(centre) + std::fabs(n.x) * half.x + std::fabs(n.y) * half.y +
               std::fabs(n.z) * half.z;
    }
};

std::vector<VertexBox> BoxesOf(const std::vector<Point3>& points) {
    constexpr std::size_t kInBox = 16;
    std::vector<VertexBox> boxes;
    for (std::size_t first = 0; first < points.size(); first += kInBox) {
        VertexBox box{first, std::min(first + kInBox, points.size()), {}, {}};
        Point3 low = points[first];
        Point3 high = low;
        for (std::size_t i = first; i < box.last; ++i) {
            const Point3& p = points[i];
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
        box.centre = Along(Along({}, low, 0.5), high, 0.5);
        box.half = Along(high, box.centre, -1);
        boxes.push_back(box);
    }
    return boxes;
}

/// How far a corner lies before a plane, at most; stops looking beyond kTouching.
double LargestExcess(const Brush& brush, const std::vector<SolidPlane>& planes) {
    std::vector<Point3> points;
    for (const Vertex& vertex : brush.vertices) points.push_back(ToPoint3(vertex.Position()));
    const std::vector<VertexBox> boxes = BoxesOf(points);
    double excess = 0;
    for (const SolidPlane& plane : planes) {
        for (const VertexBox& box : boxes) {
            if (box.Reach(plane) <= excess) continue;
            for (std::size_t i = box.first; i < box.last; ++i) {
                excess = std::max(excess, plane.Side(points[i]));
            }
        }
        if (!(excess <= kTouching)) break;
    }
    return excess;
}

}  // namespace

ConvexSolid FindSolid(const Brush& brush, std::size_t maxPlanes) {
    if (!NamesExist(brush)) return {};
    std::vector<Side> sides = SidesOf(brush, Welded(brush));
    if (!AreClosed(sides)) return {};
    std::stable_sort(sides.begin(), sides.end(),
                     [](const Side& a, const Side& b) { return a.polygonId < b.polygonId; });
    ConvexSolid solid;
    for (auto first = sides.cbegin(); first != sides.cend();) {
        const auto last = std::find_if(first, sides.cend(), [first](const Side& side) {
            return side.polygonId != first->polygonId;
        });
        AddPlanes(brush, first, last, solid.planes);
        first = last;
    }
    if (solid.planes.size() < 4 || solid.planes.size() > maxPlanes) return {};
    if (solid.planes.size() * brush.vertices.size() > kMostTests) return {};
    solid.excess = LargestExcess(brush, solid.planes);
    if (!(solid.excess <= kTouching)) return {};
    return solid;
}

}  // namespace korvane
