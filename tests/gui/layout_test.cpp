// The panes of the real window: which are shown where, and the grip that divides them.
#include <QScrollArea>

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
    const std::pair<const char*, QStringList> rows[] = {
        {"mnuViewTop", {"pbView0"}},
        {"mnuViewLeft", {"pbView1"}},
        {"mnuView3D", {"pbOpenGL"}},
        {"mnuView4Way", {"pbOpenGL", "pbView0", "pbView1", "pbView2"}},
    };
    for (const auto& [command, panes] : rows) {
        Choose(command);
        EXPECT_EQ(VisiblePanes(), panes) << command;
        EXPECT_EQ(Find("SplitGrip")->isVisible(), panes.size() == 4) << command;
        ExpectDisjoint();
        const ViewState& top = Session().views[TopView];
        const QSize size = Find("pbView0")->size();
        if (!panes.contains("pbView0")) continue;
        EXPECT_EQ(QSize(top.width, top.height), size) << command;
        EXPECT_EQ(QPoint(top.originX, top.originY), QPoint(size.width() / 2, size.height() / 2));
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
    const QPoint corner(after.left() + after.width() + 2, after.top() + after.height() + 2);
    EXPECT_EQ(Find("pbView2")->geometry().topLeft(), corner);
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
    const auto* panel = Find("conProps")->findChild<QScrollArea*>();
    EXPECT_LE(panel->widget()->minimumSizeHint().width(), panel->viewport()->width());
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

}  // namespace
}  // namespace korvane::test
