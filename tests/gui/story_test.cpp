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

TEST_F(StoryTest, DrawnBoxHasTheDraggedCorners) {
    DrawBox();
    ASSERT_EQ(Session().scene.brushes.size(), 1U);
    EXPECT_THAT(Corners(Session().scene.brushes[0]), kBoxCorners);
    EXPECT_TRUE(Session().scene.brushes[0].selected);
    EXPECT_EQ(Title(), "Korvane - New_Object*");
}

TEST_F(StoryTest, DrawnBoxShowsItsEdgesInEveryView) {
    DrawBox();
    constexpr QRgb kSelected = qRgb(255, 0, 0);
    struct Edge {
        int view;
        Vec3 on;        // a point of an edge, away from corners and grid lines
        bool vertical;  // how the edge runs on the screen
    };
    const Edge edges[] = {
        {TopView, {-1, 0, 0.3F}, true},   {TopView, {1, 0, 0.3F}, true},
        {TopView, {0.3F, 0, -1}, false},  {TopView, {0.3F, 0, 1.5F}, false},
        {LeftView, {0, 0.7F, -1}, true},  {LeftView, {0, 0.7F, 1.5F}, true},
        {LeftView, {0, 0, 0.3F}, false},  {LeftView, {0, 2, 0.3F}, false},
        {FrontView, {-1, 0.7F, 0}, true}, {FrontView, {1, 0.7F, 0}, true},
        {FrontView, {0.3F, 0, 0}, false}, {FrontView, {0.3F, 2, 0}, false},
    };
    for (const Edge& edge : edges) {
        const QImage shown = Shown(Find(QString("pbView%1").arg(edge.view)));
        const QPoint at = At(edge.view, edge.on);
        const QPoint aside = edge.vertical ? QPoint(1, 0) : QPoint(0, 1);
        EXPECT_EQ(shown.pixel(at), kSelected) << edge.view << " " << at.x() << "," << at.y();
        EXPECT_NE(shown.pixel(at + aside), kSelected) << edge.view;
        EXPECT_NE(shown.pixel(at - aside), kSelected) << edge.view;
    }
}

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

TEST_F(StoryTest, SavedBoxOpensAsTheSame) {
    SelectFlatTexture();
    DrawBox();
    const std::string path = PathOf("box.kvobject");
    prompts.paths = {path};
    Choose("mnuSave");
    EXPECT_EQ(Title(), "Korvane - box");
    const QByteArray saved = ReadAll(QString::fromStdString(path));
    EXPECT_TRUE(saved.startsWith("OBSF"));

    Choose("mnuNew");
    EXPECT_THAT(Session().scene.brushes, IsEmpty());
    EXPECT_EQ(Title(), "Korvane - New_Object");

    prompts.paths = {path};
    Choose("mnuOpen");
    EXPECT_EQ(Title(), "Korvane - box");
    ASSERT_EQ(Session().scene.brushes.size(), 1U);
    const Brush& brush = Session().scene.brushes[0];
    EXPECT_THAT(Corners(brush), kBoxCorners);
    EXPECT_EQ(brush.faces[0].texture, Session().textures.IDByFileName("flat.bmp"));

    const std::string again = PathOf("again.kvobject");
    prompts.paths = {again};
    Choose("mnuSaveAs");
    EXPECT_EQ(ReadAll(QString::fromStdString(again)), saved);
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(StoryTest, BadFileIsRefused) {
    QFile bad(folder.filePath("bad.kvobject"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("OBSF and nothing that belongs here");
    bad.close();
    prompts.paths = {PathOf("bad.kvobject")};
    Choose("mnuOpen");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Error: Invalid Korvane File Format!");
    EXPECT_EQ(prompts.messages[0].title, "Error!");
    EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Exclamation);
}

TEST_F(StoryTest, EscapeEndsTheDragWithoutABrush) {
    QWidget* top = Find("pbView0");
    QTest::mousePress(top, Qt::LeftButton, {}, At(TopView, {-1, 0, -1}));
    QTest::mouseMove(top, At(TopView, {1, 0, 1}));
    QTest::keyClick(window.get(), Qt::Key_Escape);
    QTest::mouseRelease(top, Qt::LeftButton, {}, At(TopView, {1, 0, 1}));
    EXPECT_THAT(Session().scene.brushes, IsEmpty());
    EXPECT_EQ(Title(), "Korvane - New_Object");
}

}  // namespace
}  // namespace korvane::test
