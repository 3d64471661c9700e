// The commands of the Edit and Modify menus as the user meets them.
#include <gmock/gmock.h>

#include "scene/mNormals.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

class EditCommandsTest : public test::SessionTest {
  protected:
    EditCommandsTest() {
        for (int i = 0; i < 3; ++i) AddBox({2.0F * i, 0, 0}, {2.0F * i + 1, 1, 1});
    }

    void Select(const std::string& flags) {
        for (std::size_t i = 0; i < flags.size(); ++i) Brushes()[i].selected = flags[i] == '1';
    }
};

TEST_F(EditCommandsTest, CommandsAreEnabledByWhatTheyNeed) {
    const char* const needSelection[] = {"mnuCopy",  "mnuUnSelect", "mnuDelete",  "mnuFreeRotate",
                                         "mnuRotX",  "mnuRotXc",    "mnuRotY",    "mnuRotYc",
                                         "mnuRotZ",  "mnuRotZc",    "mnuFlipX",   "mnuFlipY",
                                         "mnuFlipZ", "mnuInvert",   "mnuMultiply"};
    for (const bool selected : {false, true}) {
        Brushes()[2].selected = selected;
        for (const char* name : needSelection) EXPECT_EQ(Enabled(name), selected) << name;
        EXPECT_TRUE(Enabled("mnuSelect"));
        EXPECT_FALSE(Enabled("mnuPaste"));
        EXPECT_FALSE(Enabled("mnuUndo"));
    }
    Run("mnuCopy");
    EXPECT_EQ(host.commandStateRefreshes, 1) << "paste shows as enabled at once";
    EXPECT_TRUE(Enabled("mnuPaste"));
    Run("mnuPaste");
    EXPECT_TRUE(Enabled("mnuUndo"));
    for (const bool enabled : {true, false}) {
        Brushes().resize(enabled ? 2 : 1);
        EXPECT_EQ(Enabled("mnuOptimize"), enabled);
    }
}

TEST_F(EditCommandsTest, EveryTransformIsOneUndoStepAndTurnsTheWayItsNameSays) {
    // A mark off the middle of a cube from (0, 0, 0) to (2, 2, 2), and where it goes.
    const Vec3 mark{1.5F, 1.25F, 1.125F};
    const struct {
        const char* command;
        Vec3 to;
    } rows[] = {{"mnuRotX", {1.5F, 0.875F, 1.25F}},  {"mnuRotXc", {1.5F, 1.125F, 0.75F}},
                {"mnuRotY", {1.125F, 1.25F, 0.5F}},  {"mnuRotYc", {0.875F, 1.25F, 1.5F}},
                {"mnuRotZ", {1.25F, 0.5F, 1.125F}},  {"mnuRotZc", {0.75F, 1.5F, 1.125F}},
                {"mnuFlipX", {0.5F, 1.25F, 1.125F}}, {"mnuFlipY", {1.5F, 0.75F, 1.125F}},
                {"mnuFlipZ", {1.5F, 1.25F, 0.875F}}, {"mnuInvert", mark}};
    for (const auto& row : rows) {
        Brushes().clear();
        AddBox({0, 0, 0}, {2, 2, 2}).selected = true;
        AddVertex(Brushes()[0], mark, false);
        host.panelRefreshes = 0;
        const auto before = SceneBytes();
        Run(row.command);
        EXPECT_LT(Distance(Brushes()[0].vertices[8].Position(), row.to), 1e-5) << row.command;
        EXPECT_NE(SceneBytes(), before) << row.command;
        EXPECT_EQ(host.panelRefreshes, 1) << row.command;
        EXPECT_EQ(editor.undo.UndoCount, 1) << row.command;
        Run("mnuUndo");
        EXPECT_EQ(SceneBytes(), before) << row.command;
    }
}

TEST_F(EditCommandsTest, DeletingAsksAsTheSettingsSay) {
    const char kOne[] = "Warning! Are you sure you wish delete this brush?";
    const char kTwo[] = "Warning! Are you sure you wish delete these 2 brushes?";
    const struct {
        const char* selected;
        bool warnOne, warnMany;
        Answer answer;
        const char* question;
        std::size_t left;
    } rows[] = {
        {"100", true, true, Answer::Yes, kOne, 2}, {"100", true, true, Answer::No, kOne, 3},
        {"100", false, true, Answer::No, "", 2},   {"101", false, true, Answer::Yes, kTwo, 1},
        {"101", false, true, Answer::No, kTwo, 3}, {"101", true, false, Answer::No, "", 1},
    };
    const Scene scene = editor.scene;
    for (const auto& row : rows) {
        editor.scene = scene;
        Select(row.selected);
        editor.settings.warnings[WarnDeleteBrush] = row.warnOne;
        editor.settings.warnings[WarnDeleteBrushes] = row.warnMany;
        editor.SceneModified = false;
        prompts.messages.clear();
        prompts.answers = {row.answer};
        const std::int32_t undoCount = editor.undo.UndoCount;
        Run("mnuDelete");
        EXPECT_EQ(Brushes().size(), row.left);
        EXPECT_EQ(prompts.messages.empty(), row.question[0] == '\0');
        for (const Message& message : prompts.messages) {
            EXPECT_EQ(message.text, row.question);
            EXPECT_EQ(message.title, "Warning!");
            EXPECT_EQ(message.icon, MessageIcon::Question);
            EXPECT_EQ(message.buttons, MessageButtons::YesNo);
        }
        const bool deleted = row.left < 3;
        EXPECT_EQ(editor.undo.UndoCount, undoCount + deleted);
        EXPECT_EQ(editor.SceneModified, deleted);
    }
}

TEST_F(EditCommandsTest, PastingSelectsOnlyTheLastCopies) {
    Select("110");
    Run("mnuCopy");
    EXPECT_EQ(editor.undo.UndoCount, 0);
    EXPECT_FALSE(editor.SceneModified);
    Run("mnuPaste");
    Run("mnuPaste");
    EXPECT_EQ(Selected(), "0000011");
    EXPECT_EQ(BoundsOf(6), BoundsOf(1));
    EXPECT_NE(Brushes()[6].revision, Brushes()[1].revision);
    Run("mnuUnSelect");
    FindCommand("mnuCopy")->run(editor);
    EXPECT_EQ(editor.scene.clipboardCount(), 2) << "nothing selected: the last copy stays";
    Run("mnuUndo");
    EXPECT_EQ(Selected(), "00011");
    EXPECT_FALSE(Enabled("mnuPaste")) << "undo empties the clipboard";
}

TEST_F(EditCommandsTest, UnSelectRefreshesThePanelAndWorksInLevels) {
    Select("110");
    editor.scene.editMode = FaceEdit;
    Brushes()[0].faces[4].selected = true;
    Run("mnuUnSelect");
    EXPECT_EQ(Selected(), "110") << "the face goes first";
    EXPECT_EQ(host.panelRefreshes, 1);
    Run("mnuUnSelect");
    EXPECT_EQ(Selected(), "000");
}

TEST_F(EditCommandsTest, DialogsAreOpenedByTheWindow) {
    Select("100");
    Run("mnuSelect");
    Run("mnuFreeRotate");
    Run("mnuMultiply");
    EXPECT_THAT(host.forms, testing::ElementsAre(Form::Select, Form::FreeRotate, Form::Multiply));
}

}  // namespace
}  // namespace korvane
