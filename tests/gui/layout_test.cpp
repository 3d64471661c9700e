// The panes of the real window: which are shown where, and the grip that divides them.
#include "GuiFixture.h"

namespace korvane::test {
namespace {

class LayoutTest : public GuiTest {
  protected:
    QStringList VisiblePanes() {
        QStringList visible;
        for (const char* name : {"pbOpenGL", "pbView0", "pbView1", "pbView2"}) {
            if (Find(name)->isVisible()) visible += name;
        }
        return visible;
    }

    /// No two of the surfaces overlap, and all lie inside the workspace.
    void ExpectDisjoint() {
        QList<QWidget*> all;
        for (const char* name : {"conProps", "pbOpenGL", "pbView0", "pbView1", "pbView2", "pbDepth",
                                 "ucTextureList"}) {
            if (Find(name)->isVisible()) all += Find(name);
        }
        for (int i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(window->Workspace().rect().contains(all[i]->geometry()))
                << all[i]->objectName().toStdString();
            for (int j = 0; j < i; ++j) {
                EXPECT_FALSE(all[i]->geometry().intersects(all[j]->geometry()))
                    << all[i]->objectName().toStdString() << " over "
                    << all[j]->objectName().toStdString();
            }
        }
    }
};

TEST_F(LayoutTest, EachLayoutShowsItsPanes) {
    struct Row {
        const char* command;
        QStringList panes;
    };
    const Row rows[] = {
        {"mnuViewTop", {"pbView0"}},
        {"mnuViewLeft", {"pbView1"}},
        {"mnuViewFront", {"pbView2"}},
        {"mnuView3D", {"pbOpenGL"}},
        {"mnuView4Way", {"pbOpenGL", "pbView0", "pbView1", "pbView2"}},
    };
    for (const Row& row : rows) {
        Choose(row.command);
        EXPECT_EQ(VisiblePanes(), row.panes) << row.command;
        EXPECT_EQ(Find("SplitGrip")->isVisible(), row.panes.size() == 4) << row.command;
        ExpectDisjoint();
    }
}

TEST_F(LayoutTest, ViewsKnowTheirSizeAndCentreTheirOrigin) {
    for (const char* command : {"mnuView4Way", "mnuViewTop"}) {
        Choose(command);
        const QWidget* top = Find("pbView0");
        EXPECT_EQ(Session().views[TopView].width, top->width());
        EXPECT_EQ(Session().views[TopView].originX, top->width() / 2);
        EXPECT_EQ(Session().views[TopView].originY, top->height() / 2);
    }
}

TEST_F(LayoutTest, GripMovesBothSplits) {
    QWidget* grip = Find("SplitGrip");
    const QRect before = Find("pbOpenGL")->geometry();
    // Pressed in the gap, 13 pixels into the grip; the split follows the pointer.
    Drag(grip, QPoint(13, 13), QPoint(13 - 100, 13 + 60));
    const QRect after = Find("pbOpenGL")->geometry();
    EXPECT_NEAR(after.width(), before.width() - 100, 4);
    EXPECT_NEAR(after.height(), before.height() + 60, 4);
    ExpectDisjoint();
    const QRect top = Find("pbView0")->geometry(), left = Find("pbView1")->geometry();
    EXPECT_EQ(top.topLeft(), QPoint(after.left() + after.width() + 2, after.top()));
    EXPECT_EQ(left.topLeft(), QPoint(after.left(), after.top() + after.height() + 2));
    EXPECT_EQ(Find("pbView2")->geometry().topLeft(), QPoint(top.left(), left.top()));
    Drag(grip, QPoint(13, 13), QPoint(-5000, -5000));
    EXPECT_EQ(Find("pbOpenGL")->width(), 0);
    Drag(grip, QPoint(13, 13), QPoint(300, 200));  // even from there it comes back
    EXPECT_GT(Find("pbOpenGL")->width(), 200);
    Choose("mnuResetAllViews");
    EXPECT_EQ(Find("pbOpenGL")->geometry(), before);
}

TEST_F(LayoutTest, SmallestWindowStillHoldsEverything) {
    window->resize(640, 480);
    QTest::qWait(100);
    EXPECT_EQ(window->size(), QSize(640, 480));
    ExpectDisjoint();
    EXPECT_GT(Find("pbView2")->height(), 40);
}

TEST_F(LayoutTest, ManyRequestsBetweenTwoFramesPaintOnce) {
    struct Counter : QObject {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint;
            return false;
        }
    };
    QTest::qWait(50);
    Counter counter;
    for (const char* name : {"pbView0", "pbView1", "pbView2", "pbDepth", "pbOpenGL"}) {
        Find(name)->installEventFilter(&counter);
    }
    for (int i = 0; i < 10; ++i) RefreshAll(Session());
    EXPECT_EQ(counter.paints, 0);
    QTest::qWait(50);
    EXPECT_EQ(counter.paints, 5);
}

TEST_F(LayoutTest, PropertyPanelHoldsItsControlsUncut) {
    for (const char* name :
         {"txtBrushName",       "txtBrushGroup",      "chkFlagInvisible", "chkFlagSmooth",
          "chkFlagTransparent", "hsTransparent",      "lblTransparent",   "chkTexLocal",
          "txtTextureOffset_0", "txtTextureOffset_1", "lblOffset",        "txtTextureRepeat_0",
          "txtTextureRepeat_1", "lblRepeat",          "chkRotate",        "hsRotate",
          "lblRotate",          "chkFlipped",         "chkMirrored",      "lblBrushName",
          "lblBrushGroup"}) {
        const QWidget* control = Find(name);
        EXPECT_FALSE(control->isEnabled()) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect()) << name;
    }
}

}  // namespace
}  // namespace korvane::test
