// Keys and mouse-look in the real window, with the events of a real X server: what the user holds,
// flies and types, and who gets it.
#include <gmock/gmock.h>

#include <QCursor>
#include <QElapsedTimer>
#include <QMenu>

#include "EditingFixture.h"
#include "views/ui/ucPreview.h"

namespace korvane::test {
namespace {

class KeysTest : public EditingTest {
  protected:
    void SetUp() override {
        EditingTest::SetUp();
        // Test programs before this one may have left the pointer over a button.
        QCursor::setPos(window->mapToGlobal(QPoint(5, 5)));
        X({"key", "Num_Lock", "key", "Num_Lock"});  // the first events map the keyboard
        Level();
    }

    void TearDown() override { X({"keyup", "w", "keyup", "Shift_L", "keyup", "Shift_R"}); }

    void Level() { Session().camera = {0, 0, 0, 0, 0, 0}; }
    bool Held(std::size_t code) { return Session().keyBoard.held.at(code); }
    bool ViewsHaveFocus() { return Find("pbFocusKeeper")->hasFocus(); }
    Camera& Eye() { return Session().camera; }

    /// The group box with the keyboard focus.
    QLineEdit* TypeInGroupBox() {
        ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
        auto* box = Find<QLineEdit>("txtBrushGroup");
        QTest::mouseClick(box, Qt::LeftButton);
        QTest::qWait(20);
        EXPECT_TRUE(box->hasFocus());
        return box;
    }
};

TEST_F(KeysTest, AHeldKeyFliesUntilItIsReleased) {
    EXPECT_TRUE(ViewsHaveFocus());
    QElapsedTimer clock;
    X({"keydown", "w"});
    clock.start();
    const float z = Eye().z;
    QTest::qWait(1000);  // the server repeats a held key from 0.66 s on
    const float ticks = (z - Eye().z) / 0.25F;
    const float due = static_cast<float>(clock.elapsed()) / 10;
    EXPECT_LT(ticks, due + 4);
    EXPECT_GT(ticks, due / 2) << "a busy machine may stall";
    X({"keydown", "Shift_L", "keydown", "Shift_R", "keyup", "Shift_L"});
    EXPECT_TRUE(Held(16)) << "the right one is down";
    X({"keyup", "Shift_R", "keyup", "w"});
    EXPECT_FALSE(Held(16) || Held(87));
    const float rest = Eye().z;
    QTest::qWait(50);
    EXPECT_EQ(Eye().z, rest);
    EXPECT_FALSE(Session().keyBoard.running);
}

TEST_F(KeysTest, KeysRunCommandsOncePerPress) {
    X({"keydown", "v"});
    EXPECT_EQ(Session().scene.editMode, VertexMove);
    Choose("mnuModeBrush");
    QTest::qWait(900);
    EXPECT_EQ(Session().scene.editMode, BrushMove);
    X({"keyup", "v", "key", "F6", "key", "KP_Add", "key", "5"});
    EXPECT_EQ(Session().settings.ViewLayout, LeftOnly);
    EXPECT_GT(Session().views[TopView].zoom, 80);
    EXPECT_TRUE(Find<QAction>("mnuSize5")->isChecked());
}

TEST_F(KeysTest, ATextBoxKeepsItsKeysAndShortcuts) {
    QLineEdit* box = TypeInGroupBox();
    X({"type", "fwb"});
    X({"key", "Page_Up", "key", "F6"});
    EXPECT_EQ(box->text(), "fwb");
    EXPECT_EQ(Session().scene.editMode, BrushMove);
    EXPECT_EQ(Session().settings.ViewLayout, FourWay);
    EXPECT_EQ(Eye().y, 0);
    X({"key", "ctrl+a", "key", "ctrl+c", "key", "Delete", "key", "ctrl+v", "key", "ctrl+z"});
    EXPECT_EQ(box->text(), "");
    EXPECT_TRUE(Session().scene.clipboard.empty());
    EXPECT_EQ(Session().scene.brushCount(), 2);
    X({"key", "Escape"});
    EXPECT_TRUE(ViewsHaveFocus());
    EXPECT_EQ(Selected(), "*-") << "that Escape was for the text box";
    QTest::mouseClick(box, Qt::LeftButton);
    X({"key", "ctrl+s"});
    EXPECT_EQ(prompts.saveDialogs.size(), 1U) << "one that the box has no use for";
    X({"key", "Escape"});
    EXPECT_EQ(Selected(), "--");
}

TEST_F(KeysTest, ControlsHandTheFocusBackButTabReachesThem) {
    TypeInGroupBox();
    ClickButton("ToolBar_11");
    EXPECT_TRUE(QTest::qWaitFor([&] { return ViewsHaveFocus(); })) << "a button was clicked";
    QTest::mouseClick(Find("txtBrushGroup"), Qt::LeftButton);
    X({"key", "alt+v", "key", "Return"});  // the first item of the View menu
    EXPECT_TRUE(ViewsHaveFocus()) << "a menu was used";
    X({"key", "Tab"});
    EXPECT_FALSE(ViewsHaveFocus());
    QTest::qWait(20);
    X({"key", "f"});
    EXPECT_EQ(Session().scene.editMode, window->focusWidget()->inherits("QLineEdit") ? 0 : 1);
    X({"key", "Escape"});
    EXPECT_TRUE(ViewsHaveFocus());
    Session().settings.keyMap[KeyFunction::ModeEdge] = 9;
    X({"key", "Tab"});
    EXPECT_TRUE(ViewsHaveFocus()) << "Tab is a key of the map now";
    EXPECT_EQ(Session().scene.editMode, EdgeMove);
}

TEST_F(KeysTest, WhoTakesTheKeyboardAwayLeavesNothingHeld) {
    const struct {
        const char* what;
        std::function<void()> take;
        std::function<void()> back;
    } cases[] = {
        {"a menu", [&] { Find<QMenu>("mnuEdit")->popup(window->mapToGlobal(QPoint(50, 50))); },
         [&] { Find<QMenu>("mnuEdit")->close(); }},
        {"a text box", [&] { Find("txtBrushGroup")->setFocus(Qt::MouseFocusReason); },
         [&] { window->FocusViews(); }},
        {"another window", [&] { Choose("mnuFreeRotate"); },
         [&] {
             window->CloseForms();
             window->activateWindow();
         }},
    };
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    for (const auto& c : cases) {
        X({"keydown", "w"});
        EXPECT_TRUE(Held(87)) << c.what;
        c.take();
        QTest::qWait(150);
        EXPECT_FALSE(Held(87)) << c.what;
        X({"keyup", "w"});
        c.back();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTest::qWait(50);
        const float z = Eye().z;
        QTest::qWait(50);
        EXPECT_EQ(Eye().z, z) << c.what;
    }
}

TEST_F(KeysTest, ShortcutsRunTheirCommandOnceAndNoOtherFunctionOfTheKey) {
    X({"key", "ctrl+v"});
    EXPECT_EQ(Session().scene.editMode, BrushMove) << "nothing to paste is not V";
    X({"key", "ctrl+z", "key", "ctrl+z", "key", "ctrl+shift+z"});
    EXPECT_EQ(Session().scene.brushCount(), 1);
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    X({"key", "ctrl+c", "key", "ctrl+v"});
    EXPECT_EQ(Session().scene.brushCount(), 2);
    X({"key", "Delete"});
    EXPECT_EQ(prompts.messages.size(), 1U) << "asked once";
    prompts.answers = {Answer::Yes};
    Session().settings.keyMap[KeyFunction::ModifyDelete] = 0;
    X({"key", "Delete"});
    EXPECT_EQ(Session().scene.brushCount(), 1);
}

TEST_F(KeysTest, TheKeyMapGoesBeforeShortcuts) {
    Session().settings.keyMap[KeyFunction::ModifyDelete] = 0;
    Session().settings.keyMap[KeyFunction::ModeEdge] = 46;
    window->ShowCommandStates();
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    EXPECT_TRUE(Find<QAction>("mnuDelete")->shortcut().isEmpty()) << "the menu promises nothing";
    X({"key", "Delete"});
    EXPECT_EQ(Session().scene.editMode, EdgeMove);
    EXPECT_THAT(prompts.messages, testing::IsEmpty());
    X({"keydown", "w", "keydown", "Control_L", "keydown", "s"});
    EXPECT_TRUE(Held('S')) << "slowly";
    X({"keyup", "s", "keyup", "Control_L", "keyup", "w"});
    EXPECT_TRUE(prompts.saveDialogs.empty()) << "who flies does not save";
}

class MouseLookGuiTest : public KeysTest {
  protected:
    void SetUp() override {
        KeysTest::SetUp();
        pane = Find<ucPreview>("pbOpenGL");
        QCursor::setPos(pane->mapToGlobal(pane->rect().center() + QPoint(90, 20)));
        X({"click", "3"});
    }

