// Menus and bars of the real window: every command in its place, and menu and button in step.
#include <gmock/gmock.h>

#include <QCursor>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>

#include "GuiFixture.h"
#include "editor/mCommands.h"
#include "widgets/ucStatusBar.h"
#include "widgets/ucToolBar.h"

namespace korvane::test {
namespace {

/// The object names of the entries without "mnu", and a bar for each separator.
std::string NamesOf(const QList<QAction*>& actions) {
    QStringList names;
    for (const QAction* action : actions) {
        if (!action->isVisible()) continue;
        const QObject* named = action->menu() != nullptr ? static_cast<QObject*>(action->menu())
                                                         : const_cast<QAction*>(action);
        names += action->isSeparator() ? "|" : named->objectName().mid(3);
    }
    return names.join(' ').toStdString();
}

class CommandsTest : public GuiTest {
  protected:
    /// Buttons are numbered in the order of the table, which need not be that of the bar.
    void ExpectBar(const char* name, Bar bar) {
        const auto* toolBar = Find<ucToolBar>(name);
        for (const Command& command : Commands()) {
            if (command.button.bar != bar) continue;
            SCOPED_TRACE(command.name);
            const QToolButton* button = toolBar->Button(command.button.index);
            const QAction* action = button->defaultAction();
            const QString shortcut = action->shortcut().toString(QKeySequence::NativeText);
            EXPECT_EQ(button->objectName(), QString("%1_%2").arg(name).arg(command.button.index));
            EXPECT_EQ(action->objectName(), command.name);
            EXPECT_EQ(button->toolTip(),
                      command.button.tooltip + (shortcut.isEmpty() ? "" : " (" + shortcut + ")"));
            EXPECT_FALSE(button->icon().isNull());
            EXPECT_TRUE(button->isVisible());
        }
    }

    /// Every action, and the button that shows it, tells what the session is.
    void ExpectInStep(const char* when) {
        for (const Command& command : Commands()) {
            const auto* action = Find<QAction>(command.name);
            EXPECT_EQ(action->isEnabled(), IsEnabled(command, Session())) << command.name << when;
            const bool checked = command.checked != nullptr && command.checked(Session());
            EXPECT_EQ(action->isChecked(), checked) << command.name << when;
            if (command.button.bar == Bar::None) continue;
            const char* bar = command.button.bar == Bar::ToolBar ? "ToolBar" : "EditBar";
            const QToolButton* button = Find<ucToolBar>(bar)->Button(command.button.index);
            EXPECT_EQ(button->isChecked(), checked) << command.name << when;
            EXPECT_EQ(button->isEnabled(), action->isEnabled()) << command.name << when;
        }
    }
};

TEST_F(CommandsTest, MenusAndBarsHoldEveryCommandInItsPlace) {
    const std::pair<const char*, const char*> menus[] = {
        {"File", "New Open Merge | Save SaveAs | Export Recent | Exit"},
        {"Export", "Export3DS ExportOBJ ExportGLB ExportSourceCode"},
        {"Recent", "| ClearRecentFiles"},
        {"Edit", "Undo Redo | Copy Paste | Select UnSelect Delete | Preferences"},
        {"View",
         "Rulers Show3DGrid Snap ShowInvisible | View4Way ViewTop ViewLeft ViewFront View3D | "
         "ResetAllViews"},
        {"Create", "CreateBaseShape | SizeArbitrary Size3 Size4 Size5 Size6 Size7 Size8"},
        {"CreateBaseShape", "CreateBox CreateCone CreateSphere"},
        {"Modify",
         "ModeBrush ModeFace ModeEdge ModeVertex | Rotate Flip Invert | Multiply Optimize"},
        {"Rotate", "FreeRotate | RotX RotXc RotY RotYc RotZ RotZc"},
        {"Flip", "FlipX FlipY FlipZ"},
        {"Info", "Statistics"},
        {"Help", "HelpContents"}};
    EXPECT_EQ(NamesOf(window->menuBar()->actions()), "File Edit View Create Modify Info Help");
    for (const auto& [menu, entries] : menus)
        EXPECT_EQ(NamesOf(Find<QMenu>(QString("mnu") + menu)->actions()), entries) << menu;
    EXPECT_EQ(Find<QMenu>("mnuFile")->title(), "&File");
    EXPECT_EQ(Find<QAction>("mnuRotXc")->text(), "X-Axis: -90°");
    EXPECT_EQ(NamesOf(Find("ToolBar")->actions()),
              "New Open Merge Save SaveAs | Export3DS | View4Way ViewTop ViewLeft ViewFront View3D "
              "| Rulers Show3DGrid Snap | Size3 Size4 Size5 Size6 Size7 Size8 SizeArbitrary | "
              "CreateBox CreateCone CreateSphere");
    EXPECT_EQ(
        NamesOf(Find("EditBar")->actions()),
        "ModeBrush ModeFace ModeEdge ModeVertex | Undo Redo | Copy Paste | Select UnSelect "
        "Delete | RotX RotXc RotY RotYc RotZ RotZc FreeRotate | FlipX FlipY FlipZ | Multiply");
    ExpectBar("ToolBar", Bar::ToolBar);
    ExpectBar("EditBar", Bar::EditBar);
    EXPECT_EQ(Find("ToolBar_3")->toolTip(), "Save Object (Ctrl+S)");
}

TEST_F(CommandsTest, PointedButtonDescribesItself) {
    const std::pair<const char*, const char*> texts[] = {
        {"ToolBar_0", "New Object: Clear all data from the editor"},
        {"ToolBar_23", "Create Shape: New brushes are created as a sphere style shape"},
        {"EditBar_4", "Undo: Undo the last action"},
        {"EditBar_20", "Multiply Brushes: Mulptiply selected brushes with offsets and rotations"}};
    for (const auto& [name, text] : texts) {
        QWidget* target = Find(name);
        QCursor::setPos(target->mapToGlobal(target->rect().center()));
        const auto* bar = Find<ucStatusBar>("StatusBar");
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar->Text(0) == QString(text); }, 1000))
            << bar->Text(0).toStdString() << " for " << name;
    }
}

