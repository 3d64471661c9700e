// Menus and bars of the real window: every text as users see it, and menu and button in step.
#include <gmock/gmock.h>

#include <QCursor>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>
#include <map>
#include <span>

#include "GuiFixture.h"
#include "widgets/ucStatusBar.h"
#include "widgets/ucToolBar.h"

namespace korvane::test {
namespace {

using testing::IsEmpty;

/// One line per entry, indented by its depth: caption and object name.
void Outline(const QList<QAction*>& actions, const QString& indent, QStringList& lines) {
    for (const QAction* action : actions) {
        if (action->isSeparator() || !action->isVisible()) continue;
        const QMenu* menu = action->menu();
        const QString name = menu != nullptr ? menu->objectName() : action->objectName();
        lines += indent + action->text() + " = " + name;
        if (menu != nullptr) Outline(menu->actions(), indent + "  ", lines);
    }
}

struct ButtonText {
    const char* command;
    const char* tooltip;
    const char* statusText;
};

const ButtonText kToolBar[] = {
    {"mnuNew", "New Object...", "New Object: Clear all data from the editor"},
    {"mnuOpen", "Open Object...",
     "Open Object: Clear all data from the editor and load an existing object"},
    {"mnuMerge", "Merge Object with Current Object...",
     "Merge Object: Load an existing object and merge it with the current object"},
    {"mnuSave", "Save Object", "Save Object: Save the current object"},
    {"mnuSaveAs", "Save Object As...",
     "Save Object As: Save the current object under a different name"},
    {"mnuExport3DS", "Export Object...",
     "Export Object: Save the current object in different formats"},
    {"mnuView4Way", "View: 4-Way Split",
     "View 4-Way Split: View all 4 main views at the same time"},
    {"mnuViewTop", "View: Top", "View Top: View only the top view"},
    {"mnuViewLeft", "View: Left", "View Left: View only the left view"},
    {"mnuViewFront", "View: Front", "View Front: View only the front view"},
    {"mnuView3D", "View 3D Preview", "View 3D Preview: View only the 3D preview"},
    {"mnuRulers", "Show Rulers", "Show Rulers: Toggle on/off showing rulers in the views"},
    {"mnuShow3DGrid", "Show 3D Grid",
     "Show 3D Grid: Toggle on/off showing the grid in the 3D preview"},
    {"mnuSnap", "Snap to Grid",
     "Snap to Grid: Toggle on/off snapping vertices, edges, and objects to grid"},
    {"mnuSize3", "Create Sides: 3-Sided", "Create Size: New brushes are created with 3 sides"},
    {"mnuSize4", "Create Sides: 4-Sided", "Create Size: New brushes are created with 4 sides"},
    {"mnuSize5", "Create Sides: 5-Sided", "Create Size: New brushes are created with 5 sides"},
    {"mnuSize6", "Create Sides: 6-Sided", "Create Size: New brushes are created with 6 sides"},
    {"mnuSize7", "Create Sides: 7-Sided", "Create Size: New brushes are created with 7 sides"},
    {"mnuSize8", "Create Sides: 8-Sided", "Create Size: New brushes are created with 8 sides"},
    {"mnuSizeArbitrary", "Create Sides: Arbitrarily Sided",
     "Create Size: New brushes are created with more than 8 sides"},
    {"mnuCreateBox", "Create Shape: Box",
     "Create Shape: New brushes are created as a box style shape"},
    {"mnuCreateCone", "Create Shape: Cone",
     "Create Shape: New brushes are created as a cone style shape"},
    {"mnuCreateSphere", "Create Shape: Sphere",
     "Create Shape: New brushes are created as a sphere style shape"},
};

const ButtonText kEditBar[] = {
    {"mnuModeBrush", "Brush Move Mode", "Brush Move Mode: Move selected brushes"},
    {"mnuModeFace", "Face Edit Mode", "Face Edit Mode: Select and edit faces from a brush"},
    {"mnuModeEdge", "Edge Move Mode", "Edge Move Mode: Move a selected brushes' edges"},
    {"mnuModeVertex", "Vertex Move Mode", "Vertex Move Mode: Move a selected brushes' vertices"},
    {"mnuUndo", "Undo", "Undo: Undo the last action"},
    {"mnuCopy", "Copy Selected Brushes", "Copy: Copy selected brushes"},
    {"mnuPaste", "Paste Brushes", "Paste: Paste brushes"},
    {"mnuSelect", "Select Brushes...", "Select: Select brushes by name, group, or texture name"},
    {"mnuUnSelect", "UnSelect All Brushes",
     "UnSelect: UnSelect brushes, faces, edges and vertices"},
    {"mnuDelete", "Delete Selected Brushes", "Delete: Delete selected brushes"},
    {"mnuRotX", "Rotate: X-Axis 90°",
     "Rotate X-Axis 90°: Rotate selected brushes by the X-Axis 90° (Clockwise)"},
    {"mnuRotXc", "Rotate: X-Axis -90°",
     "Rotate X-Axis -90°: Rotate selected brushes by the X-Axis -90° (Counter Clockwise)"},
    {"mnuRotY", "Rotate: Y-Axis 90°",
     "Rotate Y-Axis 90°: Rotate selected brushes by the Y-Axis 90° (Clockwise)"},
    {"mnuRotYc", "Rotate: Y-Axis -90°",
     "Rotate Y-Axis -90°: Rotate selected brushes by the Y-Axis -90° (Counter Clockwise)"},
    {"mnuRotZ", "Rotate: Z-Axis 90°",
     "Rotate Z-Axis 90°: Rotate selected brushes by the Z-Axis 90° (Clockwise)"},
    {"mnuRotZc", "Rotate: Z-Axis -90°",
     "Rotate Z-Axis -90°: Rotate selected brushes by the Z-Axis -90° (Counter Clockwise)"},
    {"mnuFreeRotate", "Rotate: Free Rotate...",
     "Free Rotate: Rotate the selected brushes around the Rotation Marker on the X, Y, and Z axis"},
    {"mnuFlipX", "Flip: X-Axis", "Flip X: Flip selected brushes on the X-Axis"},
    {"mnuFlipY", "Flip: Y-Axis", "Flip Y: Flip selected brushes on the Y-Axis"},
    {"mnuFlipZ", "Flip: Z-Axis", "Flip Z: Flip selected brushes on the Z-Axis"},
    {"mnuMultiply", "Multiply Selected Brushes...",
     "Multiply Brushes: Mulptiply selected brushes with offsets and rotations"},
    {"mnuRedo", "Redo", "Redo: Redo the last undone action"},
};

class CommandsTest : public GuiTest {
  protected:
    void ExpectBar(const char* name, std::span<const ButtonText> rows) {
        auto* bar = Find<ucToolBar>(name);
        ASSERT_EQ(bar->ButtonCount(), static_cast<int>(rows.size()));
        for (int i = 0; i < bar->ButtonCount(); ++i) {
            const QToolButton* button = bar->Button(i);
            EXPECT_EQ(button->objectName(), QString("%1_%2").arg(name).arg(i));
            EXPECT_EQ(button->defaultAction()->objectName(), rows[i].command);
            EXPECT_EQ(button->toolTip(), rows[i].tooltip + ShortcutOf(rows[i].command));
            EXPECT_FALSE(button->icon().isNull()) << rows[i].command;
            EXPECT_TRUE(button->isVisible()) << rows[i].command;
        }
    }

