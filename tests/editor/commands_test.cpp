// The command table: its integrity, radio groups, toggles and enabling.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "editor/mCommands.h"
#include "support/RecordingHost.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

struct CommandsTest : testing::Test {
    test::RecordingHost host;
    test::ScriptedPrompts prompts;
    Editor editor{host, prompts};

    void Run(const char* name) {
        const Command* command = FindCommand(name);
        ASSERT_NE(command, nullptr) << name;
        ASSERT_TRUE(IsEnabled(*command, editor)) << name;
        command->run(editor);
    }

    /// Names of the checked commands of one menu.
    std::set<std::string> Checked(const std::string& menu, CheckKind kind) const {
        std::set<std::string> names;
        for (const Command& command : Commands()) {
            if (command.menu == menu && command.check == kind && command.checked(editor)) {
                names.insert(command.name);
            }
        }
        return names;
    }
};

using Names = std::set<std::string>;

TEST_F(CommandsTest, EveryRowIsComplete) {
    std::set<std::string> names, menus;
    std::set<int> toolButtons, editButtons;
    for (const Menu& menu : Menus()) {
        EXPECT_TRUE(menus.insert(menu.name).second) << menu.name;
        EXPECT_TRUE(menu.parent == nullptr || menus.count(menu.parent)) << menu.name;
    }
    for (const Command& command : Commands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name << " stands twice";
        EXPECT_TRUE(menus.count(command.menu)) << command.name;
        EXPECT_EQ(command.run == nullptr, command.enabled == EnabledWhen::NotYet) << command.name;
        EXPECT_EQ(command.checked == nullptr, command.check == CheckKind::None) << command.name;
        if (command.button.bar == Bar::ToolBar) toolButtons.insert(command.button.index);
        if (command.button.bar == Bar::EditBar) editButtons.insert(command.button.index);
    }
    EXPECT_EQ(toolButtons.size(), 24U);
    EXPECT_EQ(*toolButtons.rbegin(), 23);
    EXPECT_EQ(editButtons.size(), 21U);
    EXPECT_EQ(*editButtons.rbegin(), 20);
    for (const Menu& menu : Menus()) {
        EXPECT_TRUE(menu.before == nullptr || names.count(menu.before)) << menu.name;
    }
}

TEST_F(CommandsTest, RadioGroupsShowExactlyTheState) {
    EXPECT_EQ(Checked("mnuCreateBaseShape", CheckKind::Radio), Names{"mnuCreateBox"});
    Run("mnuCreateSphere");
    EXPECT_EQ(Checked("mnuCreateBaseShape", CheckKind::Radio), Names{"mnuCreateSphere"});
    Run("mnuCreateBox");
    EXPECT_EQ(Checked("mnuCreateBaseShape", CheckKind::Radio), Names{"mnuCreateBox"});

    EXPECT_EQ(Checked("mnuCreate", CheckKind::Radio), Names{"mnuSize4"});
    editor.scene.sideCount = 12;
    EXPECT_EQ(Checked("mnuCreate", CheckKind::Radio), Names{"mnuSizeArbitrary"});
    Run("mnuSize5");
    EXPECT_EQ(Checked("mnuCreate", CheckKind::Radio), Names{"mnuSize5"});

    Run("mnuViewFront");
    EXPECT_EQ(Checked("mnuView", CheckKind::Radio), Names{"mnuViewFront"});
    EXPECT_EQ(host.layouts, 1);
    Run("mnuModeVertex");
    EXPECT_EQ(Checked("mnuModify", CheckKind::Radio), Names{"mnuModeVertex"});
}

TEST_F(CommandsTest, TogglesFlipAndRedrawWhatTheyChange) {
    struct Row {
        const char* command;
        bool Settings::*setting;
        unsigned redraws;
    };
    for (const Row& row : {Row{"mnuRulers", &Settings::showRulers, RedrawAll},
                           Row{"mnuShow3DGrid", &Settings::show3DGrid, RedrawPreview},
                           Row{"mnuSnap", &Settings::snapToGrid, 0},
                           Row{"mnuShowInvisible", &Settings::showInvisible, RedrawPreview}}) {
        host.redraws = 0;
        const int refreshes = host.commandStateRefreshes;
        Run(row.command);
        EXPECT_FALSE(editor.settings.*row.setting) << row.command;
        EXPECT_FALSE(FindCommand(row.command)->checked(editor)) << row.command;
        EXPECT_EQ(host.redraws, row.redraws) << row.command;
        EXPECT_EQ(host.commandStateRefreshes, refreshes + 1) << row.command;
        Run(row.command);
        EXPECT_TRUE(editor.settings.*row.setting) << row.command;
    }
}

TEST_F(CommandsTest, ChangingTheModeClearsVerticesAndKeepsFaces) {
    Brush& brush = editor.scene.brushes[AddBrush(editor.scene, "", "")];
    brush.selected = true;
    AddVertex(brush, {0, 0, 0}, false);
    AddFace(brush, 0, 0, 0, 1);
    brush.vertices[0].selected = true;
    brush.faces[0].selected = true;
    Run("mnuModeEdge");
    EXPECT_FALSE(brush.vertices[0].selected);
    EXPECT_TRUE(brush.faces[0].selected);
}

TEST_F(CommandsTest, UnSelectNeedsASelection) {
    const Command* unselect = FindCommand("mnuUnSelect");
    EXPECT_FALSE(IsEnabled(*unselect, editor));
    editor.scene.brushes[AddBrush(editor.scene, "", "")].selected = true;
    EXPECT_TRUE(IsEnabled(*unselect, editor));
    Run("mnuUnSelect");
    EXPECT_FALSE(editor.scene.brushes[0].selected);
    EXPECT_EQ(host.panelRefreshes, 1);
}

TEST_F(CommandsTest, ResetAllViewsPlacesThePanesAnew) {
    editor.splitX = 0.2F;
    editor.camera.yaw = 90;
    editor.views[TopView].zoom = 10;
    Run("mnuResetAllViews");
    EXPECT_EQ(editor.splitX, 0.5F);
    EXPECT_EQ(editor.camera.yaw, 0);
    EXPECT_EQ(editor.views[TopView].zoom, 80);
    EXPECT_EQ(host.layouts, 1);
}

TEST_F(CommandsTest, MissingHelpIsTold) {
    editor.programFolder = "/no/such/folder";
    Run("mnuHelpContents");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Unable to locate help contents!");
    EXPECT_EQ(prompts.messages[0].title, "No Help Found!");
    EXPECT_TRUE(host.documents.empty());
}

TEST_F(CommandsTest, HelpIsOpenedWhereItLies) {
    const test::TempFolder folder;
    const std::string page = folder.Path("Help/Korvane/index.htm");
    std::filesystem::create_directories(folder.Path("Help/Korvane"));
    test::WriteFileBytes(page, {});
    editor.programFolder = folder.Path();
    Run("mnuHelpContents");
    EXPECT_EQ(host.documents, std::vector{page});
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(CommandsTest, TitleCutsFolderAndLastExtension) {
    EXPECT_EQ(WindowTitle(editor), "Korvane - New_Object");
    editor.CurrentObjectPath = "/objects/v1.2/bridge.old.kvobject";
    EXPECT_EQ(WindowTitle(editor), "Korvane - bridge.old");
    editor.SceneModified = true;
    EXPECT_EQ(WindowTitle(editor), "Korvane - bridge.old*");
}

}  // namespace
}  // namespace korvane
