// Names, growth and removal of brushes, and the revision that views rely on.
#include "scene/Scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SceneMaker.h"

namespace korvane {
namespace {

std::vector<std::string> Names(const Scene& scene) {
    std::vector<std::string> names;
    for (const Brush& brush : scene.brushes) names.push_back(brush.name);
    return names;
}

TEST(SceneTest, DefaultNamesArePaddedAndNeverCut) {
    EXPECT_EQ(DefaultBrushName(0), "Brush-0000");
    EXPECT_EQ(DefaultBrushName(9999), "Brush-9999");
    EXPECT_EQ(DefaultBrushName(10000), "Brush-10000");
}

TEST(SceneTest, AddBrushNamesByIndexUnlessGivenAName) {
    Scene scene;
    for (std::int32_t i = 0; i < 12; ++i) EXPECT_EQ(AddBrush(scene, {}, {}), i);
    EXPECT_EQ(AddBrush(scene, {}, "walls"), 12);
    EXPECT_EQ(scene.brushes[12].name, "Brush-0012");
    EXPECT_EQ(scene.brushes[12].group, "walls");
    EXPECT_FALSE(scene.brushes[12].selected);
    EXPECT_EQ(AddBrush(scene, "Roof", {}), 13);
    EXPECT_EQ(scene.brushes[13].name, "Roof");
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

TEST(SceneTest, AddFaceGivesDefaults) {
    Brush brush;
    EXPECT_EQ(AddFace(brush, 0, 1, 2, 7), 0);
    EXPECT_EQ(AddFace(brush, 2, 1, 0, 8), 1);
    const BrushFace& face = brush.faces[1];
    EXPECT_EQ(face.a, 2);
    EXPECT_EQ(face.b, 1);
    EXPECT_EQ(face.c, 0);
    EXPECT_EQ(face.polygonId, 8);
    EXPECT_EQ(face.normal, (Vec3{0, 1, 0}));
    EXPECT_EQ(face.repeatX, 1);
    EXPECT_EQ(face.repeatY, 1);
    EXPECT_EQ(face.texture, 0);
    EXPECT_FALSE(face.localCoords);
}

TEST(SceneTest, ClearSceneEmptiesTheClipboardToo) {
    SceneMaker maker;
    maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    maker.scene.clipboard = maker.scene.brushes;
    maker.scene.editMode = VertexMove;
    ClearScene(maker.scene);
    EXPECT_EQ(maker.scene.brushCount(), 0);
    EXPECT_EQ(maker.scene.clipboardCount(), 0);
    EXPECT_EQ(maker.scene.editMode, VertexMove);
}

TEST(SceneTest, RevisionsAreNeverRepeated) {
    SceneMaker maker;
    const std::uint64_t first = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).revision;
    Brush& brush = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    EXPECT_NE(brush.revision, first);
    const std::uint64_t second = brush.revision;
    Touch(brush);
    EXPECT_NE(brush.revision, first);
    EXPECT_NE(brush.revision, second);
}

}  // namespace
}  // namespace korvane
