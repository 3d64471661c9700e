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
    int picks = 0;
};

TEST_F(PreviewClickTest, TogglesBrushesInEveryModeWhileNoneOrNoFaceIsMeant) {
    for (const EditMode mode : {BrushMove, EdgeMove, VertexMove}) {
        editor.scene.editMode = mode;
        Click(1);
        EXPECT_EQ(Selected(), "01") << mode;
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
    Click(5);
    EXPECT_EQ(SelectedFlags(Brushes()[1].faces), "000011000000");
    EXPECT_NE(Brushes()[1].revision, before);
    Brushes()[1].faces[0].selected = true;
    Click(1);  // the top, of which the other triangle is selected
    EXPECT_EQ(SelectedFlags(Brushes()[1].faces), "110011000000");
    Click(4);
    EXPECT_EQ(SelectedFlags(Brushes()[1].faces), "110000000000");
    EXPECT_EQ(SelectedFlags(Brushes()[0].faces), "000000000000");
    EXPECT_EQ(Selected(), "01");
}

TEST_F(PreviewClickTest, AMissChangesNothingAndTwoBrushesAreNotEvenPicked) {
    Brushes()[0].selected = true;
    const auto before = SceneBytes();
    for (const EditMode mode : {BrushMove, FaceEdit}) {
        editor.scene.editMode = mode;
        for (const std::int32_t miss : {-1, 4711}) Click(miss);
        EXPECT_EQ(SceneBytes(), before);
    }
    EXPECT_EQ(host.redraws & RedrawAll, unsigned{RedrawAll});
    Brushes()[1].selected = true;
    Click(0);
    EXPECT_EQ(picks, 4);
    EXPECT_EQ(Selected(), "11");
    EXPECT_EQ(host.panelRefreshes, 5) << "the refresh runs all the same";
}

}  // namespace
}  // namespace korvane
