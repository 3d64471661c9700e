// Which face lies nearest under the pixel of a stop: the arithmetic of OpenGL's selection mode,
// clip planes, depths and ties included.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "optimizer/mStops.h"
#include "scene/mNormals.h"

namespace korvane {

/// A corner in clip coordinates.
struct ClipPoint {
    float x, y, z, w;
};

/// A point or direction in 64-bit floats.
struct Point3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// Part of a brush that can be hit: a triangle with an area.
struct PickTriangle {
    std::uint32_t corners[3]{};  ///< places in PickBrush::points
    std::int32_t face = 0;       ///< index in the brush
    Point3 normal;               ///< of no particular length
    double offset = 0;           ///< normal . corner

    /// Above 0 in front of the triangle, not in units of length.
    double Side(const Vec3& p) const {
        return normal.x * p.x + normal.y * p.y + normal.z * p.z - offset;
    }
};

/// A brush ready to be picked at.
struct PickBrush {
    std::vector<Vec3> points;
    std::vector<PickTriangle> triangles;   ///< in face order
    std::vector<std::int32_t> polygonIds;  ///< by face
    Bounds bounds;
    Point3 centre;  ///< of the bounds
    double radius = 0;
};

/// Prepares a brush. Faces without an area, or of vertices that the brush lacks, are left out.
PickBrush MakePickBrush(const Brush& brush);

/// A depth as a hit record holds it, 0 near to 2^32 - 1 far.
using PickDepth = std::int64_t;
inline constexpr PickDepth kMissed = std::numeric_limits<PickDepth>::max();

/// What the pixel meets of a triangle.
struct PixelHit {
    PickDepth depth = kMissed;  ///< smallest under the pixel
    float distance = 0;         ///< of that point from the eye, along the axis of the view
};

/// The point in clip coordinates.
inline ClipPoint ToClip(const StopView& view, const Vec3& p) {
    const auto& m = view.clip;
    return {((p.x * m[0] + p.y * m[4]) + p.z * m[8]) + m[12],
            ((p.x * m[1] + p.y * m[5]) + p.z * m[9]) + m[13],
            ((p.x * m[2] + p.y * m[6]) + p.z * m[10]) + m[14],
            ((p.x * m[3] + p.y * m[7]) + p.z * m[11]) + m[15]};
}

/// The clip planes that a point lies outside of, as bits.
unsigned OutsideOf(const ClipPoint& p);

/// What the pixel meets of a triangle that is turned to the eye. `outside` holds the planes that at
/// least one corner lies outside of; that all corners lie outside of one has been ruled out.
PixelHit HitInPixel(const ClipPoint& a, const ClipPoint& b, const ClipPoint& c, unsigned outside);

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
