// Where the optimizer looks from: the orbits round a target, and the view of each of their stops
// through the one pixel at the centre, in the single precision and order of operations of OpenGL.
#pragma once

#include <array>
#include <vector>

#include "scene/Scene.h"

namespace korvane {

/// How a sampled run looks at each brush.
struct OptimizeOptions {
    float angleStep = 5;      ///< degrees between stops, above 0
    bool zAxisPass = true;    ///< the orbit over the left and right side
    bool polarPasses = true;  ///< the two orbits at 45 degrees above and below
    int viewportWidth = 800;  ///< pixels; sets the size of the pixel at the centre
    int viewportHeight = 600;
};

/// The angle steps of the details 0 "Extremely High" to 4 "Extremely Low", in degrees.
inline constexpr std::array<float, 5> kDetailSteps = {5, 10, 20, 30, 45};

/// A direction to look from; the same for every target.
struct CameraStop {
    float pitch = 0;  ///< degrees, as are the angles of Camera
    float yaw = 0;
    Vec3 back;                       ///< away from what is looked at, of unit length
    std::array<float, 9> rotation{}; /**< world to eye, row-major, as glRotatef builds it */
};

/// All stops, orbit by orbit. Both 0 and 360 degrees are stops of an orbit.
std::vector<CameraStop> CameraStops(const OptimizeOptions& options);

/// What the camera circles.
struct OrbitTarget {
    Vec3 centre;         ///< of the bounds
    float distance = 0;  ///< of the camera from the centre: five diagonals of the bounds
    double radius = 0;   ///< half the diagonal
};

/// The orbit of a brush.
OrbitTarget OrbitOf(const Brush& brush);

/// The distances from the eye between which things are seen.
struct ClipRange {
    double zNear = 0.1;
    double zFar = 100;
};

/// The camera of one stop, and the pixel it looks through.
struct StopView {
    Vec3 eye;
    ClipRange range;
    /// Clip coordinates of a world point: column-major, as OpenGL stores them. The pixel fills the
    /// square from -w to w.
    std::array<float, 16> clip{};
};

/// Turns stops into views of a viewport.
class StopCamera {
  public:
    explicit StopCamera(const OptimizeOptions& options);

    /// The view of the target's centre from a stop of its orbit.
    StopView ViewAt(const CameraStop& stop, const OrbitTarget& target) const;

    /// The view from further out: `distance` from the centre, beyond something that begins `gap`
    /// before the camera.
    StopView ViewFrom(const CameraStop& stop, const OrbitTarget& target, double distance,
                      double gap) const;

    /// How far the pixel reaches from the axis of the view at a distance of 1.
    double PixelReach() const { return pixelReach_; }

  private:
    StopView View(const CameraStop& stop, const OrbitTarget& target, float distance,
                  const ClipRange& range) const;

    float scaleX_ = 0;
    float scaleY_ = 0;
    double pixelReach_ = 0;
};

}  // namespace korvane
