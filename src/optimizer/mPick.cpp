#include "optimizer/mPick.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {
namespace {

constexpr std::size_t kMaxCorners = 3 + kClipPlanes;

ClipPoint Between(const ClipPoint& in, const ClipPoint& out, float t) {
    return {in.x + t * (out.x - in.x), in.y + t * (out.y - in.y), in.z + t * (out.z - in.z),
            in.w + t * (out.w - in.w)};
}

/// Corners of a polygon while it is clipped; convex, so that a plane adds one at most.
struct ClipPolygon {
    std::array<ClipPoint, kMaxCorners> corners;
    std::size_t count;
};

/// Writes what lies inside of the plane to `kept`.
template <int Plane>
void Clip(const ClipPolygon& polygon, ClipPolygon& kept) {
    std::size_t count = 0;
    const auto add = [&](const ClipPoint& p) {
        if (count < kMaxCorners) kept.corners[count++] = p;
    };
    const ClipPoint* previous = &polygon.corners[polygon.count - 1];
    float before = InsideOf<Plane>(*previous);
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const ClipPoint* corner = &polygon.corners[i];
        const float now = InsideOf<Plane>(*corner);
        if (before >= 0 && now < 0) add(Between(*previous, *corner, before / (before - now)));
        if (before < 0 && now >= 0) add(Between(*corner, *previous, now / (now - before)));
        if (now >= 0) add(*corner);
        previous = corner;
        before = now;
    }
    kept.count = count;
}

using ClipBy = void (*)(const ClipPolygon&, ClipPolygon&);
constexpr ClipBy kClipBy[kClipPlanes] = {Clip<0>, Clip<1>, Clip<2>, Clip<3>, Clip<4>, Clip<5>};

PickDepth DepthOf(const ClipPoint& p) {
    const float depth = p.z * (1 / p.w) * 0.5F + 0.5F;
    if (!(depth > 0)) return 0;
    return std::min(static_cast<PickDepth>(std::min(depth, 1.0F) * 4294967296.0F),
                    PickDepth{0xFFFFFFFF});
}

bool IsWithin(const Bounds& bounds, const Vec3& p) {
    return p.x >= bounds.min.x && p.x <= bounds.max.x && p.y >= bounds.min.y &&
           p.y <= bounds.max.y && p.z >= bounds.min.z && p.z <= bounds.max.z;
}

/// Numbers the polygons in the order of their ids.
void NumberPolygons(const Brush& brush, PickBrush& made) {
    std::vector<std::int32_t> ids;
    for (const BrushFace& face : brush.faces) ids.push_back(face.polygonId);
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    made.polygonCount = ids.size();
    for (const BrushFace& face : brush.faces) {
        const auto id = std::lower_bound(ids.begin(), ids.end(), face.polygonId);
        made.polygonOf.push_back(static_cast<std::size_t>(id - ids.begin()));
    }
}

/// How far along `back` the eye leaves the brush it is inside of; negative when it never does.
double WayOut(const PickBrush& brush, const Vec3& eye, const Vec3& back) {
    double way = -1;
    for (const PickTriangle& triangle : brush.triangles) {
        const Point3& n = triangle.normal;
        const double slope = Dot(n, ToPoint3(back));
        if (slope <= 0) continue;
        const double crossing = std::max(-triangle.Side(eye) / slope, 0.0);
        if (way < 0 || crossing < way) way = crossing;
    }
    return way <= 2 * brush.radius ? way : -1;  // an open brush may have no way out
}

/// More planes take longer than the triangles of the brush that come near a line of sight.
constexpr std::size_t kMaxSolidPlanes = 32;

/// A camera that has moved out stands this much further from the target than where it left.
constexpr double kMoveOut = 1.1;

}  // namespace

PickBrush MakePickBrush(const Brush& brush) {
    PickBrush made;
    made.bounds = BrushBounds(brush);
    const Bounds& b = made.bounds;
    made.centre = {(double{b.min.x} + b.max.x) / 2, (double{b.min.y} + b.max.y) / 2,
                   (double{b.min.z} + b.max.z) / 2};
    made.radius = Distance(b.min, b.max) / 2;
    for (const Vertex& vertex : brush.vertices) made.points.push_back(vertex.Position());
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    const auto exists = [count](std::int32_t v) { return v >= 0 && v < count; };
    std::int32_t index = -1;
    for (const BrushFace& face : brush.faces) {
        ++index;
        if (!exists(face.a) || !exists(face.b) || !exists(face.c)) continue;
        PickTriangle t;
        const std::int32_t corners[] = {face.a, face.b, face.c};
        std::copy(std::begin(corners), std::end(corners), t.corners);
        t.face = index;
        const Vec3& p = made.points[t.corners[0]];
        const Vec3& q = made.points[t.corners[1]];
        const Vec3& r = made.points[t.corners[2]];
        const Point3 u = Along(ToPoint3(q), ToPoint3(p), -1);
        const Point3 v = Along(ToPoint3(r), ToPoint3(p), -1);
        const Point3 normal = Cross(u, v);
        const double length = std::sqrt(Dot(normal, normal));
        if (!(length > 0)) continue;
        t.normal = Along({}, normal, 1 / length);
        t.offset = Dot(t.normal, ToPoint3(p));
        made.triangles.push_back(t);
    }
    NumberPolygons(brush, made);
    if (made.polygonCount <= kMaxSolidPlanes) made.solid = FindSolid(brush, kMaxSolidPlanes);
    return made;
}