TEST_F(CommandsTest, MenuAndButtonStayInStep) {
    ExpectInStep(" at the start");
    ClickButton("ToolBar_23");
    EXPECT_EQ(Session().scene.createShape, Sphere);
    ExpectInStep(" with spheres");
    Choose("mnuCreateBox");
    ClickButton("ToolBar_21");
    EXPECT_EQ(Session().scene.createShape, Box);
    ExpectInStep(" with boxes, whose button stays pressed");
    ClickButton("EditBar_2");
    EXPECT_EQ(Session().scene.editMode, EdgeMove);
    ExpectInStep(" with edges");
    const std::pair<const char*, bool Settings::*> toggles[] = {
        {"ToolBar_11", &Settings::showRulers},
        {"ToolBar_12", &Settings::show3DGrid},
        {"ToolBar_13", &Settings::snapToGrid}};
    for (const auto& [button, setting] : toggles) {
        ClickButton(button);
        EXPECT_FALSE(Session().settings.*setting) << button;
        ExpectInStep(" switched off");
    }
    Choose("mnuSnap");
    EXPECT_TRUE(Session().settings.snapToGrid);
    DrawBox();
    ExpectInStep(" with a selection");
    ClickButton("EditBar_8");
    EXPECT_FALSE(Session().scene.brushes[0].selected);
    ExpectInStep(" without one");
}

TEST_F(CommandsTest, TheArbitrarySizeIsTypedAndRefused) {
    const struct {
        const char *typed, *shown;
        bool taken;
        int sides;
    } rows[] = {
        {"99999999999999999999", "9", false, 4}, {"1x2-", "9", true, 12}, {"5", "12", true, 5}};
    for (const auto& row : rows) {
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* box = dialog->findChild<QLineEdit*>("txtSides");
            EXPECT_EQ(box->text(), row.shown);
            QTest::keyClicks(box, row.typed);  // replaces what is shown
            QTest::keyClick(box, Qt::Key_Return);
            EXPECT_EQ(dialog->isVisible(), !row.taken);
            if (row.taken) return;
            EXPECT_EQ(box->text(), row.shown) << "the last good one";
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Choose("mnuSizeArbitrary");
        EXPECT_EQ(Session().scene.sideCount, row.sides) << row.typed;
        ExpectInStep(row.typed);
    }
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text,
              "Notice: Number of Sides out of Range!\r\n"
              "A brush can have a minimum of 3 Sides or a maximum of 64 Sides.");
    EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Information);
}

}  // namespace
}  // namespace korvane::test
