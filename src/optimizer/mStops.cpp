#include "optimizer/mStops.h"

#include <algorithm>
#include <cmath>

#include "scene/mNormals.h"

namespace korvane {
namespace {

constexpr double kPreciseFovHalf = 45.0 / 2 * 3.14159265358979323846 / 180;
constexpr ClipRange kFixedRange;
/// A range that has to change leaves the target this much room.
constexpr double kRangeRoom = 1.1;

enum class Swept { Pitch, Yaw };

struct Orbit {
    float pitch, yaw;
    Swept swept;
    bool included;
};

/// The sine and cosine that glRotatef takes of an angle in degrees.
struct TurnOf {
    float sine, cosine;

    explicit TurnOf(float degrees) {
        const auto radians = static_cast<float>(degrees * 3.14159265358979323846 / 180.0);
        sine = std::sin(radians);
        cosine = std::cos(radians);
    }
};

CameraStop StopAt(float pitch, float yaw) {
    CameraStop stop{pitch, yaw, {}, {}};
    const Matrix4 axes =
        MatrixMultiply(MatrixRotateY(DegToRad(yaw)), MatrixRotateX(DegToRad(pitch)));
    stop.back = {axes[2], axes[6], axes[10]};
    const TurnOf x(360 - pitch);
    const TurnOf y(360 - yaw);
    stop.rotation = {y.cosine,
                     0,
                     y.sine,  //
                     x.sine * y.sine,
                     x.cosine,
                     -(x.sine * y.cosine),  //
                     -(x.cosine * y.sine),
                     x.sine,
                     x.cosine * y.cosine};
    return stop;
}

/// The fixed range where it holds everything from `closest` to `farthest`. Otherwise one that ends
/// behind the farthest. Both ends move together: on the ratio of far to near hangs the resolution
/// of depth, and a near plane close to the target would cut away what stands before it.
ClipRange RangeFor(double closest, double farthest) {
    const bool fits = closest >= kFixedRange.zNear && farthest <= kFixedRange.zFar;
    const double scale = fits ? 1 : farthest * kRangeRoom / kFixedRange.zFar;
    if (!(scale > 0)) return kFixedRange;  // a target without size: nothing of it can be hit
    return {kFixedRange.zNear * scale, kFixedRange.zFar * scale};
}

}  // namespace

std::vector<CameraStop> CameraStops(const OptimizeOptions& options) {
    const Orbit orbits[] = {{0, 0, Swept::Yaw, true},
                            {0, 0, Swept::Pitch, true},
                            {0, 90, Swept::Pitch, options.zAxisPass},
                            {45, 0, Swept::Yaw, options.polarPasses},
                            {-45, 0, Swept::Yaw, options.polarPasses}};
    std::vector<CameraStop> stops;
    for (const Orbit& orbit : orbits) {
        if (!orbit.included) continue;
        for (float angle = 0; angle <= 360; angle += options.angleStep) {
            stops.push_back(orbit.swept == Swept::Yaw ? StopAt(orbit.pitch, angle)
                                                      : StopAt(angle, orbit.yaw));
        }
    }
    return stops;
}

OrbitTarget OrbitOf(const Brush& brush) {
    const Bounds bounds = BrushBounds(brush);
    const double diagonal = Distance(bounds.min, bounds.max);
    return {Midpoint(bounds.min, bounds.max), static_cast<float>(5 * diagonal), diagonal / 2};
}

StopCamera::StopCamera(const OptimizeOptions& options) {
    const double width = std::max(options.viewportWidth, 1);
    const double height = std::max(options.viewportHeight, 1);
    const double cotangent = std::cos(kPreciseFovHalf) / std::sin(kPreciseFovHalf);
    scaleX_ = static_cast<float>(width) * static_cast<float>(cotangent / (width / height));
    scaleY_ = static_cast<float>(height) * static_cast<float>(cotangent);
    pixelReach_ = std::hypot(1 / double{scaleX_}, 1 / double{scaleY_});
}

StopView StopCamera::ViewAt(const CameraStop& stop, const OrbitTarget& target) const {
    return View(stop, target, target.distance,
                RangeFor(target.distance - target.radius, target.distance + target.radius));
}

StopView StopCamera::ViewFrom(const CameraStop& stop, const OrbitTarget& target, double distance,
                              double gap) const {
    return View(stop, target, static_cast<float>(distance),
                RangeFor(gap, distance + target.radius));
}

StopView StopCamera::View(const CameraStop& stop, const OrbitTarget& target, float distance,
                          const ClipRange& range) const {
    StopView view;
    view.range = range;
    const auto moved = [distance](float centre, float back) {
        return centre + static_cast<float>(double{back} * distance);
    };
    view.eye = {moved(target.centre.x, stop.back.x), moved(target.centre.y, stop.back.y),
                moved(target.centre.z, stop.back.z)};
    const double depth = range.zFar - range.zNear;
    const auto scaleZ = static_cast<float>(-(range.zFar + range.zNear) / depth);
    const auto shiftZ = static_cast<float>(-2 * range.zNear * range.zFar / depth);
    const auto& r = stop.rotation;
    const auto column = [&](std::size_t c, float x, float y, float z, float w) {
        view.clip[4 * c] = scaleX_ * x;
        view.clip[4 * c + 1] = scaleY_ * y;
        view.clip[4 * c + 2] = scaleZ * z + shiftZ * w;
        view.clip[4 * c + 3] = -z;
    };
    for (std::size_t c = 0; c < 3; ++c) column(c, r[c], r[c + 3], r[c + 6], 0);
    const auto shift = [&](std::size_t row) {
        return r[row] * -view.eye.x + r[row + 1] * -view.eye.y + r[row + 2] * -view.eye.z;
    };
    column(3, shift(0), shift(3), shift(6), 1);
    return view;
}

}  // namespace korvane
