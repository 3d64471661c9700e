// Picking in the preview: against selection mode that leaves nothing out, and where it has to be
// right by itself.
#include <gtest/gtest.h>

#include "scene/mSelection.h"
#include "support/ImmediatePreview.h"
#include "support/PreviewStage.h"
#include "views/ui/mPick.h"

namespace korvane {
namespace {

using test::PreviewStage;

std::int32_t PickAt(PreviewStage& stage, int x, int y) {
    return PickPreview(stage.context, stage.renderer, stage.Shown(), x, y);
}

std::int32_t PickMiddle(PreviewStage& stage) {
    return PickAt(stage, 160, 120);
}

/// A box in front of another one, both under the middle of the view.
struct TwoBoxes : PreviewStage {
    TwoBoxes() {
        LookFrom(0, 0, 5);
        Add({-1, -1, -3}, {1, 1, -2}, 0);
        Add({-1, -1, 0}, {1, 1, 1}, 0);
    }
    Brush& Box(std::size_t i) { return editor.scene.brushes[i]; }
};

TEST(PreviewPickTest, LeavesThePictureAlone) {
    TwoBoxes stage;
    stage.Box(0).selected = true;
    const QImage before = stage.Render().copy();
    PickAt(stage, 100, 100);
    EXPECT_EQ(stage.context.frame, before);
    EXPECT_EQ(stage.Render(), before);
}

TEST(PreviewPickTest, NeitherManyHitsNorLargeNumbersNorAMissingContextHarm) {
    PreviewStage deep;
    deep.LookFrom(0, 0, 5);
    for (int i = 0; i < 1500; ++i) {
        const float z = float(i) * 0.002F;
        deep.Add({-1, -1, -9 + z}, {1, 1, -8 + z}, 0);
    }
    EXPECT_EQ(PickMiddle(deep), 1499) << "more hits than the buffer holds";

    TwoBoxes stage;
    std::vector<Brush>& brushes = stage.editor.scene.brushes;
    brushes.insert(brushes.begin(), 40000, Brush());
    EXPECT_EQ(PickMiddle(stage), 40001);
    stage.editor.scene.editMode = FaceEdit;
    Brush& brush = brushes.back();
    brush.selected = true;
    brush.faces.insert(brush.faces.begin(), 40000, BrushFace());
    Touch(brush);
    EXPECT_GE(PickMiddle(stage), 40000);
    ReleaseRenderContext(stage.context);
    EXPECT_EQ(PickMiddle(stage), -1);
}

/// Brushes of all shapes in the way of each other.
void FillStage(PreviewStage& stage) {
    for (int i = 0; i < 60; ++i) {
        const float x = float(i % 5) * 1.4F - 3, y = float(i / 5 % 4) - 2, z = float(i / 20) * -2;
        const auto shape = static_cast<BrushShape>(i % 3);
        stage.Add({x, y, z}, {x + 1.2F, y + 0.9F, z + 1.3F}, i % 4, 4 + i % 7, shape);
    }
}

TEST(PreviewPickTest, EqualsSelectionModeThatLeavesNothingOut) {
    PreviewStage stage;
    FillStage(stage);
    int hits = 0;
    int different = 0;
    const auto compare = [&] {
        for (int y = 1; y < 240; y += 14) {
            for (int x = 0; x < 320; x += 13) {
                const std::int32_t expected =
                    test::PickImmediate(stage.context, stage.Shown(), x, y);
                hits += expected >= 0;
                different += PickAt(stage, x, y) != expected;
            }
        }
    };
    for (BrushFace& face : stage.editor.scene.brushes[50].faces) face.invisible = true;
    Touch(stage.editor.scene.brushes[50]);
    for (const Camera& camera : {Camera{0, 3, 6, -30, 0, 0}, Camera{-1, 0.3F, -1, 5, 250, 0}}) {
        stage.editor.camera = camera;
        compare();
        stage.editor.settings.showInvisible = false;
    }
    stage.editor.scene.editMode = FaceEdit;
    compare();
    stage.editor.scene.brushes[48].selected = true;
    compare();
    EXPECT_GE(hits, 300) << "hardly anything is hit, the test is void";
    EXPECT_EQ(different, 0);
}

}  // namespace
}  // namespace korvane
