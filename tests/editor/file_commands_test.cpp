// New, Open, Merge, Save and Save As as the user meets them: prompts, messages and what becomes of
// the session.
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "editor/mFileOpenSave.h"
#include "files/mObjectFile.h"
#include "scene/mBrush.h"
#include "support/FileSizeLimit.h"
#include "support/RecordingHost.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;
using test::FileBytes;
using test::WriteFileBytes;

const char kInvalid[] = "Error: Invalid Korvane File Format!";
const char kUnableToSave[] = "Error: Unable to save file!";

class FileCommandsTest : public testing::Test {
  protected:
    void AddBox(const std::string& group = {}) {
        const std::int32_t index =
            CreateBrush(editor_.scene, {0, 0, 0}, {1, 1, 1}, 4, editor_.Space());
        editor_.scene.brushes[index].group = group;
        editor_.SceneModified = true;
    }

    /// A file holding one box of that group.
    std::string BoxFile(const std::string& name, const std::string& group) {
        Scene scene;
        CreateBrush(scene, {-3, 0, 0}, {-2, 1, 1}, 4, editor_.Space());
        scene.brushes[0].group = group;
        WriteFileBytes(folder_.Path(name), EncodeObject(scene, editor_.textures, false));
        return folder_.Path(name);
    }

    std::string BadFile() {
        WriteFileBytes(folder_.Path("bad.kvobject"), {'O', 'B', 'S', 'F', 1, 2, 3});
        return folder_.Path("bad.kvobject");
    }

    void Choose(const std::string& path) { prompts_.paths.emplace_back(path); }

    /// The one message since the last call; its title and look are those of errors.
    void ExpectError(const std::string& text) {
        ASSERT_EQ(prompts_.messages.size(), 1U);
        EXPECT_EQ(prompts_.messages[0].text, text);
        EXPECT_EQ(prompts_.messages[0].title, "Error!");
        EXPECT_EQ(prompts_.messages[0].icon, MessageIcon::Exclamation);
        EXPECT_EQ(prompts_.messages[0].buttons, MessageButtons::Ok);
        prompts_.messages.clear();
    }

    std::string Groups() const {
        std::string groups;
        for (const Brush& brush : editor_.scene.brushes)
            groups += brush.name + ":" + brush.group + " ";
        return groups;
    }

    test::TempFolder folder_;
    test::RecordingHost host_;
    test::ScriptedPrompts prompts_;
    Editor editor_{host_, prompts_};
};

TEST_F(FileCommandsTest, SaveAsksForANameOnceAndOpenBringsTheSceneBack) {
    AddBox("wall");
    Choose(folder_.Path("house.kvobject"));
    SaveCurrentObject(editor_);
    ASSERT_EQ(prompts_.saveDialogs.size(), 1U);
    EXPECT_EQ(prompts_.saveDialogs[0].title, "Save Object As...");
    EXPECT_EQ(prompts_.saveDialogs[0].filterName, "Korvane Files (*.kvobject)");
    EXPECT_EQ(prompts_.saveDialogs[0].filterPattern, "*.kvobject");
    EXPECT_EQ(prompts_.saveDialogs[0].defaultExtension, "kvobject");
    EXPECT_EQ(editor_.CurrentObjectPath, folder_.Path("house.kvobject"));
    EXPECT_EQ(WindowTitle(editor_), "Korvane - house");
    EXPECT_GE(host_.commandStateRefreshes, 1);
    EXPECT_EQ(host_.redraws, RedrawAll);

    AddBox("roof");
    SaveCurrentObject(editor_);
    EXPECT_EQ(prompts_.saveDialogs.size(), 1U);
    EXPECT_FALSE(editor_.SceneModified);

    const Bytes saved = FileBytes(folder_.Path("house.kvobject"));
    NewObject(editor_);
    EXPECT_EQ(WindowTitle(editor_), "Korvane - New_Object");
    EXPECT_EQ(editor_.scene.brushCount(), 0);
    Choose(folder_.Path("house.kvobject"));
    OpenObject(editor_);
    ASSERT_EQ(prompts_.openDialogs.size(), 1U);
    EXPECT_EQ(prompts_.openDialogs[0].title, "Open Object...");
    EXPECT_EQ(prompts_.openDialogs[0].filterPattern, "*.kvobject");
    EXPECT_EQ(Groups(), "Brush-0000:wall Brush-0001:roof ");
    EXPECT_EQ(WindowTitle(editor_), "Korvane - house");
    EXPECT_EQ(EncodeObject(editor_.scene, editor_.textures, false), saved);
    EXPECT_TRUE(prompts_.messages.empty());
}

