// The widgets of the 2D views and the depth gauge under real mouse and paint events.
#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <functional>

#include "editor/mViews.h"
#include "scene/mBrush.h"
#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "support/RecordingHost.h"
#include "views/ui/mRender2D.h"
#include "views/ui/ucDepthGauge.h"
#include "views/ui/ucView.h"

namespace korvane {
namespace {

/// A host that forwards redraw requests to one view, as the window does for all.
struct OneViewHost : test::RecordingHost {
    ucView* view = nullptr;
    void RequestRedraw(unsigned set) override {
        RecordingHost::RequestRedraw(set);
        if (set & RedrawView(TopView)) view->MarkDirty();
        if (set & RedrawSelection(TopView)) view->MarkSelectionDirty();
        if (set & RedrawOverlay(TopView)) view->update();
    }
};

class ViewWidgetTest : public testing::Test {
  protected:
    ViewWidgetTest() {
        host.view = &view;
        // Events of the real pointer over the view would mix with those sent here.
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
        editor.settings.showRulers = false;
        view.resize(400, 300);
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    void DragTo(const QPoint& from, const QPoint& to) {
        QTest::mousePress(&view, Qt::LeftButton, {}, from);
        QTest::mouseMove(&view, to);
        QCoreApplication::processEvents();
    }

    OneViewHost host;
    test::ScriptedPrompts prompts;
    Editor editor{host, prompts};
    ucView view{editor, TopView};
};

TEST_F(ViewWidgetTest, ADragShowsItsRectangleWithoutRecomposing) {
    DragTo({200, 150}, {280, 230});
    const QRgb red = PixelOf(editor.settings.colors[ColorItem::View2DSelectedBrushes]);
    const auto redPixels = [&](const QImage& image) {
        int count = 0;
        for (int x = 200; x <= 280; ++x) count += image.pixel(x, 230) == red;
        return count;
    };
    EXPECT_GT(redPixels(view.grab().toImage()), 15);
    EXPECT_EQ(redPixels(view.Picture()), 0) << "the composed picture stays clean";
    EXPECT_FALSE(host.redraws & RedrawView(TopView));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {280, 230});
    ASSERT_EQ(editor.scene.brushCount(), 1);
    EXPECT_EQ(BrushBounds(editor.scene.brushes[0]), (Bounds{{0, 0, 0}, {1, 2, 1}}));
    EXPECT_EQ(redPixels(view.grab().toImage()), 81);
}

TEST_F(ViewWidgetTest, EscapeEndsADrag) {
    QWidget elsewhere;  // the keyboard focus need not lie in the view
    DragTo({200, 150}, {280, 230});
    QTest::keyClick(&elsewhere, Qt::Key_Escape);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {280, 230});
    EXPECT_EQ(editor.scene.brushCount(), 0);
    EXPECT_EQ(view.grab().toImage(), view.Picture().convertToFormat(QImage::Format_RGB32));
    DragTo({200, 150}, {280, 230});
    view.hide();
    EXPECT_FALSE(CurrentRubberBand(editor, TopView));
}

/// A drag of one of two boxes: what the view keeps behind it must never show.
class SelectionDragTest : public ViewWidgetTest {
  protected:
    SelectionDragTest() {
        CreateBrush(editor.scene, {-2, 0, -1}, {-1, 1, 0}, 4, editor.Space());
        CreateBrush(editor.scene, {0, 0, 0}, {1, 1, 1}, 4, editor.Space());
        SelectOnly(editor.scene, 1);
        view.MarkDirty();
    }

    void MoveTo(const QPoint& to) {
        QTest::mouseMove(&view, to);
        QCoreApplication::processEvents();
    }