    /// As tooltips and menus show it.
    static QString ShortcutOf(const QString& command) {
        static const std::map<QString, QString> shortcuts = {
            {"mnuNew", " (Ctrl+N)"},    {"mnuOpen", " (Ctrl+O)"},
            {"mnuSave", " (Ctrl+S)"},   {"mnuSaveAs", " (Ctrl+Shift+S)"},
            {"mnuUndo", " (Ctrl+Z)"},   {"mnuRedo", " (Ctrl+Shift+Z)"},
            {"mnuCopy", " (Ctrl+C)"},   {"mnuPaste", " (Ctrl+V)"},
            {"mnuSelect", " (Ctrl+F)"}, {"mnuUnSelect", " (Ctrl+Shift+A)"},
            {"mnuDelete", " (Del)"}};
        const auto found = shortcuts.find(command);
        return found == shortcuts.end() ? QString() : found->second;
    }

    /// Indices of the pressed buttons from first to last.
    std::vector<int> Pressed(const char* bar, int first, int last) {
        std::vector<int> pressed;
        for (int i = first; i <= last; ++i) {
            if (Find<ucToolBar>(bar)->Button(i)->isChecked()) pressed.push_back(i);
        }
        return pressed;
    }

    /// Names of the checked commands among these.
    QStringList Checked(std::initializer_list<const char*> names) {
        QStringList checked;
        for (const char* name : names) {
            if (Find<QAction>(name)->isChecked()) checked += name;
        }
        return checked;
    }

