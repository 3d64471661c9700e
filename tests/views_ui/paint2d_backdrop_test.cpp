// Steps of a drag on a kept backdrop against full repaints of the same session, pixel for pixel.
#include <gtest/gtest.h>

#include <random>

#include "support/SessionFixture.h"
#include "views/ui/mRender2D.h"

namespace korvane {
namespace {

class BackdropTest : public test::SessionTest {
  protected:
    BackdropTest() {
        for (ViewState& view : editor.views) view.width = 151, view.height = 117, view.zoom = 24;
        UpdateViewOrigins(editor);
    }

    float Uniform(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    }
    bool Chance(double probability) { return std::bernoulli_distribution(probability)(random); }
    Vec3 Anywhere() { return {Uniform(-4, 4), Uniform(-4, 4), Uniform(-4, 4)}; }

    /// Brushes of every shape across the view, its edges and its rulers; a third is selected, and
    /// some vertices everywhere.
    void AddBrushes(int count) {
        for (int i = 0; i < count; ++i) {
            editor.scene.createShape = static_cast<std::int16_t>(i % 3);
            const Vec3 low = Anywhere();
            const Vec3 high{low.x + Uniform(0.2F, 3), low.y + Uniform(0.2F, 3),
                            low.z + Uniform(0.2F, 3)};
            const auto index = CreateBrush(editor.scene, low, high, 3 + i % 5, editor.Space());
            Brush& brush = editor.scene.brushes[static_cast<std::size_t>(index)];
            brush.selected = Chance(0.3);
            for (Vertex& vertex : brush.vertices) vertex.selected = Chance(0.5);
        }
    }

    void MoveSelection() {
        for (Brush& brush : editor.scene.brushes) {
            if (!brush.selected) continue;
            const Vec3 by{Uniform(-1, 1), Uniform(-1, 1), Uniform(-1, 1)};
            for (Vertex& v : brush.vertices)
                v.MoveTo({v.x + by.x, v.y + by.y, v.z + by.z + Uniform(-0.1F, 0.1F)});
        }
        editor.scene.marker = Anywhere();
    }

    void ExpectSameAsFullRepaint(int view) {
        PaintSurface full;
        full.ratio = surface.ratio;
        PaintView(editor, view, full);
        PaintMoveStep(editor, view, surface, backdrop);
        ASSERT_EQ(surface.image, full.image);
    }

    std::mt19937 random{20};
    PaintSurface surface;
    Backdrop backdrop;
};

TEST_F(BackdropTest, EveryStepOfADragShowsWhatAFullRepaintShows) {
    AddBrushes(40);
    for (const double ratio : {1.0, 1.25, 2.0})
        for (int view = 0; view < kViewCount; ++view)
            for (const EditMode mode : {BrushMove, FaceEdit, EdgeMove, VertexMove})
                for (const bool rulers : {false, true})
                    for (const bool marker : {false, true}) {
                        surface.ratio = ratio;
                        editor.scene.editMode = mode;
                        editor.settings.showRulers = rulers;
                        editor.scene.markerShown = marker;
                        backdrop = {};
                        for (int step = 0; step < 4; ++step) {
                            SCOPED_TRACE(testing::Message()
                                         << "ratio " << ratio << ", view " << view << ", mode "
                                         << mode << ", rulers " << rulers << ", marker " << marker
                                         << ", step " << step);
                            ASSERT_NO_FATAL_FAILURE(ExpectSameAsFullRepaint(view));
                            MoveSelection();
                        }
                    }
}

/// Without this the comparison above would also hold for steps that repaint in full.
TEST_F(BackdropTest, AStepDoesNotLookAtUnselectedBrushes) {
    AddBrushes(12);
    PaintMoveStep(editor, TopView, surface, backdrop);
    const QImage before = surface.image;
    for (Brush& brush : editor.scene.brushes)
        if (!brush.selected) brush.vertices.clear();
    PaintMoveStep(editor, TopView, surface, backdrop);
    EXPECT_EQ(surface.image, before);
    backdrop = {};
    PaintMoveStep(editor, TopView, surface, backdrop);
    EXPECT_NE(surface.image, before);
}

}  // namespace
}  // namespace korvane
