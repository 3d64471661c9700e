// New, Open, Merge, Save and Save As as the user meets them: prompts, messages and what becomes of
// the session.
#include "editor/mFileOpenSave.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

using test::Bytes;
using test::FileBytes;
using test::WriteFileBytes;

const char kInvalid[] = "Error: Invalid Korvane File Format!";

class FileCommandsTest : public test::SessionTest {
  protected:
    /// A box that is not saved.
    void AddBox(const std::string& group = {}) {
        SessionTest::AddBox({0, 0, 0}, {1, 1, 1}).group = group;
        editor.SceneModified = true;
    }

    /// A file holding one box of that group.
    std::string BoxFile(const std::string& name, const std::string& group) {
        Scene scene;
        CreateBrush(scene, {-3, 0, 0}, {-2, 1, 1}, 4, editor.Space());
        scene.brushes[0].group = group;
        WriteFileBytes(folder.Path(name), EncodeObject(scene, editor.textures, false));
        return folder.Path(name);
    }

    std::string BadFile() {
        WriteFileBytes(folder.Path("bad.kvobject"), {'O', 'B', 'S', 'F', 1, 2, 3});
        return folder.Path("bad.kvobject");
    }

    void Choose(const std::string& path) { prompts.paths.emplace_back(path); }

    /// The one message since the last call; its title and look are those of errors.
    void ExpectError(const std::string& text) {
        ASSERT_EQ(prompts.messages.size(), 1U);
        EXPECT_EQ(prompts.messages[0].text, text);
        EXPECT_EQ(prompts.messages[0].title, "Error!");
        EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Exclamation);
        EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::Ok);
        prompts.messages.clear();
    }

    std::string Groups() const {
        std::string groups;
        for (const Brush& brush : editor.scene.brushes)
            groups += brush.name + ":" + brush.group + " ";
        return groups;
    }
};

TEST_F(FileCommandsTest, SaveAsksForANameOnceAndOpenBringsTheSceneBack) {
    AddBox("wall");
    EXPECT_EQ(WindowTitle(editor), "Korvane - New_Object*");
    Choose(folder.Path("house.kvobject"));
    SaveCurrentObject(editor);
    ASSERT_EQ(prompts.saveDialogs.size(), 1U);
    EXPECT_EQ(prompts.saveDialogs[0].title, "Save Object As...");
    EXPECT_EQ(prompts.saveDialogs[0].filterName, "Korvane Files (*.kvobject)");
    EXPECT_EQ(prompts.saveDialogs[0].filterPattern, "*.kvobject");
    EXPECT_EQ(prompts.saveDialogs[0].defaultExtension, "kvobject");
    EXPECT_EQ(WindowTitle(editor), "Korvane - house");
    EXPECT_GE(host.commandStateRefreshes, 1);
    AddBox("roof");
    SaveCurrentObject(editor);
    EXPECT_EQ(prompts.saveDialogs.size(), 1U);
    EXPECT_FALSE(editor.SceneModified);

    const Bytes saved = FileBytes(folder.Path("house.kvobject"));
    NewObject(editor);
    Choose(folder.Path("house.kvobject"));
    OpenObject(editor);
    ASSERT_EQ(prompts.openDialogs.size(), 1U);
    EXPECT_EQ(prompts.openDialogs[0].title, "Open Object...");
    EXPECT_EQ(prompts.openDialogs[0].filterPattern, "*.kvobject");
    EXPECT_EQ(editor.CurrentObjectPath, folder.Path("house.kvobject"));
    EXPECT_EQ(EncodeObject(editor.scene, editor.textures, false), saved);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(FileCommandsTest, UnsavedChangesAreAskedAbout) {
    const struct {
        void (*run)(Editor&);
        Warning warning;
        const char* title;
        const char* text;
    } rows[] = {
        {NewObject, WarnNew, "Warning!",
         "Warning, there are unsaved changes to the current scene!\r\n"
         "Are you sure you wish to continue?"},
        {OpenObject, WarnOpen, "Notice!",
         "Notice! There are unsaved changes to the scene!\r\n"
         "Are you sure you wish to continue?"},
    };
    const std::string other = BoxFile("other.kvobject", "other");
    for (const auto& row : rows) {
        AddBox("mine");
        const std::string before = Groups();
        prompts.messages.clear();
        prompts.answers = {Answer::No, Answer::Yes};
        prompts.paths = {other};
        row.run(editor);
        ASSERT_EQ(prompts.messages.size(), 1U);
        EXPECT_EQ(prompts.messages[0].title, row.title);
        EXPECT_EQ(prompts.messages[0].text, row.text);
        EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Question);
        EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::YesNo);
        EXPECT_EQ(Groups(), before);
        EXPECT_TRUE(editor.SceneModified);
        EXPECT_EQ(prompts.paths.size(), 1U) << "the dialog is not reached";
        row.run(editor);
        EXPECT_EQ(Groups().find("mine"), std::string::npos);
        EXPECT_FALSE(editor.SceneModified);

        editor.SceneModified = true;
        editor.settings.warnings[row.warning] = false;
        prompts.messages.clear();
        row.run(editor);
        editor.settings.warnings[row.warning] = true;
        editor.SceneModified = false;
        row.run(editor);
        EXPECT_TRUE(prompts.messages.empty()) << "switched off, then nothing unsaved";
    }
}

