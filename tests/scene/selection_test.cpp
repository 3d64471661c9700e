// The scene's brushes and vertices, and their selection: faces and vertices count only inside
// selected brushes; what UnSelect clears depends on the mode.
#include <gtest/gtest.h>

#include <array>

#include "scene/mClipboard.h"
#include "scene/mSelection.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

/// Three boxes; 1 and 2 are selected. Each has its faces 0 and 3 and its vertex 5 selected.
SceneMaker ThreeBoxes() {
    SceneMaker maker;
    for (int i = 0; i < 3; ++i) {
        Brush& brush = maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
        brush.selected = i > 0;
        brush.faces[0].selected = brush.faces[3].selected = true;
        brush.vertices[5].selected = true;
    }
    return maker;
}

using Counts = std::array<std::int32_t, 3>;  ///< selected brushes, faces and vertices

Counts Count(const Scene& scene) {
    return {CountSelectedBrushes(scene), CountSelectedFaces(scene), CountSelectedVertices(scene)};
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

TEST(SceneTest, DeletingKeepsTheOthersInOrderAndNumbersThem) {
    Scene scene;
    for (int i = 0; i < 6; ++i) {
        AddBrush(scene, i == 0 ? "own name" : "", std::to_string(i));
        scene.brushes.back().selected = i >= 2 && i <= 4;
    }
    EXPECT_EQ(scene.brushes[0].name, "own name");
    DeleteSelectedBrushes(scene);
    DeleteBrush(scene, 0);
    for (const std::int32_t nowhere : {2, -1}) DeleteBrush(scene, nowhere);
    ASSERT_EQ(scene.brushCount(), 2);
    EXPECT_EQ(scene.brushes[0].name + scene.brushes[0].group, "Brush-00001");
    EXPECT_EQ(scene.brushes[1].name + scene.brushes[1].group, "Brush-00015");
    scene.brushes[1].name = "kept";
    DeleteSelectedBrushes(scene);
    EXPECT_EQ(scene.brushes[1].name, "kept") << "nothing was deleted";
    EXPECT_EQ(DefaultBrushName(10000), "Brush-10000") << "never cut";
}

TEST(SelectionTest, CountsOnlyInsideSelectedBrushes) {
    Scene scene = ThreeBoxes().scene;
    EXPECT_EQ(Count(scene), (Counts{2, 4, 2}));
    EXPECT_EQ(SelectedBrushIndex(scene), 1);
    scene.brushes[1].faces[0].selected = Flag16::FromRaw(1);
    EXPECT_EQ(CountSelectedFaces(scene), 3);
    UnselectAllBrushes(scene);
    EXPECT_EQ(Count(scene), (Counts{0, 0, 0}));
    EXPECT_EQ(SelectedBrushIndex(scene), -1);
}

TEST(SelectionTest, WhatBecomesSelectedIsClearedInside) {
    Scene scene = ThreeBoxes().scene;
    SelectOnly(scene, 0);
    EXPECT_EQ(Count(scene), (Counts{1, 0, 0}));
    SelectByName(scene, std::vector<std::string>{"BRUSH-0000", "brush-0002", "no such name"});
    EXPECT_EQ(SelectedFlags(scene.brushes), "101");
    EXPECT_EQ(Count(scene), (Counts{2, 0, 0}));
    EXPECT_TRUE(scene.brushes[1].faces[3].selected) << "others keep their state";
    SelectOnly(scene, 3);
    EXPECT_EQ(CountSelectedBrushes(scene), 0);
}

TEST(SelectionTest, UnSelectByModeInTwoSteps) {
    struct Row {
        EditMode mode;
        Counts once, twice;
    };
    for (const Row& row :
         {Row{BrushMove, {0, 0, 0}, {0, 0, 0}}, Row{FaceEdit, {2, 0, 2}, {0, 0, 0}},
          Row{EdgeMove, {2, 4, 0}, {0, 0, 0}}, Row{VertexMove, {2, 4, 0}, {0, 0, 0}}}) {
        Scene scene = ThreeBoxes().scene;
        scene.editMode = row.mode;
        UnSelect(scene);
        EXPECT_EQ(Count(scene), row.once) << row.mode;
        UnSelect(scene);
        EXPECT_EQ(Count(scene), row.twice) << row.mode;
        EXPECT_TRUE(scene.brushes[0].faces[0].selected) << "flags of unselected brushes stay";
    }
}

TEST(SelectionTest, OnlyBrushesThatChangeGetANewRevisionNeverUsedBefore) {
    Scene scene = ThreeBoxes().scene;
    const std::uint64_t outside = scene.brushes[0].revision;
    std::uint64_t inside = scene.brushes[1].revision;
    for (const auto clear : {ClearSelectedFaces, ClearSelectedVertices}) {
        clear(scene);
        EXPECT_EQ(scene.brushes[0].revision, outside);
        EXPECT_GT(scene.brushes[1].revision, inside);
        EXPECT_NE(scene.brushes[1].revision, scene.brushes[2].revision);
        inside = scene.brushes[1].revision;
        clear(scene);
        EXPECT_EQ(scene.brushes[1].revision, inside) << "nothing was left to clear";
    }
}

}  // namespace
}  // namespace korvane
