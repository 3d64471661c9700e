// Menus as they are seen, and the keys beside them.
#include "GuiFixture.h"

namespace korvane::test {
namespace {

using MenuTest = GuiTest;

TEST_F(MenuTest, TheHighlightedItemsIconHasTheColorOfItsText) {
    auto* menu = Find<QMenu>("mnuFile");
    auto* item = Find<QAction>("mnuOpen");
    menu->popup(window->mapToGlobal(QPoint(20, 20)));
    menu->setActiveAction(item);
    const QImage shown = menu->grab().toImage();
    menu->close();
    const QRect row = menu->actionGeometry(item);
    const QColor text = menu->palette().color(QPalette::HighlightedText);
    int inColor = 0;
    for (int y = row.top(); y <= row.bottom(); ++y)
        for (int x = row.left(); x < row.left() + 24; ++x)
            inColor += shown.pixelColor(x, y) == text;
    EXPECT_GT(inColor, 20);
}

TEST_F(MenuTest, RedoHasTheKeyOfOtherDesktopsToo) {
    DrawBox();
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(Session().scene.brushCount(), 0);
    QTest::keyClick(window.get(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Session().scene.brushCount(), 1);
}

}  // namespace
}  // namespace korvane::test
