// The picture of the preview: against the plain immediate-mode frame, and where it has to be by
// itself.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "support/ImmediatePreview.h"
#include "support/PreviewStage.h"

namespace korvane {
namespace {

using test::PreviewStage;

/// Share of pixels that differ, and how much of the picture shows a brush at all.
struct Comparison {
    double different = 0;
    double covered = 0;
};

Comparison CompareWithImmediate(PreviewStage& stage) {
    const QImage ours = stage.Render().copy();
    test::RenderImmediate(stage.context, stage.Shown());
    const QImage plain = stage.context.frame.copy();
    const QRgb empty = plain.pixel(0, 0);
    int different = 0;
    int covered = 0;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            different += ours.pixel(x, y) != plain.pixel(x, y);
            covered += plain.pixel(x, y) != empty;
        }
    }
    const double all = double(plain.width()) * plain.height();
    return {different / all, covered / all};
}

void ExpectLikeImmediate(PreviewStage& stage, const char* what) {
    const Comparison result = CompareWithImmediate(stage);
    EXPECT_LE(result.different, 0.0001) << what;
    EXPECT_GE(result.covered, 0.02) << what << ": hardly anything is seen, the test is void";
}

/// Boxes, cones and spheres side by side and inside each other, and boxes laid exactly on others.
void FillStage(PreviewStage& stage) {
    for (int i = 0; i < 12; ++i) {
        const float x = float(i % 4) * 1.4F - 3;
        const float z = float(i / 4) * -1.6F;
        const auto shape = static_cast<BrushShape>(i % 3);
        stage.Add({x, 0, z}, {x + 1.5F, 1.5F, z + 1.3F}, i % 4, 5 + i, shape);
    }
    stage.Add({-1, 0, 1}, {0, 1, 2}, 1);
    stage.Add({-1, 0, 1}, {0, 1, 2}, 2);  // hides nothing: drawn second in the same place
    stage.Add({-0.5F, 0.5F, 1}, {1, 1, 2}, 3);
    for (Brush& brush : stage.editor.scene.brushes) {
        for (std::size_t f = 0; f < brush.faces.size(); ++f) {
            brush.faces[f].smooth = brush.shape != Box ? 1 : 0;
            brush.faces[f].invisible = f % 5 == 2;
            brush.faces[f].selected = f % 2 == 0;
        }
        Touch(brush);
    }
}

TEST(PreviewPictureTest, FollowsEveryKindOfChange) {
    PreviewStage stage;
    FillStage(stage);
    auto& brushes = stage.editor.scene.brushes;
    stage.Render();
    for (Vertex& vertex : brushes[5].vertices) vertex.y += 0.7F;
    UpdateBrushNormals(brushes[5]);
    Touch(brushes[5]);
    ExpectLikeImmediate(stage, "moved");
    brushes[2].faces.pop_back();
    Touch(brushes[2]);
    ExpectLikeImmediate(stage, "fewer faces");
    stage.Add({-1, 1, 2}, {1, 2, 2.5F}, 2, 12, Sphere);
    ExpectLikeImmediate(stage, "one more");
    DeleteBrush(stage.editor.scene, 1);
    ExpectLikeImmediate(stage, "one less: the others move up");
    std::swap(brushes[0], brushes[3]);
    ExpectLikeImmediate(stage, "order changed");
    for (BrushFace& face : brushes[4].faces) face.texture = 3;
    Touch(brushes[4]);
    ExpectLikeImmediate(stage, "another texture");
    ClearScene(stage.editor.scene);
    FillStage(stage);
    ExpectLikeImmediate(stage, "a new scene");
    Settings& settings = stage.editor.settings;
    for (Brush& brush : brushes) brush.selected = true;
    settings.colors[ColorItem::View3DBackground] = MakeColor(10, 20, 30);
    settings.colors[ColorItem::View3DSelectedFaces] = MakeColor(0, 255, 0);
    ExpectLikeImmediate(stage, "all selected, other colours");
    for (Brush& brush : brushes) brush.selected = false;
    settings.show3DGrid = false;
    ExpectLikeImmediate(stage, "no grid, and the material left by a tinted frame");
    stage.LookFrom(5000, 0, 3);
    stage.Add({4999, -1, -1}, {5001, 1, 0}, 0);
    ExpectLikeImmediate(stage, "beyond the working range");
}

/// The brightness that the light gives a face of the normal, 0..255, by hand: ambient of scene and
/// light, plus the diffuse part.
int Lit(double nx, double ny, double nz) {
    const double length = std::sqrt(0.75 * 0.75 + 1 + 0.5 * 0.5);
    const double facing = std::max(0.0, (0.75 * nx + 1.0 * ny + 0.5 * nz) / length);
    return int(std::lround(255 * std::min(1.0, 0.2 + 0.25 + 0.8 * facing)));
}

void ExpectColor(QRgb pixel, int r, int g, int b, const char* what) {
    EXPECT_NEAR(qRed(pixel), r, 2) << what;
    EXPECT_NEAR(qGreen(pixel), g, 2) << what;
    EXPECT_NEAR(qBlue(pixel), b, 2) << what;
}

