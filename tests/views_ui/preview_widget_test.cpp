// The pane of the preview: frames on request, sizes in device pixels.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "support/PreviewStage.h"
#include "views/ui/ucPreview.h"

namespace korvane {
namespace {

class PreviewWidgetTest : public testing::Test {
  protected:
    PreviewWidgetTest() {
        stage_.editor.settings.show3DGrid = false;
        stage_.LookFrom(0, 0, 3);
        stage_.Add({-0.5F, -0.5F, -0.5F}, {0.5F, 0.5F, 0.5F}, 0);
        pane_.resize(200, 150);
        pane_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&pane_));
        QApplication::processEvents();
    }
    QRgb Middle() { return pane_.grab().toImage().pixel(pane_.rect().center()); }

    test::PreviewStage stage_{64, 64};
    ucPreview pane_{stage_.editor, stage_.context, stage_.textures};
};

TEST_F(PreviewWidgetTest, DrawsAnewOnlyWhenAsked) {
    const QRgb before = Middle();
    EXPECT_NE(before, qRgb(0, 0, 0));
    stage_.editor.scene.brushes.clear();
    EXPECT_EQ(Middle(), before) << "a repaint alone shows the old frame";
    pane_.MarkDirty();
    EXPECT_EQ(Middle(), qRgb(0, 0, 0));
    stage_.editor.settings.colors[ColorItem::View3DBackground] = MakeColor(10, 20, 30);
    ReleaseRenderContext(stage_.context);
    pane_.MarkDirty();
    EXPECT_EQ(Middle(), qRgb(10, 20, 30)) << "without a context the background";
}

TEST_F(PreviewWidgetTest, CtrlClickSelectsWhatIsUnderTheCursor) {
    stage_.Add({0.1F, 0.1F, 0.5F}, {2, 2, 1}, 1);  // fills the quarter at the top right
    const auto& brushes = stage_.editor.scene.brushes;
    const auto click = [&](Qt::KeyboardModifiers modifiers, const QPoint& at) {
        QTest::mouseClick(&pane_, Qt::LeftButton, modifiers, at);
        return std::pair(bool(brushes[0].selected), bool(brushes[1].selected));
    };
    pane_.resize(310, 170);  // the pick goes by the new size even before the next frame
    const QPoint middle = pane_.rect().center();
    const QPoint corner(pane_.width() - 3, 3);
    EXPECT_EQ(click(Qt::ControlModifier, corner), std::pair(false, true));
    EXPECT_EQ(click(Qt::ControlModifier, middle + QPoint(-8, 8)), std::pair(true, true));
    EXPECT_EQ(click(Qt::ControlModifier, corner), std::pair(true, false));
    EXPECT_EQ(click(Qt::ControlModifier, {3, 3}), std::pair(true, false)) << "background";
    EXPECT_EQ(click(Qt::NoModifier, middle), std::pair(true, false));
    EXPECT_EQ(click(Qt::ControlModifier | Qt::ShiftModifier, middle), std::pair(true, false));
    EXPECT_EQ(click(Qt::ControlModifier | Qt::AltModifier, middle), std::pair(true, false));
}

TEST_F(PreviewWidgetTest, TheMouseOverItIsToldInTheStatusBar) {
    stage_.host.status = {{1, "Top"}, {2, "X"}, {3, "Y"}, {4, "Z"}};
    QTest::mouseMove(&pane_, {20, 20});
    QTest::mouseMove(&pane_, {30, 30});
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage_.host.status[1] == "3D"; }));
    for (const int panel : {2, 3, 4}) EXPECT_EQ(stage_.host.status[panel], "") << panel;
}

}  // namespace
}  // namespace korvane
