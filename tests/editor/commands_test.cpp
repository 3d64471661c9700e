// The command table: radio groups, toggles, and what no command but one does.
#include <gmock/gmock.h>

#include "editor/mArbitrarySize.h"
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

TEST_F(CommandsTest, RadioGroupsShowExactlyTheState) {
    Run("mnuCreateSphere");
    EXPECT_EQ(Checked("mnuCreateBaseShape"), "mnuCreateSphere");
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

TEST_F(CommandsTest, AnArbitrarySizeIsAWholeNumberFrom3To64) {
    const std::pair<const char*, int> rows[] = {{"3", 3},  {"64.9", 64}, {"2.9", 0},   {"65", 0},
                                                {"-4", 0}, {"65539", 0}, {"1e300", 0}, {"", 0}};
    for (const auto& [text, sides] : rows) {
        Scene scene;
        EXPECT_EQ(SetArbitrarySides(scene, text), sides != 0) << text;
        EXPECT_EQ(scene.sideCount, sides != 0 ? sides : 4) << text;
        EXPECT_EQ(scene.arbitrarySideCount, sides != 0 ? sides : 9) << text;
    }
}

TEST_F(CommandsTest, HelpIsOpenedWhereItLies) {
    Run("mnuHelpContents");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].title, "No Help Found!");
    EXPECT_THAT(prompts.Told(), testing::ElementsAre("Unable to locate help contents!"));
    EXPECT_TRUE(host.documents.empty());
    const std::string page = folder.Path("Help/Korvane/index.htm");
    std::filesystem::create_directories(folder.Path("Help/Korvane"));
    test::WriteFileBytes(page, {});
    Run("mnuHelpContents");
    EXPECT_EQ(host.documents, std::vector{page});
    EXPECT_TRUE(prompts.messages.empty());
}

}  // namespace
}  // namespace korvane
