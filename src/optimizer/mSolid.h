// Which brushes are convex solids, and by which planes they are bounded.
#pragma once

#include <vector>

#include "scene/Scene.h"

namespace korvane {

/// A point or direction in 64-bit floats.
struct Point3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline double Dot(const Point3& a, const Point3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Point3 Cross(const Point3& a, const Point3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline Point3 ToPoint3(const Vec3& p) {
    return {p.x, p.y, p.z};
}
/// The point at `t` times the direction from a point.
inline Point3 Along(const Point3& from, const Point3& direction, double t) {
    return {from.x + direction.x * t, from.y + direction.y * t, from.z + direction.z * t};
}

/// Everything closer than this counts as touching, in world units. Coordinates are single
/// precision, whose steps at the edge of the working range are a little smaller.
inline constexpr double kTouching = 1e-4;

/// The plane normal . p = distance.
struct SolidPlane {
    Point3 normal;  ///< of unit length, outward
    double distance = 0;

    double Side(const Point3& p) const { return Dot(normal, p) - distance; }
};

/// What lies behind all of its planes; without planes: no solid.
struct ConvexSolid {
    std::vector<SolidPlane> planes;
    double excess = 0;  ///< how far a corner of the brush lies before one of the planes, at most
};

/// The solid of a brush whose faces close it, look outward and bulge inward nowhere by more than
/// kTouching; else one without planes. A polygon gives one plane if it is flat. With more planes
/// than `maxPlanes`, or more planes and corners than any brush that is built here, the brush is not
/// looked into.
ConvexSolid FindSolid(const Brush& brush, std::size_t maxPlanes);

}  // namespace korvane
