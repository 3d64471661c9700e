// Names, growth and removal of brushes, and the revision that views rely on.
#include "scene/Scene.h"

#include <gmock/gmock.h>

#include <set>

#include "support/SceneMaker.h"

namespace korvane {
namespace {

std::vector<std::string> Names(const Scene& scene) {
    std::vector<std::string> names;
    for (const Brush& brush : scene.brushes) names.push_back(brush.name);
    return names;
}

TEST(SceneTest, AddBrushNamesByIndexUnlessGivenAName) {
    Scene scene;
    for (std::int32_t i = 0; i < 12; ++i) EXPECT_EQ(AddBrush(scene, {}, {}), i);
    EXPECT_EQ(AddBrush(scene, "Roof", "walls"), 12);
    EXPECT_EQ(scene.brushes[11].name, "Brush-0011");
    EXPECT_EQ(scene.brushes[12].name, "Roof");
    EXPECT_EQ(scene.brushes[12].group, "walls");
    EXPECT_EQ(DefaultBrushName(10000), "Brush-10000") << "never cut";
}

TEST(SceneTest, DeleteBrushMovesLaterBrushesDownAndRenamesAll) {
    Scene scene;
    for (const char* name : {"A", "B", "C"}) {
        const std::int32_t index = AddBrush(scene, name, name);
        AddVertex(scene.brushes.back(), {static_cast<float>(index), 0, 0}, false);
    }
    DeleteBrush(scene, 0);
    EXPECT_THAT(Names(scene), testing::ElementsAre("Brush-0000", "Brush-0001"));
    EXPECT_EQ(scene.brushes[0].group, "B");
    EXPECT_EQ(At(scene.brushes[1], 0), (Vec3{2, 0, 0}));

    DeleteBrush(scene, 2);
    DeleteBrush(scene, -1);
    EXPECT_EQ(scene.brushCount(), 2);
}

TEST(SceneTest, AddVertexReusesTheFirstOfTheSamePosition) {
    Brush brush;
    for (const float x : {0.0F, 1.0F, 2.0F, 1.0F}) AddVertex(brush, {x, 0, 0}, false);
    EXPECT_EQ(AddVertex(brush, {1, 0, 0}, true), 1);
    EXPECT_EQ(AddVertex(brush, {-0.0F, 0, 0}, true), 0);
    EXPECT_EQ(brush.vertices.size(), 4U);
    EXPECT_EQ(AddVertex(brush, {1, 0, 0}, false), 4);
    EXPECT_EQ(AddVertex(brush, {1, 1e-30F, 0}, true), 5);
}

TEST(SceneTest, RevisionsAreNeverRepeated) {
    SceneMaker maker;
    std::set<std::uint64_t> revisions;
    for (int i = 0; i < 2; ++i) {
        Brush& brush = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
        revisions.insert(brush.revision);
        Touch(brush);
        revisions.insert(brush.revision);
    }
    EXPECT_EQ(revisions.size(), 4U);
}

}  // namespace
}  // namespace korvane