    std::string Status() { return Find<ucStatusBar>("StatusBar")->Text(0).toStdString(); }
};

TEST_F(CommandsTest, MenusHoldEveryEntryUnderItsCaption) {
    const QString wanted = R"(&File = mnuFile
  New Object... = mnuNew
  Open Object.. = mnuOpen
  Merge Object.. = mnuMerge
  Save Object = mnuSave
  Save Object As... = mnuSaveAs
  Export = mnuExport
    3DStudio Format (*.3DS)... = mnuExport3DS
    Wavefront Format (*.OBJ)... = mnuExportOBJ
    glTF Binary Format (*.GLB)... = mnuExportGLB
    Source Code (*.TXT)... = mnuExportSourceCode
  Recent Files = mnuRecent
    Clear Recent Files = mnuClearRecentFiles
  Exit = mnuExit
&Edit = mnuEdit
  Undo = mnuUndo
  Redo = mnuRedo
  Copy = mnuCopy
  Paste = mnuPaste
  Select... = mnuSelect
  UnSelect = mnuUnSelect
  Delete = mnuDelete
  Preferences... = mnuPreferences
&View = mnuView
  Rulers = mnuRulers
  3D Grid = mnuShow3DGrid
  Snap to Grid = mnuSnap
  Show Invisible Faces = mnuShowInvisible
  4-Way Split = mnuView4Way
  Top = mnuViewTop
  Left = mnuViewLeft
  Front = mnuViewFront
  3D Preview = mnuView3D
  Reset All Views = mnuResetAllViews
&Create = mnuCreate
  Base Shape = mnuCreateBaseShape
    Box = mnuCreateBox
    Cone = mnuCreateCone
    Sphere = mnuCreateSphere
  Arbitrarily Sided... = mnuSizeArbitrary
  3-Sided = mnuSize3
  4-Sided = mnuSize4
  5-Sided = mnuSize5
  6-Sided = mnuSize6
  7-Sided = mnuSize7
  8-Sided = mnuSize8
&Modify = mnuModify
  Brush Move = mnuModeBrush
  Face Edit = mnuModeFace
  Edge Move = mnuModeEdge
  Vertex Move = mnuModeVertex
  Rotate = mnuRotate
    Free Rotate... = mnuFreeRotate
    X-Axis: 90° = mnuRotX
    X-Axis: -90° = mnuRotXc
    Y-Axis: 90° = mnuRotY
    Y-Axis: -90° = mnuRotYc
    Z-Axis: 90° = mnuRotZ
    Z-Axis: -90° = mnuRotZc
  Flip = mnuFlip
    X-Axis = mnuFlipX
    Y-Axis = mnuFlipY
    Z-Axis = mnuFlipZ
  Invert = mnuInvert
  Multiply Brushes... = mnuMultiply
  Optimize Object... = mnuOptimize
&Info = mnuInfo
  Object Statistics... = mnuStatistics
&Help = mnuHelp
  Contents... = mnuHelpContents)";
    QStringList lines;
    Outline(window->menuBar()->actions(), "", lines);
    EXPECT_EQ(lines.join('\n').toStdString(), wanted.toStdString());
}

TEST_F(CommandsTest, BarsHoldEveryButton) {
    ExpectBar("ToolBar", kToolBar);
    ExpectBar("EditBar", kEditBar);
}

TEST_F(CommandsTest, SeparatorsOfTheToolBarGroupItsButtons) {
    std::vector<int> after;
    int index = -1;
    for (const QAction* action : Find("ToolBar")->actions()) {
        if (action->isSeparator()) after.push_back(index);
        if (!action->isSeparator()) ++index;
    }
    EXPECT_EQ(after, (std::vector{4, 5, 10, 13, 20}));
}

TEST_F(CommandsTest, PointedButtonDescribesItself) {
    const auto expectTexts = [this](const char* bar, std::span<const ButtonText> rows) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            QWidget* target = Find(QString("%1_%2").arg(bar).arg(i));
            QCursor::setPos(target->mapToGlobal(target->rect().center()));
            EXPECT_TRUE(QTest::qWaitFor([&] { return Status() == rows[i].statusText; }, 1000))
                << Status() << " for " << rows[i].command;
        }
    };
    expectTexts("ToolBar", kToolBar);
    expectTexts("EditBar", kEditBar);
}

TEST_F(CommandsTest, StartsWithTheDefaultsPressed) {
    EXPECT_EQ(Pressed("ToolBar", 0, 23), (std::vector{6, 11, 12, 13, 15, 21}));
    EXPECT_EQ(Pressed("EditBar", 0, 20), (std::vector{0}));
    EXPECT_TRUE(Find<QAction>("mnuShowInvisible")->isChecked());
}

