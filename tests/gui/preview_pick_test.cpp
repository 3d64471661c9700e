// Picking with Ctrl + click in the preview of the real window.
#include "EditingFixture.h"

namespace korvane {
namespace {

class PreviewPickStory : public test::EditingTest {
  protected:
    /// Looks along X at both boxes, of which one hides the other.
    void LookFromX(float x) { Session().camera = {x, 1, 0, 0, x > 0 ? 90.0F : 270.0F, 0}; }

    void CtrlClickMiddle() {
        QWidget* preview = Find("pbOpenGL");
        QTest::mouseClick(preview, Qt::LeftButton, Qt::ControlModifier, preview->rect().center());
    }

    std::ptrdiff_t SelectedFaces(std::size_t brush) {
        return std::ranges::count_if(BrushAt(brush).faces,
                                     [](const BrushFace& face) { return bool(face.selected); });
    }
};

TEST_F(PreviewPickStory, BrushesFromBothSidesThenASideOfOne) {
    Session().depthRange = {9, 7};
    LookFromX(8);
    CtrlClickMiddle();
    EXPECT_EQ(Selected(), "-*");
    EXPECT_EQ(Session().depthRange.HI, 2) << "the selection's extent";
    EXPECT_TRUE(Enabled("mnuDelete")) << "commands follow";
    LookFromX(-8);
    CtrlClickMiddle();
    EXPECT_EQ(Selected(), "**");
    CtrlClickMiddle();
    EXPECT_EQ(Selected(), "-*");

    Session().scene.editMode = FaceEdit;
    CtrlClickMiddle();
    EXPECT_EQ(SelectedFaces(1), 0) << "the other box stands in front";
    LookFromX(8);
    const QImage before = Shown(Find("pbOpenGL"));
    CtrlClickMiddle();
    EXPECT_EQ(SelectedFaces(1), 2) << "both triangles of the side";
    EXPECT_NE(Shown(Find("pbOpenGL")), before) << "tinted";
    CtrlClickMiddle();
    EXPECT_EQ(SelectedFaces(1), 0);
    EXPECT_EQ(SelectedFaces(0), 0);
    EXPECT_EQ(Selected(), "-*");
}

}  // namespace
}  // namespace korvane
