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

TEST_F(TextureClickedTest, GivesItToSelectedBrushesOrInFaceEditToSelectedFacesAndFitsIt) {
    Brushes()[0].faces[0].selected = true;  // of a brush that is not selected
    std::int32_t texture = 2;
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove, FaceEdit}) {
        editor.scene.editMode = mode;
        Brushes()[1].faces[4].selected = true;
        texture = 3 - texture;
        editor.SceneModified = false;
        const auto before = Brushes()[1].faces[4].uv;
        const auto revision = Brushes()[1].revision;
        TextureClicked(editor, texture);
        EXPECT_EQ(Count(1, texture), mode == FaceEdit ? 1 : 12) << mode;
        EXPECT_EQ(Brushes()[1].faces[4].texture, texture) << mode;
        EXPECT_EQ(Count(0, 0), 12) << mode;
        EXPECT_NE(Brushes()[1].faces[4].uv, before) << "fitted to the other size, mode " << mode;
        EXPECT_NE(Brushes()[1].revision, revision) << mode;
        EXPECT_TRUE(editor.SceneModified) << mode;
        EXPECT_EQ(host.redraws, unsigned{RedrawPreview}) << mode;
    }
    Brushes()[1].faces[4].selected = false;
    editor.SceneModified = false;
    TextureClicked(editor, 0);
    EXPECT_EQ(Count(1, 0), 0) << "no face selected";
    EXPECT_FALSE(editor.SceneModified);
}

}  // namespace
}  // namespace korvane
