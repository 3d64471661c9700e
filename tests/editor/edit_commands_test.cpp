// The commands of the Edit and Modify menus as the user meets them.
#include <gtest/gtest.h>

#include "scene/mNormals.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

class EditCommandsTest : public test::SessionTest {
  protected:
    EditCommandsTest() {
        for (int i = 0; i < 3; ++i) AddBox({2.0F * i, 0, 0}, {2.0F * i + 1, 1, 1});
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
    constexpr std::string_view kInvert = "mnuInvert";
    const struct {
        std::string_view command;
        Vec3 to;
    } rows[] = {{"mnuRotX", {1.5F, 0.875F, 1.25F}},  {"mnuRotXc", {1.5F, 1.125F, 0.75F}},
                {"mnuRotY", {1.125F, 1.25F, 0.5F}},  {"mnuRotYc", {0.875F, 1.25F, 1.5F}},
                {"mnuRotZ", {1.25F, 0.5F, 1.125F}},  {"mnuRotZc", {0.75F, 1.5F, 1.125F}},
                {"mnuFlipX", {0.5F, 1.25F, 1.125F}}, {"mnuFlipY", {1.5F, 0.75F, 1.125F}},
                {"mnuFlipZ", {1.5F, 1.25F, 0.875F}}, {kInvert, mark}};
    for (const auto& row : rows) {
        Brushes().clear();
        AddBox({0, 0, 0}, {2, 2, 2}).selected = true;
        AddVertex(Brushes()[0], mark, false);
        host.panelRefreshes = 0;
        const auto before = SceneBytes();
        Run(row.command.data());
        EXPECT_LT(Distance(Brushes()[0].vertices[8].Position(), row.to), 1e-5) << row.command;
        EXPECT_TRUE(AllPoint(Brushes()[0], row.command == kInvert ? -1 : +1)) << row.command;
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
        SCOPED_TRACE(testing::Message() << row.selected << row.warnOne << row.warnMany);
        editor.scene = scene;
        Select(row.selected);
        editor.settings.warnings[WarnDeleteBrush] = row.warnOne;
        editor.settings.warnings[WarnDeleteBrushes] = row.warnMany;
        editor.SceneModified = false;
        prompts.answers = {row.answer};
        const std::int32_t undoCount = editor.undo.UndoCount;
        Run("mnuDelete");
        EXPECT_EQ(Brushes().size(), row.left);
        for (const Message& message : prompts.messages) {
            EXPECT_EQ(message.icon, MessageIcon::Question);
            EXPECT_EQ(message.buttons, MessageButtons::YesNo);
        }
        const bool asked = row.question[0] != '\0', deleted = row.left < 3;
        EXPECT_EQ(prompts.Told(), std::vector<std::string>(asked ? 1 : 0, row.question));
        EXPECT_EQ(editor.undo.UndoCount, undoCount + deleted);
        EXPECT_EQ(editor.SceneModified, deleted);
    }
}

TEST_F(EditCommandsTest, APasteIsAFullCopyWithoutInnerSelection) {
    Select("110");
    Brush& source = Brushes()[1];
    source.name = "tower";
    source.group = "castle";
    source.shape = Cone;
    source.vertices[1].selected = source.faces[1].selected = true;
    source.faces[1].smooth = 1;
    source.faces[1].uv[0] = {7, 8};  // stale: a paste does not recompute
    Run("mnuCopy");
    EXPECT_EQ(editor.undo.UndoCount, 0);
    EXPECT_FALSE(editor.SceneModified);
    Run("mnuPaste");
    Run("mnuPaste");
    EXPECT_EQ(Selected(), "0000011") << "the last copies only";
    const Brush& copy = Brushes()[6];
    EXPECT_EQ(copy.name + copy.group, "Brush-0006castle");
    EXPECT_EQ(BoundsOf(6), BoundsOf(1));
    EXPECT_EQ(copy.shape, Cone);
    EXPECT_EQ(copy.faces[1].uv[0], (TexCoord{7, 8}));
    EXPECT_EQ(copy.faces[1].smooth, 1);
    EXPECT_FALSE(copy.faces[1].selected || copy.vertices[1].selected);
    EXPECT_NE(copy.revision, Brushes()[1].revision);
    Run("mnuUnSelect");
    FindCommand("mnuCopy")->run(editor);
    EXPECT_EQ(editor.scene.clipboardCount(), 2) << "nothing selected: the last copy stays";
    Run("mnuUndo");
    EXPECT_EQ(Selected(), "00011");
    EXPECT_FALSE(Enabled("mnuPaste")) << "undo empties the clipboard";
}

}  // namespace
}  // namespace korvane