    bool Looks() { return Session().mouseLook.state != LookOff; }
    bool CursorIsBack() {
        return pane->cursor().shape() == Qt::ArrowCursor && QWidget::mouseGrabber() == nullptr;
    }
    QPoint Cursor() { return pane->mapFromGlobal(QCursor::pos()); }

    ucPreview* pane = nullptr;
};

TEST_F(MouseLookGuiTest, TheMouseTurnsAndTheCursorStaysInTheMiddle) {
    ASSERT_TRUE(Looks());
    EXPECT_EQ(pane->cursor().shape(), Qt::BlankCursor);
    for (int i = 0; i < 20; ++i) X({"mousemove_relative", "--", "-60", "15"});
    EXPECT_NEAR(Eye().yaw, 20 * 60 * 0.2, 2);  // farther than the screen is wide on one side
    EXPECT_NEAR(Eye().pitch, -20 * 15 * 0.2, 2);
    EXPECT_LE((Cursor() - pane->rect().center()).manhattanLength(), 2);
    X({"mousedown", "1"});
    const float z = Eye().z;
    QTest::qWait(100);
    EXPECT_NE(Eye().z, z);
    X({"mouseup", "1"});
    EXPECT_FALSE(Held(87));
    X({"click", "3"});
    EXPECT_FALSE(Looks());
    EXPECT_TRUE(CursorIsBack());
}

/// Moves that were on their way when the cursor was put back come in before its jump.
TEST_F(MouseLookGuiTest, AFastMouseLosesNothing) {
    const QPointF start = Cursor();
    for (const qreal late : {10, 25, 45, 70}) {
        const QPointF at = start - QPointF(late, 0);
        QMouseEvent move(QEvent::MouseMove, at, pane->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(pane, &move);
    }
    EXPECT_NEAR(Eye().yaw, 70 * 0.2, 0.01);
    QTest::qWait(50);  // the jump
    EXPECT_NEAR(Eye().yaw, 70 * 0.2, 0.01);
    X({"mousemove_relative", "--", "-5", "0"});
    EXPECT_NEAR(Eye().yaw, 75 * 0.2, 0.25);
}

TEST_F(MouseLookGuiTest, WhatEndsItGivesTheCursorBack) {
    const struct {
        const char* what;
        std::function<void()> end;
    } cases[] = {
        {"another layout",
         [&] {
             X({"key", "F5", "key", "F4"});
         }},
        {"another window",
         [&] {
             Choose("mnuFreeRotate");
             QTest::qWait(100);
             window->CloseForms();
             window->activateWindow();
         }},
        {"a text box",
         [&] {
             Find("txtBrushGroup")->setFocus();
             window->FocusViews();
         }},
        {"the end",
         [&] {
             Session().SceneModified = false;
             window->close();
         }},
    };
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    for (const auto& c : cases) {
        if (!Looks()) QTest::mouseClick(pane, Qt::RightButton);
        ASSERT_TRUE(Looks()) << c.what;
        EXPECT_EQ(QWidget::mouseGrabber(), pane) << c.what;
        c.end();
        EXPECT_FALSE(Looks()) << c.what;
        EXPECT_TRUE(CursorIsBack()) << c.what;
        QTest::qWait(50);
    }
}

TEST_F(MouseLookGuiTest, WhereTheCursorMayNotBeMovedItTurnsOnAtTheEdge) {
    X({"click", "3"});
    pane->Pointer().SetRecentring(false);
    X({"click", "3"});
    X({"mousemove_relative", "50", "0"});
    EXPECT_FLOAT_EQ(Eye().yaw, -10);
    EXPECT_EQ(Cursor().x(), pane->rect().center().x() + 140);
    QCursor::setPos(window->mapToGlobal(QPoint(4, window->height() / 2)));
    QTest::qWait(50);
    const float yaw = Eye().yaw;
    QTest::qWait(200);
    EXPECT_GT(Eye().yaw, yaw + 5);
    X({"click", "3"});
    EXPECT_TRUE(CursorIsBack());
    const float rest = Eye().yaw;
    QTest::qWait(50);
    EXPECT_EQ(Eye().yaw, rest);
}

}  // namespace
}  // namespace korvane::test
