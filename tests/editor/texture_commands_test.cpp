// A click in the texture browser, in every edit mode.
#include <gtest/gtest.h>

#include <algorithm>

#include "editor/mTextureCommands.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

class TextureClickedTest : public test::SessionTest {
  protected:
    TextureClickedTest() {
        editor.textures.AddTexture("wide.bmp", 512, 64);
        editor.textures.AddTexture("small.bmp", 64, 64);
        AddBox({0, 0, 0}, {1, 1, 1});
        AddSelected({0, 0, 0}, {1, 1, 1});
    }

    /// How many faces of a brush wear the texture.
    std::ptrdiff_t Count(std::size_t brush, std::int32_t texture) {
        return std::ranges::count(Brushes()[brush].faces, texture, &BrushFace::texture);
    }
};

TEST_F(TextureClickedTest, WithoutASelectionOnlyTheLibraryChanges) {
    Brushes()[1].selected = false;
    TextureClicked(editor, 1);
    EXPECT_EQ(editor.textures.Selected(), 1);
    EXPECT_EQ(Count(0, 0), 12);
    EXPECT_FALSE(editor.SceneModified);
    EXPECT_EQ(host.redrawRequests, 0);
}

TEST_F(TextureClickedTest, GivesSelectedBrushesTheTextureAndFitsIt) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        editor.SceneModified = false;
        host.redraws = 0;
        const std::int32_t texture = mode == EdgeMove ? 2 : 1;
        const auto before = Brushes()[1].faces[4].uv;
        const auto revision = Brushes()[1].revision;
        TextureClicked(editor, texture);
        EXPECT_EQ(Count(1, texture), 12) << mode;
        EXPECT_EQ(Count(0, 0), 12) << mode;
        EXPECT_NE(Brushes()[1].faces[4].uv, before) << "fitted to the other size, mode " << mode;
        EXPECT_NE(Brushes()[1].revision, revision) << mode;
        EXPECT_TRUE(editor.SceneModified) << mode;
        EXPECT_EQ(host.redraws, unsigned{RedrawPreview}) << mode;
    }
}

TEST_F(TextureClickedTest, InFaceEditOnlySelectedFacesGetIt) {
    editor.scene.editMode = FaceEdit;
    TextureClicked(editor, 1);
    EXPECT_EQ(Count(1, 1), 0) << "no face selected";
    EXPECT_FALSE(editor.SceneModified);
    EXPECT_EQ(host.redraws, unsigned{RedrawPreview}) << "drawn anyway";
    Brushes()[0].faces[0].selected = true;  // of a brush that is not selected
    Brushes()[1].faces[2].selected = true;
    TextureClicked(editor, 2);
    EXPECT_EQ(Count(0, 2), 0);
    EXPECT_EQ(Count(1, 2), 1);
    EXPECT_EQ(Brushes()[1].faces[2].texture, 2);
    EXPECT_TRUE(editor.SceneModified);
}

}  // namespace
}  // namespace korvane
