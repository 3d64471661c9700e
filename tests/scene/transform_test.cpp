// Rotation, reflection and inversion of the selection.
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

TEST_F(TransformTest, TurnsAboutTheMiddleOfTheSelection) {
    const struct {
        float ax, ay, az;
        Vec3 from, to;
    } cases[] = {
        {90, 0, 0, {0, 1, 0}, {0, 0, 1}},
        {0, 90, 0, {0, 0, 1}, {1, 0, 0}},
        {0, 0, 90, {1, 0, 0}, {0, 1, 0}},
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

TEST_F(TransformTest, TurnsAboutTheMarkerWhileItIsShown) {
    SelectedBox({1, 0, 0}, {2, 1, 1});
    scene.marker = {0, 0, 0};
    scene.markerShown = true;
    RotateSelection(scene, 0, 0, 90, Space());
    const Bounds bounds = BrushBounds(scene.brushes[0]);
    ExpectNear(bounds.min, {-1, 1, 0});
    ExpectNear(bounds.max, {0, 2, 1});
}

TEST_F(TransformTest, AnAngleOfZeroAndAWholeTurnLeaveEveryPointInPlace) {
    Brush& brush = SelectedBox({0.1F, -0.7F, 3.3F}, {0.3F, 99.9F, 7.01F});
    const std::vector<Vertex> before = brush.vertices;
    scene.markerShown = true;
    scene.marker = {0.123F, 45.6F, -78.9F};
    RotateSelection(scene, 0, 0, 0, Space());
    for (std::size_t v = 0; v < before.size(); ++v) {
        EXPECT_EQ(brush.vertices[v].Position(), before[v].Position());
    }
    RotateSelection(scene, 360, 360, 360, Space());
    for (std::size_t v = 0; v < before.size(); ++v) {
        ExpectNear(brush.vertices[v].Position(), before[v].Position());
    }
}

TEST_F(TransformTest, FlippingMirrorsAtTheMiddleAndKeepsFacesOutward) {
    SelectedBox({0, 0, 0}, {1, 1, 1});
    SelectedBox({3, 0, 0}, {5, 2, 2});
    scene.marker = {100, 100, 100};
    scene.markerShown = true;  // plays no part
    for (int axis = 0; axis < 3; ++axis) {
        Scene flipped = scene;
        FlipSelection(flipped, axis == 0, axis == 1, axis == 2, Space());
        const Bounds expected[] = {
            {{4, 0, 0}, {5, 1, 1}}, {{0, 1, 0}, {1, 2, 1}}, {{0, 0, 1}, {1, 1, 2}}};
        EXPECT_EQ(BrushBounds(flipped.brushes[0]), expected[axis]);
        for (const Brush& brush : flipped.brushes) EXPECT_TRUE(AllPoint(brush, +1)) << axis;
        FlipSelection(flipped, axis == 0, axis == 1, axis == 2, Space());
        EXPECT_EQ(BrushBounds(flipped.brushes[1]), BrushBounds(scene.brushes[1]));
        EXPECT_EQ(flipped.brushes[0].faces[5].a, scene.brushes[0].faces[5].a);
    }
}

TEST_F(TransformTest, InvertingTwiceRestoresTheFaces) {
    Brush& brush = SelectedBox({0, 0, 0}, {1, 1, 1});
    const Brush before = brush;
    InvertSelection(scene, Space());
    EXPECT_TRUE(AllPoint(brush, -1));
    InvertSelection(scene, Space());
    for (std::size_t f = 0; f < before.faces.size(); ++f) {
        EXPECT_EQ(brush.faces[f].a, before.faces[f].a);
        EXPECT_EQ(brush.faces[f].c, before.faces[f].c);
        EXPECT_EQ(brush.faces[f].normal, before.faces[f].normal);
        EXPECT_EQ(brush.faces[f].uv, before.faces[f].uv);
    }
}

}  // namespace
}  // namespace korvane
