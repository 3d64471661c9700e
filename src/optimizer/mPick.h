// Which face lies nearest under the pixel of a stop: the arithmetic of OpenGL's selection mode,
// clip planes, depths and ties included.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "optimizer/OptimizeEngine.h"
#include "optimizer/mSolid.h"
#include "optimizer/mStops.h"
#include "scene/mNormals.h"

namespace korvane {

/// A corner in clip coordinates.
struct ClipPoint {
    float x, y, z, w;
};

/// Part of a brush that can be hit: a triangle with an area.
struct PickTriangle {
    std::uint32_t corners[3]{};  ///< places in PickBrush::points
    std::int32_t face = 0;       ///< index in the brush
    Point3 normal;               ///< of unit length
    double offset = 0;           ///< normal . corner

    /// How far in front of the triangle's plane a point lies.
    double Side(const Vec3& p) const { return Dot(normal, ToPoint3(p)) - offset; }
};

/// A brush ready to be picked at.
struct PickBrush {
    std::vector<Vec3> points;
    std::vector<PickTriangle> triangles;  ///< in face order
    std::vector<std::size_t> polygonOf;   ///< by face: the number of its polygon
    std::size_t polygonCount = 0;
    Bounds bounds;
    Point3 centre;  ///< of the bounds
    double radius = 0;
    ConvexSolid solid;  ///< without planes unless the brush is one of few planes
};

/// Prepares a brush. Faces without an area, or of vertices that the brush lacks, are left out.
PickBrush MakePickBrush(const Brush& brush);

/// Prepares the brushes of a scene, from the one on that comes next in the list. False: the watch
/// ended the run; called again, it carries on.
bool MakePickBrushes(const Scene& scene, std::vector<PickBrush>& made, OptimizeWatch& watch);

/// A depth as a hit record holds it, 0 near to 2^32 - 1 far.
using PickDepth = std::int64_t;
inline constexpr PickDepth kMissed = std::numeric_limits<PickDepth>::max();

/// What the pixel meets of a triangle.
struct PixelHit {
    PickDepth depth = kMissed;  ///< smallest under the pixel
    float distance = 0;         ///< of that point from the eye, along the axis of the view
};

/// The point in clip coordinates, without its z.
inline ClipPoint ToClipXYW(const StopView& view, const Vec3& p) {
    const auto& m = view.clip;
    return {((p.x * m[0] + p.y * m[4]) + p.z * m[8]) + m[12],
            ((p.x * m[1] + p.y * m[5]) + p.z * m[9]) + m[13], 0,
            ((p.x * m[3] + p.y * m[7]) + p.z * m[11]) + m[15]};
}

/// What ToClipXYW left out; few points need it.
inline float ToClipZ(const StopView& view, const Vec3& p) {
    const auto& m = view.clip;
    return ((p.x * m[2] + p.y * m[6]) + p.z * m[10]) + m[14];
}

/// The clip planes in their order: +x, -x, +y, -y, near, far.
inline constexpr int kClipPlanes = 6;

/// How far inside of a clip plane the point lies; below 0 outside.
template <int Plane>
float InsideOf(const ClipPoint& p) {
    static_assert(Plane >= 0 && Plane < kClipPlanes);
    if constexpr (Plane == 0) return p.w - p.x;
    if constexpr (Plane == 1) return p.w + p.x;
    if constexpr (Plane == 2) return p.w - p.y;
    if constexpr (Plane == 3) return p.w + p.y;
    if constexpr (Plane == 4) return p.w + p.z;
    if constexpr (Plane == 5) return p.w - p.z;
}

/// The first four of the planes that a point lies outside of, as bits: it lies beside the pixel.
inline unsigned BesidePixel(const ClipPoint& p) {
    return unsigned{InsideOf<0>(p) < 0} | unsigned{InsideOf<1>(p) < 0} << 1 |
           unsigned{InsideOf<2>(p) < 0} << 2 | unsigned{InsideOf<3>(p) < 0} << 3;
}

/// The last two of them: it lies before or behind what can be seen.
inline unsigned OutOfRange(const ClipPoint& p) {
    return unsigned{InsideOf<4>(p) < 0} << 4 | unsigned{InsideOf<5>(p) < 0} << 5;
}

/// What the pixel meets of a triangle that is turned to the eye, given its corners without their z
/// and the planes that at least one of them lies beside.
PixelHit HitInPixel(const StopView& view, const PickBrush& brush, const PickTriangle& triangle,
                    const ClipPoint (&xyw)[3], unsigned beside);

/// The same for a triangle that may be turned away or lie beside the pixel.
PixelHit HitTriangle(const StopView& view, const PickBrush& brush, const PickTriangle& triangle);

/// The view of a stop while `other` stands by: a camera inside it moves out along its axis.
StopView ViewBeside(const StopCamera& camera, const CameraStop& stop, const OrbitTarget& target,
                    const PickBrush& other);

/// Whether no face of the brush is turned to the eye, which lies within its bounds.
bool IsInside(const PickBrush& brush, const Vec3& eye);

/// The face of the target that lies nearest under the pixel, before the other brush; -1: none, or
/// the other brush is nearer. Of equal depths the lower face wins, then the other brush.
/// `invisible` tells which faces of the target are not drawn; the other brush is drawn whole.
std::int32_t PickAtStop(const StopView& view, const PickBrush& target,
                        const std::vector<bool>& invisible, const PickBrush& other);

}  // namespace korvane