TEST_F(FileCommandsTest, UnsavedChangesAreAskedAbout) {
    struct Row {
        void (*run)(Editor&);
        Warning warning;
        const char* title;
        const char* text;
    };
    const Row rows[] = {
        {NewObject, WarnNew, "Warning!",
         "Warning, there are unsaved changes to the current scene!\r\n"
         "Are you sure you wish to continue?"},
        {OpenObject, WarnOpen, "Notice!",
         "Notice! There are unsaved changes to the scene!\r\n"
         "Are you sure you wish to continue?"},
    };
    const std::string other = BoxFile("other.kvobject", "other");
    for (const Row& row : rows) {
        AddBox("mine");
        const std::string before = Groups();
        prompts_.messages.clear();
        prompts_.answers = {Answer::No};
        prompts_.paths = {other};
        row.run(editor_);
        ASSERT_EQ(prompts_.messages.size(), 1U);
        EXPECT_EQ(prompts_.messages[0].title, row.title);
        EXPECT_EQ(prompts_.messages[0].text, row.text);
        EXPECT_EQ(prompts_.messages[0].icon, MessageIcon::Question);
        EXPECT_EQ(prompts_.messages[0].buttons, MessageButtons::YesNo);
        EXPECT_EQ(Groups(), before);
        EXPECT_TRUE(editor_.SceneModified);
        EXPECT_EQ(host_.formCloses, 0);
        EXPECT_EQ(prompts_.paths.size(), 1U) << "the dialog is not reached";

        prompts_.answers = {Answer::Yes};
        row.run(editor_);
        EXPECT_EQ(Groups().find("mine"), std::string::npos);
        EXPECT_FALSE(editor_.SceneModified);
        EXPECT_EQ(std::exchange(host_.formCloses, 0), 1) << "what they worked on is gone";

        editor_.SceneModified = true;
        editor_.settings.warnings[row.warning] = false;
        prompts_.messages.clear();
        prompts_.paths = {other};
        row.run(editor_);
        EXPECT_TRUE(prompts_.messages.empty()) << "switched off";
        EXPECT_FALSE(editor_.SceneModified);
        row.run(editor_);
        EXPECT_TRUE(prompts_.messages.empty()) << "nothing unsaved";
        host_.formCloses = 0;
    }
}

TEST_F(FileCommandsTest, NewPutsEverythingBackToTheStart) {
    AddBox();
    editor_.scene.clipboard = editor_.scene.brushes;
    editor_.CurrentObjectPath = "somewhere.kvobject";
    editor_.currentFileForeign = true;
    editor_.SceneModified = false;
    editor_.views[TopView].panX = 30;
    editor_.splitX = 0.2F;
    NewObject(editor_);
    EXPECT_EQ(editor_.scene.brushCount(), 0);
    EXPECT_EQ(editor_.scene.clipboardCount(), 0);
    EXPECT_EQ(editor_.CurrentObjectPath, "");
    EXPECT_FALSE(editor_.currentFileForeign);
    EXPECT_EQ(editor_.views[TopView].panX, 0);
    EXPECT_EQ(editor_.splitX, 0.5F);
    EXPECT_EQ(host_.layouts, 1);
    EXPECT_EQ(host_.redraws, RedrawAll);
}

TEST_F(FileCommandsTest, MergeAppendsAndKeepsThePath) {
    AddBox("mine");
    editor_.SceneModified = false;
    editor_.CurrentObjectPath = folder_.Path("mine.kvobject");
    editor_.scene.clipboard = editor_.scene.brushes;
    Choose(BoxFile("other.kvobject", "other"));
    MergeObject(editor_);
    EXPECT_EQ(Groups(), "Brush-0000:mine Brush-0001:other ");
    EXPECT_EQ(editor_.CurrentObjectPath, folder_.Path("mine.kvobject"));
    EXPECT_TRUE(editor_.SceneModified);
    EXPECT_EQ(editor_.scene.clipboardCount(), 1);
    EXPECT_TRUE(prompts_.messages.empty());
}

TEST_F(FileCommandsTest, AFailedMergeChangesNothing) {
    AddBox("mine");
    editor_.SceneModified = false;
    const std::uint64_t revision = editor_.scene.brushes[0].revision;
    Bytes cut = FileBytes(BoxFile("other.kvobject", "other"));
    cut.pop_back();
    WriteFileBytes(folder_.Path("cut.kvobject"), cut);
    for (const std::string& path : {BadFile(), folder_.Path("cut.kvobject"),
                                    folder_.Path("missing.kvobject"), folder_.Path()}) {
        Choose(path);
        MergeObject(editor_);
        ExpectError(kInvalid);
        EXPECT_EQ(Groups(), "Brush-0000:mine ");
        EXPECT_EQ(editor_.scene.brushes[0].revision, revision);
        EXPECT_FALSE(editor_.SceneModified);
        EXPECT_FALSE(editor_.currentFileForeign);
        EXPECT_EQ(editor_.CurrentObjectPath, "");
    }
}

