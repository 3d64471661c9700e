#include "views/core/Camera.h"

namespace korvane {
namespace {

constexpr float kFullTurn = 360;

void Raise(float& angle, float degrees) {
    angle += degrees;
    if (angle > kFullTurn) angle -= kFullTurn;
}

void Lower(float& angle, float degrees) {
    angle -= degrees;
    if (angle < 0) angle += kFullTurn;
}

}  // namespace

void MoveCamera(Camera& camera, const Vec3& step) {
    const Matrix4 toWorld =
        MatrixMultiply(MatrixRotateY(DegToRad(camera.yaw)), MatrixRotateX(DegToRad(camera.pitch)));
    const Vec3 moved = TransformPoint(toWorld, step);
    camera.x += moved.x;
    camera.y += moved.y;
    camera.z += moved.z;
}

void TurnLeft(Camera& camera, float degrees) {
    Raise(camera.yaw, degrees);
}

void TurnRight(Camera& camera, float degrees) {
    Lower(camera.yaw, degrees);
}

void LookUp(Camera& camera, float degrees) {
    Raise(camera.pitch, degrees);
}

void LookDown(Camera& camera, float degrees) {
    Lower(camera.pitch, degrees);
}

}  // namespace korvane
