// Editing with the mouse on the real window: pick, add, take away, drag, undo, group.
#include "EditingFixture.h"
#include "views/ui/mRender2D.h"

namespace korvane::test {
namespace {

using EditingGesturesTest = EditingTest;

constexpr QRgb kSelectedLine = qRgb(255, 0, 0);

TEST_F(EditingGesturesTest, BrushesArePickedMovedAndPutBack) {
    ClickTop({-1.5F, 0, 0.25F}, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "*-");
    EXPECT_EQ(Text("txtBrushName"), "Brush-0000");
    ClickTop({1.5F, 0, 0.25F}, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "**");
    EXPECT_EQ(Text("txtBrushName"), "*Multiple Brushes*");
    ClickTop({-1.5F, 0, 0.25F}, Qt::ControlModifier);
    EXPECT_EQ(Selected(), "-*");

    DragTop({1.5F, 0, 0.25F}, {0.5F, 0, 0.75F});
    EXPECT_EQ(BoundsOf(1), (Bounds{{0, 0, -0.5F}, {1, 2, 1.5F}}));
    EXPECT_EQ(BoundsOf(0), kFirst);
    EXPECT_EQ(Shown(View(FrontView)).pixel(At(FrontView, {0.3F, 2, 0})), kSelectedLine);
    EXPECT_EQ(Shown(View(LeftView)).pixel(At(LeftView, {0, 0.7F, 1.5F})), kSelectedLine);

    ASSERT_TRUE(Enabled("mnuUndo"));
    Choose("mnuUndo");
    EXPECT_EQ(BoundsOf(1), kSecond);
    EXPECT_EQ(Selected(), "-*") << "the selection comes back with it";
    Choose("mnuUndo");
    EXPECT_EQ(Selected(), "**") << "and what was clicked last";
}

TEST_F(EditingGesturesTest, EveryViewFollowsADragWhileItRuns) {
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    QWidget* top = View(TopView);
    QTest::mousePress(top, Qt::LeftButton, {}, At(TopView, {-1.5F, 0, 0}));
    for (const float x : {-1.0F, -0.5F, 0.0F}) {
        const QPoint at = At(TopView, {x, 0, 0.5F});
        QMouseEvent move(QEvent::MouseMove, at, top->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(top, &move);
        for (int view = 0; view < kViewCount; ++view) {
            PaintSurface full;
            PaintView(Session(), view, full);
            EXPECT_EQ(Shown(View(view)).convertToFormat(QImage::Format_RGB32), full.image)
                << "view " << view << " at " << x;
        }
    }
    QTest::mouseRelease(top, Qt::LeftButton, {}, At(TopView, {0, 0, 0.5F}));
    EXPECT_EQ(BoundsOf(0), (Bounds{{-0.5F, 0, -0.5F}, {0.5F, 2, 1.5F}}));
}

TEST_F(EditingGesturesTest, TheGroupBoxGroupsTheSelection) {
    auto* box = Find<QLineEdit>("txtBrushGroup");
    EXPECT_FALSE(box->isEnabled());
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    EXPECT_TRUE(Find("lblBrushName")->isEnabled());
    EXPECT_FALSE(Find("txtBrushName")->isEnabled());
    QTest::mouseClick(box, Qt::LeftButton);
    ASSERT_TRUE(box->hasFocus());
    QTest::keyClicks(box, "walls");
    EXPECT_EQ(BrushAt(0).group, "") << "not before Enter";
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(BrushAt(0).group, "walls");
    EXPECT_TRUE(Find("pbFocusKeeper")->hasFocus());

    ClickTop({1.5F, 0, 0}, Qt::ControlModifier);
    EXPECT_EQ(Text("txtBrushGroup"), "*Multiple Groups*");
    EXPECT_FALSE(Find("lblBrushName")->isEnabled());
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(BrushAt(0).group + "|" + BrushAt(1).group, "walls|") << "that text is no group";
    Choose("mnuUnSelect");
    EXPECT_EQ(Text("txtBrushName") + Text("txtBrushGroup"), "");
    EXPECT_FALSE(box->isEnabled());
}

}  // namespace
}  // namespace korvane::test