bool MakePickBrushes(const Scene& scene, std::vector<PickBrush>& made, OptimizeWatch& watch) {
    constexpr std::size_t kWorkOfFace = 20;  // in triangles that are looked at
    while (made.size() < scene.brushes.size()) {
        made.push_back(MakePickBrush(scene.brushes[made.size()]));
        if (!watch.GoOn(kWorkOfFace * made.back().triangles.size())) return false;
    }
    return true;
}

PixelHit HitInPixel(const StopView& view, const PickBrush& brush, const PickTriangle& triangle,
                    const ClipPoint (&xyw)[3], unsigned beside) {
    ClipPolygon polygons[2];
    std::size_t now = 0;
    unsigned outside = beside;
    for (std::size_t i = 0; i < 3; ++i) {
        ClipPoint& corner = polygons[0].corners[i];
        corner = xyw[i];
        corner.z = ToClipZ(view, brush.points[triangle.corners[i]]);
        outside |= OutOfRange(corner);
    }
    polygons[0].count = 3;
    for (int plane = 0; plane < kClipPlanes; ++plane) {
        if ((outside >> plane & 1) == 0) continue;
        kClipBy[plane](polygons[now], polygons[1 - now]);
        now = 1 - now;
        if (polygons[now].count < 3) return {};
    }
    const ClipPolygon& polygon = polygons[now];
    PixelHit hit;
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const PickDepth depth = DepthOf(polygon.corners[i]);
        if (depth < hit.depth) hit = {depth, polygon.corners[i].w};
    }
    return hit;
}

PixelHit HitTriangle(const StopView& view, const PickBrush& brush, const PickTriangle& triangle) {
    if (!(triangle.Side(view.eye) > 0)) return {};
    const auto corner = [&](std::size_t i) {
        return ToClipXYW(view, brush.points[triangle.corners[i]]);
    };
    const ClipPoint xyw[] = {corner(0), corner(1), corner(2)};
    const unsigned beside[] = {BesidePixel(xyw[0]), BesidePixel(xyw[1]), BesidePixel(xyw[2])};
    if (beside[0] & beside[1] & beside[2]) return {};
    return HitInPixel(view, brush, triangle, xyw, beside[0] | beside[1] | beside[2]);
}

bool IsInside(const PickBrush& brush, const Vec3& eye) {
    return IsWithin(brush.bounds, eye) && !brush.triangles.empty() &&
           std::none_of(brush.triangles.begin(), brush.triangles.end(),
                        [&](const PickTriangle& t) { return t.Side(eye) > 0; });
}

StopView ViewBeside(const StopCamera& camera, const CameraStop& stop, const OrbitTarget& target,
                    const PickBrush& other) {
    const StopView view = camera.ViewAt(stop, target);
    if (!IsInside(other, view.eye)) return view;
    const double way = WayOut(other, view.eye, stop.back);
    if (way < 0) return view;
    const double surface = target.distance + way;
    const double distance = surface * kMoveOut;
    return camera.ViewFrom(stop, target, distance, (distance - surface) / 2);
}

std::int32_t PickAtStop(const StopView& view, const PickBrush& target,
                        const std::vector<bool>& invisible, const PickBrush& other) {
    PickDepth nearest = kMissed;
    std::int32_t face = -1;
    for (const PickTriangle& triangle : target.triangles) {
        if (invisible[static_cast<std::size_t>(triangle.face)]) continue;
        const PickDepth depth = HitTriangle(view, target, triangle).depth;
        if (depth >= nearest) continue;
        nearest = depth;
        face = triangle.face;
    }
    for (const PickTriangle& triangle : other.triangles) {
        if (HitTriangle(view, other, triangle).depth < nearest) return -1;
    }
    return face;
}

}  // namespace korvane
