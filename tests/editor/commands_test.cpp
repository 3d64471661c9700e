// The command table: its integrity, radio groups, toggles and enabling.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/SessionFixture.h"

namespace korvane {
namespace {

class CommandsTest : public test::SessionTest {
  protected:
    /// The checked command among the radio entries of one menu; all of them if there are more.
    std::string Checked(const std::string& menu) const {
        std::string names;
        for (const Command& command : Commands()) {
            if (command.menu == menu && command.check == CheckKind::Radio &&
                command.checked(editor)) {
                names += (names.empty() ? "" : " ") + std::string(command.name);
            }
        }
        return names;
    }
};

TEST_F(CommandsTest, EveryRowIsComplete) {
    std::set<std::string> names, menus;
    for (const Menu& menu : Menus()) {
        EXPECT_TRUE(menus.insert(menu.name).second) << menu.name;
        EXPECT_TRUE(menu.parent == nullptr || menus.count(menu.parent)) << menu.name;
    }
    for (const Command& command : Commands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name << " stands twice";
        EXPECT_TRUE(menus.count(command.menu)) << command.name;
        EXPECT_EQ(command.run == nullptr, command.enabled == EnabledWhen::NotYet) << command.name;
        EXPECT_EQ(command.checked == nullptr, command.check == CheckKind::None) << command.name;
    }
    for (const Menu& menu : Menus()) {
        EXPECT_TRUE(menu.before == nullptr || names.count(menu.before)) << menu.name;
    }
}

TEST_F(CommandsTest, RadioGroupsShowExactlyTheState) {
    EXPECT_EQ(Checked("mnuCreateBaseShape"), "mnuCreateBox");
    Run("mnuCreateSphere");
    EXPECT_EQ(Checked("mnuCreateBaseShape"), "mnuCreateSphere");
    EXPECT_EQ(Checked("mnuCreate"), "mnuSize4");
    editor.scene.sideCount = 12;
    EXPECT_EQ(Checked("mnuCreate"), "mnuSizeArbitrary");
    Run("mnuSize5");
    EXPECT_EQ(Checked("mnuCreate"), "mnuSize5");
    Run("mnuViewFront");
    EXPECT_EQ(Checked("mnuView"), "mnuViewFront");
    EXPECT_EQ(host.layouts, 1);
    Run("mnuModeVertex");
    EXPECT_EQ(Checked("mnuModify"), "mnuModeVertex");
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
    Brush& brush = AddSelected({0, 0, 0}, {1, 1, 1});
    brush.vertices[0].selected = true;
    brush.faces[0].selected = true;
    Run("mnuModeEdge");
    EXPECT_FALSE(brush.vertices[0].selected);
    EXPECT_TRUE(brush.faces[0].selected);
}

TEST_F(CommandsTest, HelpIsOpenedWhereItLies) {
    Run("mnuHelpContents");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Unable to locate help contents!");
    EXPECT_EQ(prompts.messages[0].title, "No Help Found!");
    EXPECT_TRUE(host.documents.empty());
    const std::string page = folder.Path("Help/Korvane/index.htm");
    std::filesystem::create_directories(folder.Path("Help/Korvane"));
    test::WriteFileBytes(page, {});
    Run("mnuHelpContents");
    EXPECT_EQ(host.documents, std::vector{page});
    EXPECT_EQ(prompts.messages.size(), 1U);
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