TEST(PreviewPictureTest, FacesAreLitFromTheWorldsLightAndTinted) {
    PreviewStage stage;
    stage.editor.settings.show3DGrid = false;
    Brush& brush = stage.Add({-0.5F, -0.5F, -0.5F}, {0.5F, 0.5F, 0.5F}, 0);
    const struct {
        Camera camera;
        int light;
        const char* what;
    } sides[] = {{{0, 0, -3, 0, 180, 0}, Lit(0, 0, -1), "back"},
                 {{3, 0, 0, 0, 90, 0}, Lit(1, 0, 0), "right"},
                 {{-3, 0, 0, 0, 270, 0}, Lit(-1, 0, 0), "left"},
                 {{0, 3, 0, -90, 0, 0}, Lit(0, 1, 0), "top"},
                 {{0, -3, 0, 90, 0, 0}, Lit(0, -1, 0), "bottom"},
                 {{0, 0, 3, 0, 0, 0}, Lit(0, 0, 1), "front"}};
    const auto center = [&] { return stage.Render().pixel(160, 120); };
    for (const auto& side : sides) {
        stage.editor.camera = side.camera;
        ExpectColor(center(), side.light, side.light, side.light, side.what);
    }
    const int light = Lit(0, 0, 1);
    brush.selected = true;
    ExpectColor(center(), light, light * 128 / 255, light * 128 / 255, "selected brush");
    for (BrushFace& face : brush.faces) face.selected = true;
    Touch(brush);
    ExpectColor(center(), light, light, light * 128 / 255, "selected face");
    brush.selected = false;
    ExpectColor(center(), light, light, light, "a face counts only in a selected brush");
}

TEST(PreviewPictureTest, TheBoxEndsWhereItsEdgesAre) {
    PreviewStage stage(400, 400);
    stage.editor.settings.show3DGrid = false;
    stage.LookFrom(0, 0, 10.5F);
    stage.Add({-1, -1, -0.5F}, {1, 1, 0.5F}, 0);
    // Ten units away half the height of the view is 10 * tan(22.5 degrees) = 4.1421 units.
    const double reach = 200 / (10 * std::tan(22.5 * kPi / 180));
    const QImage& frame = stage.Render();
    const QRgb background = qRgb(0, 0, 0);
    for (const int sign : {-1, 1}) {
        const double edge = 200 + sign * reach;
        const int inside = int(std::floor(edge - sign));
        const int outside = int(std::floor(edge + sign));
        EXPECT_NE(frame.pixel(inside, 200), background) << sign;
        EXPECT_EQ(frame.pixel(outside, 200), background) << sign;
        EXPECT_NE(frame.pixel(200, inside), background) << sign;
        EXPECT_EQ(frame.pixel(200, outside), background) << sign;
    }
}

/// Where grid lines cross the horizontal middle line of the picture, seen straight from above:
/// world units to the right of the eye.
std::vector<double> GridLines(PreviewStage& stage) {
    const QImage& frame = stage.Render();
    const double unitsPerPixel =
        2 * stage.editor.camera.y * std::tan(22.5 * kPi / 180) / frame.height();
    std::vector<double> lines;
    for (int x = 0; x < frame.width(); ++x) {
        if (frame.pixel(x, frame.height() / 2) == qRgb(64, 64, 80)) {
            lines.push_back((x + 0.5 - frame.width() / 2) * unitsPerPixel);
        }
    }
    return lines;
}

TEST(PreviewGridTest, StaysInTheWorldAndFollowsInWholeUnits) {
    PreviewStage stage(1600, 300);
    // From here the picture shows more than the 81 lines.
    for (const float eye : {0.25F, 0.75F, 1.25F, -0.25F}) {
        stage.LookFrom(eye, 22, 0.4F, -90);
        const std::vector<double> alongX = GridLines(stage);
        ASSERT_EQ(alongX.size(), 81U) << eye;
        EXPECT_NEAR(eye + alongX.front(), std::floor(eye) - 40, 0.07) << eye;
        EXPECT_NEAR(eye + alongX.back(), std::floor(eye) + 40, 0.07) << eye;
        stage.LookFrom(0.4F, 22, eye, -90, 90);  // turned left: Z grows to the left
        const std::vector<double> alongZ = GridLines(stage);
        ASSERT_EQ(alongZ.size(), 81U) << eye;
        EXPECT_NEAR(eye - alongZ.front(), std::floor(eye) + 40, 0.07) << eye;
        EXPECT_NEAR(eye - alongZ.back(), std::floor(eye) - 40, 0.07) << eye;
    }
    stage.editor.settings.show3DGrid = false;
    EXPECT_TRUE(GridLines(stage).empty());
}

TEST(PreviewPictureTest, StrangeScenesAreDrawnWithoutHarm) {
    PreviewStage stage;
    stage.Add({0, 0, 0}, {1, 1, 1}, 0);
    AddBrush(stage.editor.scene, "", "");  // nothing in it
    Brush& brush = stage.editor.scene.brushes[0];
    brush.faces[0].texture = 99;  // not in the library
    brush.faces[1].texture = -3;
    brush.faces[2].a = 4711;                                 // no such vertex
    brush.faces[3].a = brush.faces[3].b = brush.faces[3].c;  // no area
    brush.vertices[0].x = std::numeric_limits<float>::quiet_NaN();
    brush.vertices[1].y = std::numeric_limits<float>::infinity();
    brush.vertices[2].z = 3e38F;
    Touch(brush);
    stage.Render();
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    EXPECT_EQ(stage.renderer.mesh.faces.size(), brush.faces.size() - 1);
}

}  // namespace
}  // namespace korvane
