// How the camera moves and turns, against the definition in 64-bit arithmetic.
#include "views/core/Camera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvane {
namespace {

TEST(CameraTest, AStepFollowsYawAndTilt) {
    const struct {
        float pitch, yaw;
        Vec3 step, expected;
    } cases[] = {
        {0, 0, {0, 0, -1}, {0, 0, -1}},
        {0, 90, {0, 0, -1}, {-1, 0, 0}},  // turned left, forward is -X
        {0, 90, {1, 0, 0}, {0, 0, -1}},
        {90, 0, {0, 0, -1}, {0, 1, 0}},  // looking up, forward is up
        {90, 0, {0, 1, 0}, {0, 0, 1}},   // and up is backward
        {-30, 0, {0, 0, -1}, {0, -0.5F, -std::sqrt(0.75F)}},
        {-30, 180, {0, 2, 0}, {0, std::sqrt(3.0F), 1}},
        {-30, 180, {-1, 0, 0}, {1, 0, 0}},
    };
    for (const auto& c : cases) {
        Camera camera{1, 2, 3, c.pitch, c.yaw, 0};
        MoveCamera(camera, c.step);
        SCOPED_TRACE(testing::Message() << c.pitch << " " << c.yaw);
        EXPECT_NEAR(camera.x, 1 + c.expected.x, 1e-6);
        EXPECT_NEAR(camera.y, 2 + c.expected.y, 1e-6);
        EXPECT_NEAR(camera.z, 3 + c.expected.z, 1e-6);
    }
}

TEST(CameraTest, AnglesWrapAtTheEndsOnly) {
    const struct {
        void (*turn)(Camera&, float);
        float Camera::*angle;
        float from, by, to;
    } cases[] = {
        {TurnLeft, &Camera::yaw, 359, 2.5F, 1.5F},
        {TurnLeft, &Camera::yaw, 357.5F, 2.5F, 360},
        {TurnRight, &Camera::yaw, 0, 1.25F, 358.75F},
        {TurnRight, &Camera::yaw, 1.25F, 1.25F, 0},
        {LookUp, &Camera::pitch, 359.75F, 0.5F, 0.25F},
        {LookUp, &Camera::pitch, -30, 2.5F, -27.5F},
        {LookDown, &Camera::pitch, -30, 1.25F, 328.75F},
        {LookDown, &Camera::pitch, 360, 2.5F, 357.5F},
    };
    for (const auto& c : cases) {
        Camera camera;
        camera.*c.angle = c.from;
        c.turn(camera, c.by);
        EXPECT_EQ(camera.*c.angle, c.to) << c.from << " by " << c.by;
    }
}

}  // namespace
}  // namespace korvane
