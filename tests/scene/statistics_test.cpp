// The object in numbers: counts, bars, and the names in use.
#include <gmock/gmock.h>

#include <limits>

#include "scene/mNormals.h"
#include "scene/mStatistics.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

using testing::ElementsAre;

TEST(StatisticsTest, CountsPolygonsByTheirFirstTriangle) {
    SceneMaker maker;
    std::vector<BrushFace>& faces = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).faces;
    ASSERT_EQ(faces.size(), 12U) << "six sides of two triangles";
    faces[0].invisible = faces[1].invisible = true;
    faces[3].invisible = true;  // a second triangle: the polygon counts as visible
    faces[4].transparency = 5;
    faces[6].transparency = -1;
    faces[8].localCoords = true;
    faces[0].texture = faces[1].texture = 2;  // on invisible faces alone
    maker.library.SelectTexture(0);
    maker.Create(Cone, 3, {2, 0, 0}, {3, 1, 1});
    maker.Create(Sphere, 3, {4, 0, 0}, {5, 1, 1}).shape = 7;
    maker.scene.brushes[2].faces.clear();
    maker.scene.brushes[2].faces.resize(3);
    maker.scene.brushes[2].faces[1].polygonId = 9;  // a run ends where another polygon begins
    maker.scene.brushes[2].faces[0].texture = 99;   // no such texture: the placeholder
    const auto [cone, sphere] = std::pair(maker.scene.brushes[1], maker.scene.brushes[2]);
    const auto vertices = 8 + std::ssize(cone.vertices) + std::ssize(sphere.vertices);
    const auto triangles = 12 + std::ssize(cone.faces) + 3;
    EXPECT_THAT(
        CountStatistics(maker.scene, maker.library),
        ElementsAre(3, 6 + 4 + 3, 1, 1, 12, 1, vertices, triangles, triangles - 3, 3, 1, 1, 0, 3));
}

TEST(StatisticsTest, BarsScaleWithTheLargestOfTheirGroup) {
    EXPECT_THAT(BarsOf({4, 10, 5, 0, 2, 8, 40, 20, 10, 1, 3, 1, 0, 5}),
                ElementsAre(1, 1, 0.5, 0, 0.2, 0.8, 1, 0.5, 0.25, 0.2, 0.75, 0.25, 0, 1));
    EXPECT_THAT(BarsOf({}), testing::Each(0.0));
}

TEST(StatisticsTest, NamesStandOnceInTheOrderOfTheirFirstUse) {
    SceneMaker maker;
    maker.library.AddTexture("BRICK.JPG", 64, 64);
    for (const int texture : {2, 0, 1, 3, 2}) {
        maker.library.SelectTexture(texture);
        maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    }
    maker.scene.brushes[1].group = "Roof";
    maker.scene.brushes[2].group = "Arch";
    maker.scene.brushes[3].group = "ROOF";
    EXPECT_THAT(TextureNamesOf(maker.scene, maker.library), ElementsAre("sand.tga", "brick.jpg"));
    EXPECT_THAT(GroupsOf(maker.scene), ElementsAre("Roof", "Arch"));
}

TEST(StatisticsTest, BoundsReachBeyondTheWorkingRange) {
    SceneMaker maker;
    EXPECT_EQ(SceneBounds(maker.scene), (Bounds{{0, 0, 0}, {0, 0, 0}}));
    maker.Create(Box, 4, {2000, -1500, 1}, {2001, -1400, 3}).vertices[0].z =
        std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(SceneBounds(maker.scene), (Bounds{{2000, -1500, 1}, {2001, -1400, 3}}));
}

}  // namespace
}  // namespace korvane
