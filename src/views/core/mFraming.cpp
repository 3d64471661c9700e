#include "views/core/mFraming.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr float kPitch = -30;  // degrees
constexpr float kYaw = 30;
constexpr double kFilled = 0.92;  // share of the picture that the object may fill
constexpr double kNearest = 0.2;  // world units, well before the near plane

struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// Turns points between the world and a camera at the origin that looks along its -Z.
class CameraAxes {
  public:
    CameraAxes(double pitch, double yaw)
        : cosPitch_(std::cos(DegToRad(pitch))),
          sinPitch_(std::sin(DegToRad(pitch))),
          cosYaw_(std::cos(DegToRad(yaw))),
          sinYaw_(std::sin(DegToRad(yaw))) {}

    Point FromWorld(const Vec3& p) const {
        const double x = p.x * cosYaw_ - p.z * sinYaw_;
        const double z = p.x * sinYaw_ + p.z * cosYaw_;
        return {x, p.y * cosPitch_ + z * sinPitch_, z * cosPitch_ - p.y * sinPitch_};
    }

    Point ToWorld(const Point& p) const {
        const double z = p.y * sinPitch_ + p.z * cosPitch_;
        return {p.x * cosYaw_ + z * sinYaw_, p.y * cosPitch_ - p.z * sinPitch_,
                z * cosYaw_ - p.x * sinYaw_};
    }

  private:
    double cosPitch_, sinPitch_, cosYaw_, sinYaw_;
};

/// How far the points reach against the four sides of a frustum with its tip at the origin. Moving
/// the tip back by d moves every side out by d times its slope, so the sums tell where it fits.
struct Reach {
    static constexpr double kNothing = -std::numeric_limits<double>::infinity();

    double right = kNothing, left = kNothing, up = kNothing, down = kNothing;
    double nearest = kNothing;
    double farthest = -kNothing;

    void Add(const Point& p, double slopeX, double slopeY) {
        right = std::max(right, p.x + p.z * slopeX);
        left = std::max(left, -p.x + p.z * slopeX);
        up = std::max(up, p.y + p.z * slopeY);
        down = std::max(down, -p.y + p.z * slopeY);
        nearest = std::max(nearest, p.z);
        farthest = std::min(farthest, p.z);
    }

    Point Tip(double slopeX, double slopeY) const {
        const double z = std::max(
            {(right + left) / (2 * slopeX), (up + down) / (2 * slopeY), nearest + kNearest});
        return {(right - left) / 2, (up - down) / 2, z};
    }
};

bool IsFinite(const Vec3& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

}  // namespace

Framing FrameObject(const Scene& scene, int width, int height, double fieldOfView) {
    const CameraAxes axes(kPitch, kYaw);
    const double slopeY = std::tan(DegToRad(fieldOfView / 2)) * kFilled;
    const double slopeX = slopeY * width / height;
    Reach reach;
    for (const Brush& brush : scene.brushes) {
        for (const Vertex& vertex : brush.vertices) {
            const Vec3 p = vertex.Position();
            if (IsFinite(p)) reach.Add(axes.FromWorld(p), slopeX, slopeY);
        }
    }
    if (reach.nearest < reach.farthest) return {};
    const Point tip = reach.Tip(slopeX, slopeY);
    const Point eye = axes.ToWorld(tip);
    return {{float(eye.x), float(eye.y), float(eye.z), kPitch, kYaw, 0}, tip.z - reach.farthest};
}

namespace {

/// Pixels a unit at which `extent` units leave a margin in `pixels`.
double LargestZoom(double extent, std::int32_t pixels) {
    constexpr std::int32_t kMargin = 40;  // room for the rulers as well
    const std::int32_t room = pixels - 2 * std::min(kMargin, pixels / 4);
    return room / extent;  // infinite for an extent of 0
}

}  // namespace

void FrameBounds(ViewState& state, int view, const Bounds& bounds) {
    const ViewAxes& axes = AxesOf(view);
    const auto extent = [&](float Vec3::*axis) {
        return double{bounds.max.*axis} - bounds.min.*axis;
    };
    const double zoom = std::min(LargestZoom(extent(axes.horizontal), state.width),
                                 LargestZoom(extent(axes.vertical), state.height));
    ResetView(state);
    if (std::isfinite(zoom)) state.zoom = std::clamp(FloorToInt(zoom), 1, kMaxZoom);
    const ScreenPoint middle = WorldToScreen(state, view, Midpoint(bounds.min, bounds.max));
    state.panX = RoundToInt(state.originX - middle.x);
    state.panY = RoundToInt(state.originY - middle.y);
    UpdateViewOrigin(state);
}

}  // namespace korvane