TEST_F(CommandsTest, MenuAndButtonChooseTheSame) {
    ClickButton("ToolBar_23");
    EXPECT_EQ(Session().scene.createShape, Sphere);
    EXPECT_EQ(Checked({"mnuCreateBox", "mnuCreateCone", "mnuCreateSphere"}),
              QStringList{"mnuCreateSphere"});
    Choose("mnuCreateBox");
    EXPECT_EQ(Pressed("ToolBar", 21, 23), (std::vector{21}));
    ClickButton("ToolBar_21");
    EXPECT_EQ(Pressed("ToolBar", 21, 23), (std::vector{21})) << "stays pressed";
    EXPECT_EQ(Session().scene.createShape, Box);
    ClickButton("EditBar_2");
    EXPECT_EQ(Session().scene.editMode, EdgeMove);
    EXPECT_EQ(Checked({"mnuModeBrush", "mnuModeFace", "mnuModeEdge", "mnuModeVertex"}),
              QStringList{"mnuModeEdge"});
}

TEST_F(CommandsTest, TogglesStayInStep) {
    struct Row {
        const char* button;
        const char* item;
        bool Settings::*setting;
    };
    for (const Row& row : {Row{"ToolBar_11", "mnuRulers", &Settings::showRulers},
                           Row{"ToolBar_12", "mnuShow3DGrid", &Settings::show3DGrid},
                           Row{"ToolBar_13", "mnuSnap", &Settings::snapToGrid}}) {
        ClickButton(row.button);
        EXPECT_FALSE(Session().settings.*row.setting) << row.item;
        EXPECT_FALSE(Find<QAction>(row.item)->isChecked()) << row.item;
        Choose(row.item);
        EXPECT_TRUE(Session().settings.*row.setting) << row.item;
        EXPECT_TRUE(Find<QToolButton>(row.button)->isChecked()) << row.item;
    }
}

TEST_F(CommandsTest, UnSelectFollowsTheSelection) {
    EXPECT_FALSE(Find("EditBar_8")->isEnabled());
    DrawBox();
    EXPECT_TRUE(Find("EditBar_8")->isEnabled());
    EXPECT_TRUE(Find<QAction>("mnuUnSelect")->isEnabled());
    ClickButton("EditBar_8");
    EXPECT_FALSE(Session().scene.brushes[0].selected);
    EXPECT_FALSE(Find<QAction>("mnuUnSelect")->isEnabled());
}

/// Types into the arbitrary-size dialog and presses Enter, then closes it if it is still open.
class ArbitrarySizeTest : public CommandsTest {
  protected:
    void Enter(const QString& text) {
        QTimer::singleShot(0, window.get(), [this, text] {
            auto* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* box = dialog->findChild<QLineEdit*>("txtSides");
            shown = box->text();
            selected = box->selectedText();
            QTest::keyClicks(box, text);
            QTest::keyClick(box, Qt::Key_Return);
            stayedOpen = dialog->isVisible();
            after = box->text();
            if (stayedOpen) QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Choose("mnuSizeArbitrary");
    }

    QString shown, selected, after;
    bool stayedOpen = false;
};

TEST_F(ArbitrarySizeTest, RefusesWhatIsOutOfRange) {
    for (const char* typed : {"2", "65", "99999", "99999999999999999999"}) {
        prompts.messages.clear();
        Enter(typed);
        EXPECT_TRUE(stayedOpen) << typed;
        EXPECT_EQ(after, "9") << typed;
        EXPECT_EQ(Session().scene.sideCount, 4) << typed;
        ASSERT_EQ(prompts.messages.size(), 1U) << typed;
        EXPECT_EQ(prompts.messages[0].text,
                  "Notice: Number of Sides out of Range!\r\n"
                  "A brush can have a minimum of 3 Sides or a maximum of 64 Sides.");
        EXPECT_EQ(prompts.messages[0].title, "Notice!");
        EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Information);
        EXPECT_EQ(Pressed("ToolBar", 14, 20), (std::vector{15}));
    }
}

TEST_F(ArbitrarySizeTest, TakesDigitsAndPressesTheMatchingButton) {
    Enter("1x2-");  // the shown value is selected, so typing replaces it
    EXPECT_EQ(shown, "9");
    EXPECT_EQ(selected, "9");
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(Session().scene.sideCount, 12);
    EXPECT_EQ(Pressed("ToolBar", 14, 20), (std::vector{20}));
    EXPECT_TRUE(Find<QAction>("mnuSizeArbitrary")->isChecked());
    Enter("5");
    EXPECT_EQ(shown, "12");
    EXPECT_EQ(Pressed("ToolBar", 14, 20), (std::vector{16}));
    EXPECT_TRUE(Find<QAction>("mnuSize5")->isChecked());
    EXPECT_THAT(prompts.messages, IsEmpty());
}

}  // namespace
}  // namespace korvane::test
