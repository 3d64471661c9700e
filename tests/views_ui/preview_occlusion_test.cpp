// Leaving out what solids hide: what is left out, and that no picture shows the difference.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "scene/mNormals.h"
#include "support/ImmediatePreview.h"
#include "support/PreviewStage.h"

namespace korvane {
namespace {

using test::PreviewStage;

/// A wall before the eye and a small box behind it: what the pictures below cannot tell apart.
TEST(PreviewOcclusionTest, OnlyWhatIsSurelyHiddenIsLeftOut) {
    const struct {
        const char* what;
        std::function<void(PreviewStage&, Brush& wall)> change;
        bool sent;
    } cases[] = {
        {"behind the wall", [](PreviewStage&, Brush&) {}, false},
        {"the wall is selected", [](PreviewStage&, Brush& wall) { wall.selected = true; }, false},
        {"looking past the wall",
         [](PreviewStage& stage, Brush&) { stage.LookFrom(6, 0, 5, 0, 35); }, true},
        {"the wall is an open shell",
         [](PreviewStage&, Brush& wall) { wall.faces.erase(wall.faces.begin()); }, true},
        {"the wall is inside out",
         [](PreviewStage&, Brush& wall) {
             for (BrushFace& face : wall.faces) std::swap(face.a, face.b);
         },
         true},
        {"the wall ends beyond all reason",
         [](PreviewStage&, Brush& wall) {
             for (Vertex& vertex : wall.vertices) vertex.x *= 1e6F;
         },
         true},
        {"inside the wall", [](PreviewStage& stage, Brush&) { stage.LookFrom(0, 0, 0.1F); }, true},
    };
    for (const auto& c : cases) {
        PreviewStage stage;
        stage.LookFrom(0, 0, 5);
        stage.Add({-2, -2, 0}, {2, 2, 1}, 0);
        stage.Add({-0.5F, -0.5F, -3}, {0.5F, 0.5F, -2.2F}, 1);
        Brush& wall = stage.editor.scene.brushes[0];
        c.change(stage, wall);
        Touch(wall);
        stage.Render();
        const auto& items = stage.renderer.runs.brushes.Items();
        EXPECT_EQ(std::ranges::count(items, 1U, &DrawItem::brush), c.sent ? 1 : 0) << c.what;
        EXPECT_EQ(std::ranges::count(items, 0U, &DrawItem::brush), 1) << c.what;
    }
}

/// What sticks out from behind the wall by a few pixels, however far it reaches to the back: long
/// boxes are where single precision ends.
TEST(PreviewOcclusionTest, TheEndOfALongBoxShows) {
    PreviewStage stage;
    for (const float length : {10.0F, 1e3F, 1e4F, 1e5F, 9e5F}) {
        for (int step = 1; step <= 60; ++step) {
            ClearScene(stage.editor.scene);
            stage.Add({-2, -2, 0}, {2, 2, 1});
            const float out = 3.6F + float(step % 8) * 0.01F;  // at 3.6 the wall ends, from the eye
            stage.Add({0, 0, -2.2F - length}, {out, 0.5F, -2.2F}, 1);
            stage.LookFrom(0, 0, 5, float(step % 7) - 3, 15 - float(step) / 2);
            const QImage ours = stage.Render().copy();
            test::RenderImmediate(stage.context, stage.Shown());
            EXPECT_EQ(ours, stage.context.frame) << length << ' ' << step;
        }
    }
}

/// A scene of everything that can stand in each other's way, some of it broken.
class RandomScene {
  public:
    RandomScene(PreviewStage& stage, unsigned seed) : stage_(stage), random_(seed) {}