TEST_F(FileCommandsTest, NewPutsEverythingBackToTheStart) {
    AddBox();
    editor.scene.clipboard = editor.scene.brushes;
    editor.CurrentObjectPath = "somewhere.kvobject";
    editor.currentFileForeign = true;
    editor.SceneModified = false;
    editor.views[TopView].panX = 30;
    editor.splitX = 0.2F;
    editor.scene.editMode = VertexMove;
    NewObject(editor);
    EXPECT_EQ(editor.scene.editMode, VertexMove) << "the user goes on as before";
    EXPECT_EQ(editor.scene.brushCount(), 0);
    EXPECT_EQ(editor.scene.clipboardCount(), 0);
    EXPECT_EQ(editor.CurrentObjectPath, "");
    EXPECT_FALSE(editor.currentFileForeign);
    EXPECT_EQ(editor.views[TopView].panX, 0);
    EXPECT_EQ(editor.splitX, 0.5F);
    EXPECT_EQ(host.layouts, 1);
    EXPECT_EQ(host.redraws, RedrawAll);
}

TEST_F(FileCommandsTest, MergeAppendsAndKeepsThePath) {
    AddBox("mine");
    editor.SceneModified = false;
    editor.CurrentObjectPath = "mine.kvobject";
    editor.scene.clipboard = Brushes();
    Choose(BoxFile("other.kvobject", "other"));
    MergeObject(editor);
    EXPECT_EQ(Groups(), "Brush-0000:mine Brush-0001:other ");
    EXPECT_EQ(editor.CurrentObjectPath, "mine.kvobject");
    EXPECT_TRUE(editor.SceneModified);
    EXPECT_EQ(editor.scene.clipboardCount(), 1);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(FileCommandsTest, WhatCannotBeReadChangesNothing) {
    Bytes cut = FileBytes(BoxFile("other.kvobject", "other"));
    cut.pop_back();
    WriteFileBytes(folder.Path("cut.kvobject"), cut);
    const auto merge = [](Editor& session, const std::string&) { MergeObject(session); };
    const std::string missing = folder.Path("missing.kvobject");
    const std::pair<std::string, void (*)(Editor&, const std::string&)> rows[] = {
        {BadFile(), merge},        {folder.Path("cut.kvobject"), merge},
        {missing, merge},          {folder.Path(), merge},
        {missing, OpenObjectFile}, {folder.Path(), OpenObjectFile}};
    for (const auto& [path, run] : rows) {
        SCOPED_TRACE(path);
        Brushes().clear();
        AddBox("mine");
        editor.SceneModified = false;
        editor.CurrentObjectPath = "mine.kvobject";
        const std::uint64_t revision = editor.scene.brushes[0].revision;
        prompts.paths = {path};
        run(editor, path);
        ExpectError(kInvalid);
        EXPECT_EQ(Groups(), "Brush-0000:mine ");
        EXPECT_EQ(editor.scene.brushes[0].revision, revision);
        EXPECT_EQ(editor.CurrentObjectPath, "mine.kvobject");
        EXPECT_FALSE(editor.SceneModified || editor.currentFileForeign);
    }
}

TEST_F(FileCommandsTest, ABadFileEmptiesTheSceneAndIsNeverOverwrittenUnasked) {
    const std::string bad = BadFile();
    const Bytes before = FileBytes(bad);
    AddBox();
    editor.SceneModified = false;
    Choose(bad);
    OpenObject(editor);
    ExpectError(kInvalid);
    EXPECT_EQ(editor.scene.brushCount(), 0);
    EXPECT_EQ(WindowTitle(editor), "Korvane - bad");
    EXPECT_GE(host.commandStateRefreshes, 1);

    AddBox();
    SaveCurrentObject(editor);  // the dialog is cancelled
    EXPECT_EQ(prompts.saveDialogs.size(), 1U);
    EXPECT_EQ(FileBytes(bad), before);
    EXPECT_TRUE(editor.SceneModified);

    Choose(folder.Path("good.kvobject"));
    SaveCurrentObject(editor);
    EXPECT_FALSE(editor.currentFileForeign);
    SaveCurrentObject(editor);
    EXPECT_EQ(prompts.saveDialogs.size(), 2U) << "the new name is not asked for again";
    EXPECT_EQ(FileBytes(bad), before);

    editor.SceneModified = true;
    editor.settings.warnings[WarnOpen] = false;
    Choose(bad);
    OpenObject(editor);
    EXPECT_TRUE(editor.currentFileForeign);
    EXPECT_TRUE(editor.SceneModified) << "the snapshots still hold what was not saved";
    Choose(folder.Path("good.kvobject"));
    OpenObject(editor);
    EXPECT_FALSE(editor.currentFileForeign);
    EXPECT_EQ(editor.scene.brushCount(), 1);
}

TEST_F(FileCommandsTest, CancellingADialogChangesNothing) {
    AddBox("mine");
    editor.settings.warnings[WarnOpen] = false;
    for (const auto run : {OpenObject, MergeObject, SaveCurrentObject, SaveObjectAs}) run(editor);
    EXPECT_EQ(Groups(), "Brush-0000:mine ");
    EXPECT_TRUE(editor.SceneModified);
    EXPECT_EQ(editor.CurrentObjectPath, "");
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(prompts.openDialogs.size() + prompts.saveDialogs.size(), 4U);
    EXPECT_EQ(folder.EntryCount(), 1) << "the cache alone";
    EXPECT_EQ(host.formCloses, 0);
}

TEST_F(FileCommandsTest, AFileNamedOutsideTheDialogBecomesTheCurrentOne) {
    AddBox("mine");
    const std::string path = BoxFile("bridge.old.kvobject", "other");
    OpenObjectFile(editor, path);
    EXPECT_EQ(Groups(), "Brush-0000:other ");
    EXPECT_EQ(editor.CurrentObjectPath, path);
    EXPECT_EQ(WindowTitle(editor), "Korvane - bridge.old");
    EXPECT_TRUE(prompts.messages.empty() && prompts.openDialogs.empty());
}

}  // namespace
}  // namespace korvane
