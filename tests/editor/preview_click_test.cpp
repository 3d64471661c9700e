// The Ctrl + click in the preview: which mode toggles what.
#include "editor/mPreviewClick.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

class PreviewClickTest : public test::SessionTest {
  protected:
    PreviewClickTest() {
        AddBox({0, 0, 0}, {1, 1, 1});
        AddBox({2, 3, 0}, {3, 5, 1});
    }
    void Click(std::int32_t hit) {
        ClickPreview(editor, [&] { return ++picks, hit; });
    }
    /// The faces of a brush that are selected.
    std::vector<int> SelectedFaces(std::size_t brush) {
        std::vector<int> faces;
        for (int f = 0; const BrushFace& face : Brushes()[brush].faces) {
            if (face.selected) faces.push_back(f);
            ++f;
        }
        return faces;
    }
    int picks = 0;
};

TEST_F(PreviewClickTest, TogglesBrushesInEveryModeWhileNoneOrNoFaceIsMeant) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        Click(1);
        EXPECT_EQ(Selected(), "01") << mode;
        EXPECT_EQ(editor.depthRange.HI, 5) << mode;
        Click(0);
        EXPECT_EQ(Selected(), "11") << mode;
        EXPECT_EQ(editor.depthRange.LO, 0) << mode;
        Click(0);
        EXPECT_EQ(editor.depthRange.LO, 3) << mode << ": the remaining selection counts";
        Click(1);
        EXPECT_EQ(Selected(), "00") << mode;
        EXPECT_EQ(editor.depthRange.LO, 3) << mode << ": nothing selected changes nothing";
    }
    editor.scene.editMode = FaceEdit;
    Click(0);
    EXPECT_EQ(Selected(), "10") << "Face Edit without a selected brush";
    EXPECT_EQ(SnapshotFiles(), 0);
    EXPECT_FALSE(editor.SceneModified);
}

TEST_F(PreviewClickTest, FaceEditTogglesThePolygonOfTheOneSelectedBrush) {
    editor.scene.editMode = FaceEdit;
    Brushes()[1].selected = true;
    const std::uint64_t before = Brushes()[1].revision;
    const auto& faces = Brushes()[1].faces;
    ASSERT_EQ(faces[4].polygonId, faces[5].polygonId);
    Click(5);
    EXPECT_EQ(SelectedFaces(1), (std::vector{4, 5}));
    EXPECT_NE(Brushes()[1].revision, before);
    Click(4);
    EXPECT_TRUE(SelectedFaces(1).empty());
    EXPECT_EQ(Selected(), "01");
    EXPECT_TRUE(SelectedFaces(0).empty());
}

TEST_F(PreviewClickTest, FaceEditWithTwoSelectedBrushesDoesNotEvenPick) {
    editor.scene.editMode = FaceEdit;
    Brushes()[0].selected = Brushes()[1].selected = true;
    Click(0);
    EXPECT_EQ(picks, 0);
    EXPECT_EQ(Selected(), "11");
    EXPECT_EQ(host.panelRefreshes, 1) << "the refresh runs all the same";
}

TEST_F(PreviewClickTest, AMissChangesNothingButRefreshes) {
    Brushes()[0].selected = true;
    for (const EditMode mode : {BrushMove, FaceEdit}) {
        editor.scene.editMode = mode;
        const auto before = SceneBytes();
        for (const std::int32_t miss : {-1, 4711}) Click(miss);
        EXPECT_EQ(SceneBytes(), before);
    }
    EXPECT_EQ(host.panelRefreshes, 4);
    EXPECT_EQ(host.redraws & RedrawAll, unsigned{RedrawAll});
}

}  // namespace
}  // namespace korvane
