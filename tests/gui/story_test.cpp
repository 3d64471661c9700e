// The way of a first object: draw it, look at it, save it, open it again.
#include <gmock/gmock.h>

#include "GuiFixture.h"
#include "editor/mTextureCommands.h"

namespace korvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::array<float, 3>> Corners(const Brush& brush) {
    std::vector<std::array<float, 3>> corners;
    for (const Vertex& v : brush.vertices) corners.push_back({v.x, v.y, v.z});
    return corners;
}

using C = std::array<float, 3>;
const auto kBoxCorners = ElementsAre(C{-1, 2, -1}, C{-1, 2, 1.5F}, C{1, 2, 1.5F}, C{1, 2, -1},  //
                                     C{-1, 0, -1}, C{-1, 0, 1.5F}, C{1, 0, 1.5F}, C{1, 0, -1});

bool Near(QRgb shown, const QColor& wanted, int tolerance) {
    return std::abs(qRed(shown) - wanted.red()) <= tolerance &&
           std::abs(qGreen(shown) - wanted.green()) <= tolerance &&
           std::abs(qBlue(shown) - wanted.blue()) <= tolerance;
}

class StoryTest : public GuiTest {
  protected:
    void SelectFlatTexture() {
        TextureClicked(Session(), Session().textures.IDByFileName("flat.bmp"));
        ASSERT_NE(Session().textures.Selected(), 0);
    }
};

TEST_F(StoryTest, DrawnBoxShowsItsTextureInThePreview) {
    SelectFlatTexture();
    DrawBox();
    QWidget* preview = Find("pbOpenGL");
    const QPoint centre = preview->rect().center();
    // The front face lies in the middle: ambient light plus the share of the slanting one.
    constexpr double kLight = 0.25 + 0.2 + 0.8 * 0.5 / 1.3463;
    const QColor selected(int(200 * kLight), int(100 * kLight * 0.5), int(50 * kLight * 0.5));
    EXPECT_TRUE(Near(Shown(preview).pixel(centre), selected, 4));
    QTest::mouseClick(Find("pbView0"), Qt::RightButton, {}, QPoint(60, 60));
    EXPECT_FALSE(Session().scene.brushes[0].selected);
    const QColor plain(int(200 * kLight), int(100 * kLight), int(50 * kLight));
    EXPECT_TRUE(Near(Shown(preview).pixel(centre), plain, 4));
}

TEST_F(StoryTest, DrawnBoxIsSavedAndOpensAsTheSame) {
    SelectFlatTexture();
    DrawBox();
    ASSERT_EQ(Session().scene.brushes.size(), 1U);
    EXPECT_THAT(Corners(Session().scene.brushes[0]), kBoxCorners);
    EXPECT_TRUE(Session().scene.brushes[0].selected);
    EXPECT_EQ(Title(), "Korvane - New_Object*");
    prompts.paths = {PathOf("box.kvobject")};
    Choose("mnuSave");
    EXPECT_EQ(Title(), "Korvane - box");
    const QByteArray saved = ReadAll(folder.filePath("box.kvobject"));

    Choose("mnuNew");
    EXPECT_THAT(Session().scene.brushes, IsEmpty());
    EXPECT_EQ(Title(), "Korvane - New_Object");
    prompts.paths = {PathOf("box.kvobject"), PathOf("again.kvobject")};
    Choose("mnuOpen");
    EXPECT_EQ(Title(), "Korvane - box");
    ASSERT_EQ(Session().scene.brushes.size(), 1U);
    EXPECT_THAT(Corners(Session().scene.brushes[0]), kBoxCorners);
    EXPECT_EQ(Session().scene.brushes[0].faces[0].texture, Session().textures.Selected());
    Choose("mnuSaveAs");
    EXPECT_EQ(ReadAll(folder.filePath("again.kvobject")), saved);
    EXPECT_THAT(prompts.messages, IsEmpty());
}

}  // namespace
}  // namespace korvane::test