    void ExpectFullPicture(const char* when) {
        PaintSurface full;
        PaintView(editor, TopView, full);
        EXPECT_EQ(view.Picture(), full.image) << when;
    }
};

TEST_F(SelectionDragTest, EveryStepKeepsWhatStandsStill) {
    DragTo({240, 190}, {256, 190});
    ExpectFullPicture("first step");
    MoveTo({280, 222});
    ExpectFullPicture("second step");
    EXPECT_EQ(BrushBounds(editor.scene.brushes[1]), (Bounds{{0.5F, 0, 0.4F}, {1.5F, 1, 1.4F}}));
    const float x = editor.scene.brushes[0].vertices[0].x;
    editor.scene.brushes[0].vertices[0].x = x + 0.5F;  // behind the drag's back
    MoveTo({288, 222});
    editor.scene.brushes[0].vertices[0].x = x;
    ExpectFullPicture("only the selection was drawn anew");
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {288, 222});
    QCoreApplication::processEvents();
    ExpectFullPicture("released");
}

TEST_F(SelectionDragTest, WhatChangesMeanwhileIsShown) {
    const struct {
        const char* what;
        std::function<void()> change;
    } cases[] = {
        {"colours", [&] { editor.settings.colors[ColorItem::GridMinor] = MakeColor(1, 2, 3); }},
        {"rulers", [&] { editor.settings.showRulers = !editor.settings.showRulers; }},
        {"zoom", [&] { ZoomIn(editor); }},
        {"another selection", [&] { SelectOnly(editor.scene, 0); }},
        {"Escape, and another place",
         [&] {
             QTest::keyClick(&view, Qt::Key_Escape);
             editor.scene.brushes[0].vertices[0].x += 0.5F;
         }},
        {"an empty scene", [&] { ClearScene(editor.scene); }},
    };
    for (const auto& c : cases) {
        DragTo({240, 190}, {264, 190});
        MoveTo({272, 190});  // from the second step on, a backdrop is used
        c.change();
        RedrawAllViews(editor);
        for (const QPoint& to : {QPoint(288, 206), QPoint(240, 190)}) {
            MoveTo(to);
            ExpectFullPicture(c.what);
        }
        QTest::mouseRelease(&view, Qt::LeftButton, {}, {240, 190});
    }
    view.resize(320, 240);
    QCoreApplication::processEvents();
    ExpectFullPicture("resized");
}

TEST_F(SelectionDragTest, DraggedVerticesPrintTheCursorAboveIt) {
    editor.scene.editMode = VertexMove;
    DragTo({280, 230}, {304, 230});
    const QImage shown = view.grab().toImage();
    const QRgb red = PixelOf(editor.settings.colors[ColorItem::View2DSelectedBrushes]);
    const int height = QFontMetrics(ViewFont()).height();
    int inked = 0;
    for (int y = 230 - height; y < 230; ++y)
        for (int x = 308; x < 370; ++x) {
            inked += shown.pixel(x, y) != view.Picture().pixel(x, y);
            EXPECT_NE(view.Picture().pixel(x, y), red) << "the composed picture stays clean";
        }
    EXPECT_GT(inked, 20);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {304, 230});
    QCoreApplication::processEvents();
    EXPECT_EQ(view.grab().toImage(), view.Picture().convertToFormat(QImage::Format_RGB32));
}

TEST_F(ViewWidgetTest, TheGaugeDragsItsLevels) {
    ucDepthGauge gauge(editor);
    gauge.resize(60, 400);
    gauge.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&gauge));
    QTest::mousePress(&gauge, Qt::LeftButton, {}, {30, 40});  // HI = 2 lies at 200 - 160
    QTest::mouseMove(&gauge, {30, 120});
    QCoreApplication::processEvents();
    QTest::mouseRelease(&gauge, Qt::LeftButton, {}, {30, 120});
    EXPECT_EQ(editor.depthRange.HI, 1.0F);
    gauge.MarkDirty();
    EXPECT_EQ(gauge.grab().toImage().pixel(59, 100),
              PixelOf(editor.settings.colors[ColorItem::DepthGaugeHigh]));
}

}  // namespace
}  // namespace korvane
