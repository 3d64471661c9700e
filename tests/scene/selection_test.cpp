// Faces and vertices count only inside selected brushes; what UnSelect clears depends on the mode.
#include <gtest/gtest.h>

#include <array>

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
        brush.faces[0].selected = true;
        brush.faces[3].selected = true;
        brush.vertices[5].selected = true;
    }
    return maker;
}

using Counts = std::array<std::int32_t, 3>;  ///< selected brushes, faces and vertices

Counts Count(const Scene& scene) {
    return {CountSelectedBrushes(scene), CountSelectedFaces(scene), CountSelectedVertices(scene)};
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
    EXPECT_TRUE(scene.brushes[1].faces[3].selected);
}

TEST(SelectionTest, SelectOnlyClearsWhatIsInside) {
    Scene scene = ThreeBoxes().scene;
    SelectOnly(scene, 0);
    EXPECT_EQ(Count(scene), (Counts{1, 0, 0}));
    EXPECT_EQ(SelectedBrushIndex(scene), 0);
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

TEST(SelectionTest, OnlyBrushesThatChangeGetANewRevision) {
    Scene scene = ThreeBoxes().scene;
    const std::uint64_t outside = scene.brushes[0].revision;
    const std::uint64_t inside = scene.brushes[1].revision;
    ClearSelectedFaces(scene);
    EXPECT_EQ(scene.brushes[0].revision, outside);
    EXPECT_NE(scene.brushes[1].revision, inside);
    const std::uint64_t cleared = scene.brushes[1].revision;
    ClearSelectedFaces(scene);
    EXPECT_EQ(scene.brushes[1].revision, cleared);
    ClearSelectedVertices(scene);
    EXPECT_NE(scene.brushes[1].revision, cleared);
}

}  // namespace
}  // namespace korvane
