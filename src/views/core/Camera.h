// The eye of the 3D preview and how it moves: the first-person camera that keys and mouse fly.
#pragma once

#include "scene/mVector.h"

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

/// Moves the eye by a step in its own space: X to the right, Y up, Z backward. Up and down follow
/// its tilt.
void MoveCamera(Camera& camera, const Vec3& step);

/// Turns by that many degrees; an angle that leaves 0..360 comes in again at the other end.
void TurnLeft(Camera& camera, float degrees);
void TurnRight(Camera& camera, float degrees);
void LookUp(Camera& camera, float degrees);
void LookDown(Camera& camera, float degrees);

}  // namespace korvane
