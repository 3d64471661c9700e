#include "optimizer/mPick.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane {
namespace {

constexpr int kPlanes = 6;
constexpr std::size_t kMaxCorners = 3 + kPlanes;

/// How far inside a clip plane a point lies: +x, -x, +y, -y, near, far.
float Inside(const ClipPoint& p, int plane) {
    switch (plane) {
        case 0:
            return p.w - p.x;
        case 1:
            return p.w + p.x;
        case 2:
            return p.w - p.y;
        case 3:
            return p.w + p.y;
        case 4:
            return p.w + p.z;
        default:
            return p.w - p.z;
    }
}

ClipPoint Between(const ClipPoint& in, const ClipPoint& out, float t) {
    return {in.x + t * (out.x - in.x), in.y + t * (out.y - in.y), in.z + t * (out.z - in.z),
            in.w + t * (out.w - in.w)};
}

struct ClipPolygon {
    std::array<ClipPoint, kMaxCorners> corners;
    std::size_t count = 0;

    void Add(const ClipPoint& p) {
        if (count < kMaxCorners) corners[count++] = p;
    }
};

ClipPolygon Clipped(const ClipPolygon& polygon, int plane) {
    ClipPolygon kept;
    ClipPoint previous = polygon.corners[polygon.count - 1];
    float before = Inside(previous, plane);
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const ClipPoint& corner = polygon.corners[i];
        const float now = Inside(corner, plane);
        if (before >= 0 && now < 0) kept.Add(Between(previous, corner, before / (before - now)));
        if (before < 0 && now >= 0) kept.Add(Between(corner, previous, now / (now - before)));
        if (now >= 0) kept.Add(corner);
        previous = corner;
        before = now;
    }
    return kept;
}

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

/// How far along `back` the eye leaves the brush it is inside of; negative when it never does.
double WayOut(const PickBrush& brush, const Vec3& eye, const Vec3& back) {
    double way = -1;
    for (const PickTriangle& triangle : brush.triangles) {
        const Point3& n = triangle.normal;
        const double slope = n.x * back.x + n.y * back.y + n.z * back.z;
        if (slope <= 0) continue;
        const double crossing = std::max(-triangle.Side(eye) / slope, 0.0);
        if (way < 0 || crossing < way) way = crossing;
    }
    return way <= 2 * brush.radius ? way : -1;  // an open brush may have no way out
}

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
        made.polygonIds.push_back(face.polygonId);
        if (!exists(face.a) || !exists(face.b) || !exists(face.c)) continue;
        PickTriangle t;
        const std::int32_t corners[] = {face.a, face.b, face.c};
        std::copy(std::begin(corners), std::end(corners), t.corners);
        t.face = index;
        const Vec3& p = made.points[t.corners[0]];
        const Vec3& q = made.points[t.corners[1]];
        const Vec3& r = made.points[t.corners[2]];
        const Point3 u{double{q.x} - p.x, double{q.y} - p.y, double{q.z} - p.z};
        const Point3 v{double{r.x} - p.x, double{r.y} - p.y, double{r.z} - p.z};
        t.normal = {u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
        t.offset = t.normal.x * p.x + t.normal.y * p.y + t.normal.z * p.z;
        if (t.normal.x != 0 || t.normal.y != 0 || t.normal.z != 0) made.triangles.push_back(t);
    }
    return made;
}

unsigned OutsideOf(const ClipPoint& p) {
    unsigned outside = 0;
    for (int plane = 0; plane < kPlanes; ++plane) {
        outside |= static_cast<unsigned>(Inside(p, plane) < 0) << plane;
    }
    return outside;
}

PixelHit HitInPixel(const ClipPoint& a, const ClipPoint& b, const ClipPoint& c, unsigned outside) {
    ClipPolygon polygon{{a, b, c}, 3};
    for (int plane = 0; plane < kPlanes; ++plane) {
        if ((outside >> plane & 1) == 0) continue;
        polygon = Clipped(polygon, plane);
        if (polygon.count < 3) return {};
    }
    PixelHit hit;
    for (std::size_t i = 0; i < polygon.count; ++i) {
        const PickDepth depth = DepthOf(polygon.corners[i]);
        if (depth < hit.depth) hit = {depth, polygon.corners[i].w};
    }
    return hit;
}

PixelHit HitTriangle(const StopView& view, const PickBrush& brush, const PickTriangle& triangle) {
    if (!(triangle.Side(view.eye) > 0)) return {};
    const ClipPoint a = ToClip(view, brush.points[triangle.corners[0]]);
    const ClipPoint b = ToClip(view, brush.points[triangle.corners[1]]);
    const ClipPoint c = ToClip(view, brush.points[triangle.corners[2]]);
    const unsigned outside[] = {OutsideOf(a), OutsideOf(b), OutsideOf(c)};
    if (outside[0] & outside[1] & outside[2]) return {};
    return HitInPixel(a, b, c, outside[0] | outside[1] | outside[2]);
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
