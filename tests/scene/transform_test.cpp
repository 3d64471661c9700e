// Vectors, and rotation and reflection of the selection.
#include <gtest/gtest.h>

#include "scene/mNormals.h"
#include "scene/mTransform.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

class TransformTest : public testing::Test, protected SceneMaker {
  protected:
    void ExpectNear(const Vec3& a, const Vec3& b) {
        EXPECT_LT(Distance(a, b), 1e-5) << a.x << " " << a.y << " " << a.z;
    }
};

TEST(VectorTest, MidpointOfHugePointsDoesNotOverflow) {
    EXPECT_EQ(Midpoint({-3e38F, 3e38F, 3e38F}, {3e38F, 3e38F, -3e38F}), (Vec3{0, 3e38F, 0}));
}

TEST_F(TransformTest, TurnsAboutTheMiddleOfTheSelection) {
    const struct {
        float ax, ay, az;
        Vec3 from, to;
    } cases[] = {
        {90, 0, 0, {0, 1, 0}, {0, 0, 1}},
        // About Z, then X, then Y: X becomes Y, then Z, then X.
        {90, 90, 90, {1, 0, 0}, {1, 0, 0}},
        {90, 0, 90, {1, 0, 0}, {0, 0, 1}},
        {0, 90, 90, {0, 1, 0}, {0, 0, 1}},
        {370, 0, 0, {1, 0, 0}, {1, 0, 0}},
    };
    for (const auto& c : cases) {
        scene.brushes.clear();
        SelectedBox({2, 2, 2}, {4, 4, 4});
        Create(Box, 4, {9, 9, 9}, {11, 11, 11});
        scene.brushes[0].vertices[0].MoveTo({3 + c.from.x, 3 + c.from.y, 3 + c.from.z});
        RotateSelection(scene, c.ax, c.ay, c.az, Space());
        ExpectNear(At(scene.brushes[0], 0), {3 + c.to.x, 3 + c.to.y, 3 + c.to.z});
        EXPECT_EQ(BrushBounds(scene.brushes[1]).max, (Vec3{11, 11, 11})) << "not selected";
    }
}

TEST_F(TransformTest, TurnsButDoesNotFlipAboutTheMarkerWhileItIsShown) {
    SelectedBox({1, 0, 0}, {2, 1, 1});
    scene.marker = {0, 0, 0};
    scene.markerShown = true;
    RotateSelection(scene, 0, 0, 90, Space());
    const Bounds turned = BrushBounds(scene.brushes[0]);
    ExpectNear(turned.min, {-1, 1, 0});
    ExpectNear(turned.max, {0, 2, 1});
    SelectedBox({3, 0, 0}, {5, 2, 2});
    FlipSelection(scene, true, false, false, Space());
    ExpectNear(BrushBounds(scene.brushes[0]).min, {4, 1, 0});
    ExpectNear(BrushBounds(scene.brushes[1]).min, {-1, 0, 0});
}

TEST_F(TransformTest, AnAngleOfZeroAndAWholeTurnLeaveEveryPointInPlace) {
    Brush& brush = SelectedBox({0.1F, -0.7F, 3.3F}, {0.3F, 99.9F, 7.01F});
    const Brush before = brush;
    scene.markerShown = true;
    scene.marker = {0.123F, 45.6F, -78.9F};
    RotateSelection(scene, 0, 0, 0, Space());
    for (std::int32_t v = 0; v < 8; ++v) EXPECT_EQ(At(brush, v), At(before, v));
    RotateSelection(scene, 360, 360, 360, Space());
    for (std::int32_t v = 0; v < 8; ++v) ExpectNear(At(brush, v), At(before, v));
}

}  // namespace
}  // namespace korvane
