// Copy, paste, delete; selecting by text, texture and polygon.
#include <gtest/gtest.h>

#include "scene/mClipboard.h"
#include "scene/mSelection.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

class ClipboardTest : public testing::Test, protected SceneMaker {
  protected:
    ClipboardTest() {
        for (int i = 0; i < 6; ++i) {
            const auto x = static_cast<float>(i);
            Create(i == 3 ? Cone : Box, 4, {x, 0, 0}, {x + 1, 1, 1});
        }
    }

    std::vector<Brush>& Brushes() { return scene.brushes; }

    /// Left ends of the brushes: which one is which.
    std::string Places() const {
        std::string places;
        for (const Brush& brush : scene.brushes) {
            places += std::to_string(static_cast<int>(brush.vertices[0].x));
        }
        return places;
    }
};

TEST_F(ClipboardTest, DeletingKeepsTheOthersInOrderAndNumbersThem) {
    Brushes()[0].name = "own name";
    for (const std::size_t i : {2U, 3U, 4U}) Brushes()[i].selected = true;
    DeleteSelectedBrushes(scene);
    EXPECT_EQ(Places(), "015");
    for (std::int32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Brushes()[static_cast<std::size_t>(i)].name, DefaultBrushName(i));
    }
    Brushes()[1].name = "kept";
    DeleteSelectedBrushes(scene);
    EXPECT_EQ(Brushes()[1].name, "kept") << "nothing was deleted";
}

TEST_F(ClipboardTest, APasteIsAFullCopyWithoutInnerSelection) {
    Brush& source = Brushes()[3];
    source.selected = true;
    source.name = "tower";
    source.group = "castle";
    source.faces[1].selected = true;
    source.vertices[1].selected = true;
    source.faces[1].uv[0] = {7, 8};  // stale: a paste does not recompute
    source.faces[1].smooth = 1;
    CopySelection(scene);
    EXPECT_EQ(scene.clipboard[0].name, "tower");
    EXPECT_TRUE(scene.clipboard[0].faces[1].selected);
    PasteClipboard(scene);
    PasteClipboard(scene);
    ASSERT_EQ(Brushes().size(), 8U);
    EXPECT_EQ(Places(), "01234533");
    EXPECT_EQ(SelectedFlags(scene.brushes), "00000001") << "the last paste only";
    const Brush& copy = Brushes()[7];
    EXPECT_EQ(copy.name, "Brush-0007");
    EXPECT_EQ(copy.group, "castle");
    EXPECT_EQ(copy.shape, Cone);
    EXPECT_EQ(copy.faces[1].uv[0], (TexCoord{7, 8}));
    EXPECT_EQ(copy.faces[1].smooth, 1);
    EXPECT_FALSE(copy.faces[1].selected);
    EXPECT_FALSE(copy.vertices[1].selected);
}

TEST_F(ClipboardTest, TextsSelectIgnoringCaseAndAddToTheSelection) {
    const std::vector<std::string> names = {"Box", "b\u00D6x", "box", "", "", ""};
    const std::vector<std::string> groups = {"", "", "", "Wall", "wALL", ""};
    for (std::size_t i = 0; i < 6; ++i) {
        Brushes()[i].name = names[i];
        Brushes()[i].group = groups[i];
        Brushes()[i].faces[0].selected = true;
        Brushes()[i].vertices[0].selected = true;
    }
    Brushes()[5].selected = true;
    SelectByName(scene, std::vector<std::string>{"BOX"});
    EXPECT_EQ(SelectedFlags(scene.brushes), "101001");
    EXPECT_FALSE(Brushes()[2].faces[0].selected);
    EXPECT_FALSE(Brushes()[2].vertices[0].selected);
    EXPECT_TRUE(Brushes()[5].faces[0].selected) << "others keep their state";
    SelectByName(scene, std::vector<std::string>{"B\u00F6X", "no such name"});
    EXPECT_EQ(SelectedFlags(scene.brushes), "111001");
    SelectByGroup(scene, std::vector<std::string>{"wall"});
    EXPECT_EQ(SelectedFlags(scene.brushes), "111111");
}

TEST_F(ClipboardTest, ATextureSelectsItsWearersAndLeavesTheirFacesAlone) {
    Brushes()[1].faces[11].texture = 2;
    Brushes()[4].faces[0].texture = 0;
    Brushes()[1].faces[3].selected = true;
    SelectByTexture(scene, std::vector<std::int32_t>{2});
    EXPECT_EQ(SelectedFlags(scene.brushes), "010000");
    EXPECT_TRUE(Brushes()[1].faces[3].selected);
    SelectByTexture(scene, std::vector<std::int32_t>{0});
    EXPECT_EQ(SelectedFlags(scene.brushes), "010010");
}

TEST_F(ClipboardTest, APolygonIsToggledByThePickedFace) {
    Brush& brush = Brushes()[0];
    brush.faces[1].selected = true;
    ToggleFacePolygon(brush, 0);  // the top cap: faces 0 and 1
    EXPECT_EQ(SelectedFlags(brush.faces), "110000000000");
    ToggleFacePolygon(brush, 5);
    EXPECT_EQ(SelectedFlags(brush.faces), "110011000000");
    const auto revision = brush.revision;
    ToggleFacePolygon(brush, 1);
    EXPECT_EQ(SelectedFlags(brush.faces), "000011000000");
    EXPECT_NE(brush.revision, revision);
}

}  // namespace
}  // namespace korvane
