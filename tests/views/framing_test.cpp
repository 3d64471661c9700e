// Framing: the whole object in the picture, and not much else.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/SceneMaker.h"
#include "views/core/mFraming.h"

namespace korvane {
namespace {

constexpr double kFieldOfView = 45;

/// The largest share of the half picture that a vertex reaches; above 1 it lies outside.
double LargestShare(const Scene& scene, const Camera& camera, double aspect) {
    const Matrix4 turn = MatrixMultiply(MatrixRotateX(DegToRad(-camera.pitch)),
                                        MatrixRotateY(DegToRad(-camera.yaw)));
    const double slope = std::tan(DegToRad(kFieldOfView / 2));
    double largest = 0;
    for (const Brush& brush : scene.brushes) {
        for (const Vertex& v : brush.vertices) {
            const Vec3 p = TransformPoint(turn, {v.x - camera.x, v.y - camera.y, v.z - camera.z});
            EXPECT_LT(p.z, -0.1) << "behind the near plane";
            largest = std::max(
                {largest, std::abs(p.x / p.z) / (slope * aspect), std::abs(p.y / p.z) / slope});
        }
    }
    return largest;
}

TEST(FramingTest, TheCameraSeesTheWholeObjectFromNear) {
    const struct {
        Bounds object;
        int width, height;
    } cases[] = {{{{-1, 0, -1}, {1, 2, 1}}, 800, 600},
                 {{{90, -40, 7}, {95, -38, 20}}, 800, 600},
                 {{{-300, 0, -5}, {300, 1, 5}}, 800, 600},
                 {{{-2, 0, -1}, {2, 1, 1}}, 100, 900},
                 {{{0, 0, 0}, {0.001F, 0.001F, 0.001F}}, 64, 64}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.object.max.x);
        SceneMaker maker;
        maker.Create(Box, 4, c.object.min, c.object.max);
        const Framing framing = FrameObject(maker.scene, c.width, c.height, kFieldOfView);
        const double share = LargestShare(maker.scene, framing.camera, double(c.width) / c.height);
        EXPECT_LE(share, 0.93);
        EXPECT_TRUE(share >= 0.91 || c.object.max.x < 0.1F) << share;
        EXPECT_GT(framing.farthest, 0.2);
        EXPECT_LT(framing.farthest, 2000);
    }
}

TEST(FramingTest, WithoutVerticesTheCameraIsThatOfANewSession) {
    SceneMaker maker;
    EXPECT_EQ(FrameObject(maker.scene, 800, 600, kFieldOfView).camera.z, Camera().z);
    Brush& brush = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    for (Vertex& vertex : brush.vertices) vertex.x = std::numeric_limits<float>::infinity();
    EXPECT_EQ(FrameObject(maker.scene, 800, 600, kFieldOfView).camera.z, Camera().z);
}

TEST(FramingTest, AViewShowsTheBoxInItsMiddle) {
    const auto framed = [](const Bounds& bounds) {
        ViewState state;
        state.width = 400;
        state.height = 300;
        state.panX = 77;
        FrameBounds(state, FrontView, bounds);
        return state;
    };
    const ViewState state = framed({{1, 2, -50}, {5, 3, 50}});
    EXPECT_EQ(state.zoom, 80) << "(400 - 2 * 40) / 4";
    const ScreenPoint low = WorldToScreen(state, FrontView, {1, 2, 0});
    const ScreenPoint high = WorldToScreen(state, FrontView, {5, 3, 0});
    EXPECT_EQ(low.x + high.x, 400);
    EXPECT_EQ(low.y + high.y, 300);
    EXPECT_EQ(framed({{0, 0, 0}, {0, 0, 0}}).zoom, kDefaultZoom);
    EXPECT_EQ(framed({{0, 0, 0}, {0.1F, 0, 0}}).zoom, kMaxZoom);
    EXPECT_EQ(framed({{-900, 0, 0}, {900, 0, 0}}).zoom, 1);
    EXPECT_EQ(framed({{-3e38F, 0, 0}, {3e38F, 0, 0}}).zoom, 1);
}

}  // namespace
}  // namespace korvane