TEST_F(FileCommandsTest, ABadFileEmptiesTheSceneAndIsNeverOverwrittenUnasked) {
    const std::string bad = BadFile();
    const Bytes before = FileBytes(bad);
    AddBox();
    editor_.SceneModified = false;
    Choose(bad);
    OpenObject(editor_);
    ExpectError(kInvalid);
    EXPECT_EQ(editor_.scene.brushCount(), 0);
    EXPECT_EQ(WindowTitle(editor_), "Korvane - bad");
    EXPECT_GE(host_.commandStateRefreshes, 1);

    AddBox();
    SaveCurrentObject(editor_);  // the dialog is cancelled
    EXPECT_EQ(prompts_.saveDialogs.size(), 1U);
    EXPECT_EQ(FileBytes(bad), before);
    EXPECT_TRUE(editor_.SceneModified);

    Choose(folder_.Path("good.kvobject"));
    SaveCurrentObject(editor_);
    EXPECT_FALSE(editor_.currentFileForeign);
    SaveCurrentObject(editor_);
    EXPECT_EQ(prompts_.saveDialogs.size(), 2U) << "the new name is not asked for again";
    EXPECT_EQ(FileBytes(bad), before);

    editor_.SceneModified = true;
    editor_.settings.warnings[WarnOpen] = false;
    Choose(bad);
    OpenObject(editor_);
    EXPECT_TRUE(editor_.currentFileForeign);
    EXPECT_TRUE(editor_.SceneModified) << "the snapshots still hold what was not saved";
    Choose(folder_.Path("good.kvobject"));
    OpenObject(editor_);
    EXPECT_FALSE(editor_.currentFileForeign);
    EXPECT_EQ(editor_.scene.brushCount(), 1);
}

TEST_F(FileCommandsTest, AFileThatCannotBeReadLeavesSceneAndPath) {
    AddBox("mine");
    editor_.CurrentObjectPath = "mine.kvobject";
    editor_.settings.warnings[WarnOpen] = false;
    for (const std::string& path : {folder_.Path("missing.kvobject"), folder_.Path()}) {
        Choose(path);
        OpenObject(editor_);
        ExpectError(kInvalid);
        OpenObjectFile(editor_, path);
        ExpectError(kInvalid);
        EXPECT_EQ(Groups(), "Brush-0000:mine ");
        EXPECT_EQ(editor_.CurrentObjectPath, "mine.kvobject");
        EXPECT_TRUE(editor_.SceneModified);
        EXPECT_FALSE(editor_.currentFileForeign);
    }
}

TEST_F(FileCommandsTest, CancellingADialogChangesNothing) {
    AddBox("mine");
    editor_.settings.warnings[WarnOpen] = false;
    for (const auto run : {OpenObject, MergeObject, SaveCurrentObject, SaveObjectAs}) {
        run(editor_);
        EXPECT_EQ(Groups(), "Brush-0000:mine ");
        EXPECT_TRUE(editor_.SceneModified);
        EXPECT_EQ(editor_.CurrentObjectPath, "");
        EXPECT_TRUE(prompts_.messages.empty());
    }
    EXPECT_EQ(prompts_.openDialogs.size(), 2U);
    EXPECT_EQ(prompts_.saveDialogs.size(), 2U);
    EXPECT_EQ(folder_.EntryCount(), 0);
    EXPECT_EQ(host_.formCloses, 0);
}

TEST_F(FileCommandsTest, AFailedSaveTellsTheUserAndLosesNothing) {
    AddBox();
    Choose(folder_.Path("missing/house.kvobject"));
    SaveObjectAs(editor_);
    ExpectError(kUnableToSave);
    EXPECT_TRUE(editor_.SceneModified);

    const std::string path = BoxFile("house.kvobject", "old");
    const Bytes before = FileBytes(path);
    editor_.CurrentObjectPath = path;
    {
        const test::FileSizeLimit full(100);
        SaveCurrentObject(editor_);
    }
    ExpectError(kUnableToSave);
    EXPECT_TRUE(editor_.SceneModified);
    EXPECT_EQ(FileBytes(path), before);
    EXPECT_EQ(folder_.EntryCount(), 1);
    SaveCurrentObject(editor_);
    EXPECT_FALSE(editor_.SceneModified);
    EXPECT_NE(FileBytes(path), before);
}

TEST_F(FileCommandsTest, AFileNamedOutsideTheDialogBecomesTheCurrentOne) {
    AddBox("mine");
    const std::string path = BoxFile("bridge.old.kvobject", "other");
    OpenObjectFile(editor_, path);
    EXPECT_EQ(Groups(), "Brush-0000:other ");
    EXPECT_EQ(editor_.CurrentObjectPath, path);
    EXPECT_EQ(WindowTitle(editor_), "Korvane - bridge.old");
    EXPECT_TRUE(prompts_.messages.empty());
    EXPECT_TRUE(prompts_.openDialogs.empty());
    OpenObjectFile(editor_, BadFile());
    ExpectError(kInvalid);
    EXPECT_TRUE(editor_.currentFileForeign);
}

}  // namespace
}  // namespace korvane
