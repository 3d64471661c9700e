// The eye of the 3D preview.
#pragma once

namespace korvane {

/// Position in world units, angles in degrees: positive pitch looks up, positive yaw turns left.
struct Camera {
    float x = 0;
    float y = 3;
    float z = 5;
    float pitch = -30;
    float yaw = 0;
    float roll = 0;  ///< kept at 0
};

}  // namespace korvane