    void Fill() {
        for (int i = 0; i < 150; ++i) AddAnything();
        auto& brushes = stage_.editor.scene.brushes;
        for (int i = 0; i < 20; ++i) brushes.push_back(brushes[Index(brushes.size())]);
        for (int i = 0; i < 40; ++i) Break(brushes[Index(brushes.size())]);
        for (Brush& brush : brushes) {
            const auto texture = std::int32_t(Index(4));
            for (BrushFace& face : brush.faces) {
                face.texture = texture;
                face.selected = Index(3) == 0;
                face.smooth = brush.shape != Box ? 1 : 0;
            }
            UpdateBrushNormals(brush);
            Touch(brush);
        }
    }
    /// Puts some brushes elsewhere, one of them too far out to stand among the others.
    void MoveSome() {
        auto& brushes = stage_.editor.scene.brushes;
        for (std::size_t i = 0; i < brushes.size(); i += 3) {
            const float x = i == 0 ? 2e6F : Grid(8), z = Grid(8);
            for (Vertex& vertex : brushes[i].vertices) vertex.x += x, vertex.z += z;
            Touch(brushes[i]);
        }
    }
    Camera AnyCamera() {
        return {Number(-9, 9), Number(-2, 7), Number(-9, 9), Number(-50, 30), Number(0, 360), 0};
    }

  private:
    float Number(float least, float most) {
        return std::uniform_real_distribution<float>(least, most)(random_);
    }
    std::size_t Index(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    /// On a grid of halves, so that sides meet and coincide.
    float Grid(float reach) { return std::round(Number(-reach, reach) * 2) / 2; }

    void AddAnything() {
        const bool large = Index(6) == 0;
        const Vec3 at{Grid(10), Grid(4), Grid(10)};
        const float most = large ? 12.0F : 2.0F;
        const Vec3 size{std::round(Number(1, most)), std::round(Number(1, large ? 2.0F : most)),
                        std::round(Number(1, most))};
        const auto shape = static_cast<BrushShape>(Index(4) % 3);
        const int sides = large ? 4 : 3 + int(Index(9));
        Brush& brush =
            stage_.Add(at, {at.x + size.x, at.y + size.y, at.z + size.z}, 0, sides, shape);
        brush.selected = Index(9) == 0;
    }
    void Break(Brush& brush) {
        switch (Index(4)) {
            case 0:
                brush.faces.erase(brush.faces.begin() + std::ptrdiff_t(Index(brush.faces.size())));
                break;
            case 1:
                for (BrushFace& face : brush.faces) std::swap(face.a, face.b);
                break;
            case 2:
                brush.vertices[Index(brush.vertices.size())].x += 0.7F;
                break;
            default:
                brush.faces[Index(brush.faces.size())].invisible = true;
        }
    }

    PreviewStage& stage_;
    std::mt19937 random_;
};

TEST(PreviewOcclusionTest, PicturesOfScenesAtRandomEqualImmediateMode) {
    struct Size {
        int width, height;
    };
    std::size_t sent = 0;
    std::size_t all = 0;
    for (const Size size : {Size{320, 240}, Size{811, 607}}) {  // one and several pixels a cell
        for (unsigned seed = 1; seed <= 3; ++seed) {
            PreviewStage stage(size.width, size.height);
            RandomScene scene(stage, seed);
            scene.Fill();
            for (int view = 0; view < 8; ++view) {
                if (view == 4) scene.MoveSome();
                stage.editor.settings.showInvisible = view % 2 == 0;
                stage.editor.camera = scene.AnyCamera();
                const QImage ours = stage.Render().copy();
                sent += stage.renderer.runs.brushes.Items().size();
                all += stage.editor.scene.brushes.size();
                test::RenderImmediate(stage.context, stage.Shown());
                int different = 0;
                for (int y = 0; y < size.height; ++y) {
                    for (int x = 0; x < size.width; ++x) {
                        different += ours.pixel(x, y) != stage.context.frame.pixel(x, y);
                    }
                }
                EXPECT_LE(different, size.width * size.height / 10000) << seed << ' ' << view;
            }
        }
    }
    EXPECT_LT(sent, all / 4) << "hardly anything is hidden, the test is void";
}

}  // namespace
}  // namespace korvane
