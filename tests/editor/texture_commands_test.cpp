// A click in the texture browser, in every edit mode.
#include <gtest/gtest.h>

#include "editor/mTextureCommands.h"
#include "scene/mBrush.h"
#include "support/RecordingHost.h"

namespace korvane {
namespace {

class TextureClickedTest : public testing::Test {
  protected:
    TextureClickedTest() {
        editor_.textures.AddTexture("wide.bmp", 512, 64);
        editor_.textures.AddTexture("small.bmp", 64, 64);
        for (int i = 0; i < 2; ++i) {
            CreateBrush(editor_.scene, {0, 0, 0}, {1, 1, 1}, 4, editor_.Space());
        }
        Brushes()[1].selected = true;
    }

    std::vector<Brush>& Brushes() { return editor_.scene.brushes; }
    int Count(const Brush& brush, std::int32_t texture) {
        int count = 0;
        for (const BrushFace& face : brush.faces) count += face.texture == texture;
        return count;
    }

    test::RecordingHost host_;
    test::ScriptedPrompts prompts_;
    Editor editor_{host_, prompts_};
};

TEST_F(TextureClickedTest, WithoutASelectionOnlyTheLibraryChanges) {
    Brushes()[1].selected = false;
    TextureClicked(editor_, 1);
    EXPECT_EQ(editor_.textures.Selected(), 1);
    EXPECT_EQ(Count(Brushes()[0], 0), 12);
    EXPECT_FALSE(editor_.SceneModified);
    EXPECT_EQ(host_.redrawRequests, 0);
}

TEST_F(TextureClickedTest, GivesSelectedBrushesTheTextureAndFitsIt) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor_.scene.editMode = mode;
        editor_.SceneModified = false;
        host_.redraws = 0;
        const std::int32_t texture = mode == EdgeMove ? 2 : 1;
        const auto before = Brushes()[1].faces[4].uv;
        const auto revision = Brushes()[1].revision;
        TextureClicked(editor_, texture);
        EXPECT_EQ(Count(Brushes()[1], texture), 12) << mode;
        EXPECT_EQ(Count(Brushes()[0], 0), 12) << mode;
        EXPECT_NE(Brushes()[1].faces[4].uv, before) << "fitted to the other size, mode " << mode;
        EXPECT_NE(Brushes()[1].revision, revision) << mode;
        EXPECT_TRUE(editor_.SceneModified) << mode;
        EXPECT_EQ(host_.redraws, unsigned{RedrawPreview}) << mode;
    }
}

TEST_F(TextureClickedTest, InFaceEditOnlySelectedFacesGetIt) {
    editor_.scene.editMode = FaceEdit;
    TextureClicked(editor_, 1);
    EXPECT_EQ(Count(Brushes()[1], 1), 0) << "no face selected";
    EXPECT_FALSE(editor_.SceneModified);
    EXPECT_EQ(host_.redraws, unsigned{RedrawPreview}) << "drawn anyway";
    Brushes()[0].faces[0].selected = true;  // of a brush that is not selected
    Brushes()[1].faces[2].selected = true;
    TextureClicked(editor_, 2);
    EXPECT_EQ(Count(Brushes()[0], 2), 0);
    EXPECT_EQ(Count(Brushes()[1], 2), 1);
    EXPECT_EQ(Brushes()[1].faces[2].texture, 2);
    EXPECT_TRUE(editor_.SceneModified);
}

}  // namespace
}  // namespace korvane
