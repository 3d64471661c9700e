// Undo snapshots: the stack, the names of its files, two sessions in one folder, a full disk.
#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <set>

#include "editor/mFileOpenSave.h"
#include "editor/mFreeRotate.h"
#include "editor/mMultiply.h"
#include "editor/mPropertyEdits.h"
#include "editor/mSelectDialog.h"
#include "editor/mTextureCommands.h"
#include "editor/mUndo.h"
#include "support/FileSizeLimit.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

using test::Bytes;
using test::FileBytes;
using test::Left;

double StandingClock() {
    return 45296.27;
}

class UndoTest : public test::SessionTest {
  protected:
    UndoTest() { AddBox({0, 0, 0}, {1, 1, 1}); }

    /// A change in one undo step: the only brush moves on by one unit.
    void Change() {
        TakeUndoSnapshot(editor);
        for (Vertex& v : Brushes().at(0).vertices) v.x += 1;
    }

    float Place() const { return editor.scene.brushes.at(0).vertices[0].x; }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int i = 0; i < editor.undo.UndoCount; ++i)
            names.push_back(editor.undo.UndoNames[static_cast<std::size_t>(i)].file);
        return names;
    }

    bool NamesDiffer() const {
        const auto names = Names();
        return std::set(names.begin(), names.end()).size() == names.size();
    }

    std::string InCache(const std::string& name) { return folder.Path("ObjCache/" + name); }
};

TEST_F(UndoTest, BringsBackBrushesAndSelectionAndNothingElse) {
    AddSelected({2, 0, 0}, {3, 1, 1}).group = "wall";
    Brushes()[1].faces[3].selected = true;
    editor.CurrentObjectPath = "mine.kvobject";
    editor.currentFileForeign = true;
    editor.scene.editMode = EdgeMove;
    const Bytes before = SceneBytes();
    TakeUndoSnapshot(editor);
    EXPECT_TRUE(editor.SceneModified);
    editor.scene.clipboard = Brushes();
    Brushes().pop_back();
    for (int i = 0; i < 2; ++i) {  // without a snapshot nothing changes
        Undo(editor);
        EXPECT_EQ(SceneBytes(), before);
    }
    EXPECT_TRUE(editor.scene.clipboard.empty());
    EXPECT_TRUE(editor.SceneModified) << "even back at the saved state";
    EXPECT_EQ(editor.CurrentObjectPath, "mine.kvobject");
    EXPECT_TRUE(editor.currentFileForeign);
    EXPECT_EQ(editor.scene.editMode, EdgeMove);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(UndoTest, FiftyStepsAreKeptUnderUniqueNamesEvenWhenTheClockStands) {
    editor.undo.clock = StandingClock;
    Change();
    EXPECT_THAT(Names(), testing::ElementsAre("$0001_45296.27$.$kvuscache$"));
    for (int i = 1; i < 120; ++i) Change();
    EXPECT_THAT(
        Names(),
        testing::Each(testing::MatchesRegex("\\$00[0-9][0-9]_[0-9.]+\\$\\.\\$kvuscache\\$")));
    EXPECT_TRUE(NamesDiffer());
    EXPECT_EQ(SnapshotFiles(), 50);
    for (int i = 119; i >= 70; --i) {
        Undo(editor);
        EXPECT_EQ(Place(), static_cast<float>(i));
    }
    EXPECT_FALSE(Enabled("mnuUndo")) << "the older ones were dropped";
    editor.SceneModified = false;
    Redo(editor);
    EXPECT_EQ(Place(), 71);
    EXPECT_TRUE(editor.SceneModified) << "the saved state may have been left";
    EXPECT_EQ(SnapshotFiles(), 50);
}

TEST_F(UndoTest, ANameInASlotIsNotUsedAgain) {
    editor.undo.clock = StandingClock;
    for (int i = 0; i < 51; ++i) Change();
    for (const std::string& name : Names()) std::filesystem::remove(InCache(name));
    Change();
    EXPECT_TRUE(NamesDiffer());
}

TEST_F(UndoTest, WhatIsDroppedWhileBusyGoesWithTheRest) {
    host.busy = true;
    for (int i = 0; i < 53; ++i) Change();
    EXPECT_EQ(SnapshotFiles(), 53);
    ClearUndoCache(editor);
    EXPECT_EQ(SnapshotFiles(), 0);
}

TEST_F(UndoTest, TwoSessionsShareTheFolder) {
    Editor other{host, prompts};
    other.programFolder = folder.Path();
    for (Editor* session : {&editor, &other}) session->undo.clock = StandingClock;
    CreateBrush(other.scene, {5, 0, 0}, {6, 1, 1}, 4, other.Space());
    for (int i = 0; i < 60; ++i) {
        Change();
        TakeUndoSnapshot(other);
        for (Vertex& v : other.scene.brushes.at(0).vertices) v.x += 1;
    }
    EXPECT_EQ(SnapshotFiles(), 100);
    ClearUndoCache(other);
    EXPECT_EQ(SnapshotFiles(), 50);
    for (int i = 0; i < 50; ++i) Undo(editor);
    EXPECT_EQ(Place(), 10);
    ClearUndoCache(editor);
    EXPECT_EQ(SnapshotFiles(), 0);
}

TEST_F(UndoTest, AFullDiskIsToldOnceAndTheEditGoesOn) {
    for (int i = 0; i < 50; ++i) Change();
    const std::vector<std::string> names = Names();
    const auto unable = [](const std::string& step) {
        return std::vector{"Error: Unable to save undo data!\r\n" + step +
                           " is not available for this step."};
    };
    {
        const test::FileSizeLimit full(100);
        Change();
        Change();
        EXPECT_EQ(prompts.Told(), unable("Undo"));
        EXPECT_EQ(Place(), 52);
        EXPECT_EQ(Names(), names) << "nothing was dropped for what could not be written";
        EXPECT_EQ(SnapshotFiles(), 50) << "no part of a snapshot is left";
    }
    Change();
    EXPECT_NE(Names(), names);
    Undo(editor);
    {
        const test::FileSizeLimit full(100);
        Undo(editor);
        EXPECT_FALSE(Enabled("mnuRedo")) << "the step before can't be skipped";
        Undo(editor);
        EXPECT_EQ(Place(), 48);
        EXPECT_EQ(prompts.Told(), unable("Redo"));
    }
}

TEST_F(UndoTest, AnyChangeEndsWhatCouldBeRedone) {
    const std::string saved = folder.Path("saved.kvobject");
    ASSERT_TRUE(SaveObject(editor, saved));
    editor.settings.warnings.fill(false);
    editor.settings.recentFiles = {saved};
    const struct {
        const char* what;
        std::function<void()> change;
        std::ptrdiff_t left;  // snapshot files
    } rows[] = {{"a command", [&] { Run("mnuFlipX"); }, 2},
                {"a slider", [&] { SetTextureRotation(editor, 90); }, 1},
                {"a group", [&] { SetGroupOfSelection(editor, "wall"); }, 1},
                {"a merge", [&] { prompts.paths = {saved}, Run("mnuMerge"); }, 1},
                {"a recent file", [&] { OpenRecentFile(editor, 0); }, 1},
                {"a new object", [&] { Run("mnuNew"); }, 0}};
    for (const auto& row : rows) {
        ClearUndoCache(editor);
        Brushes()[0].selected = true;
        Change();
        Change();
        Undo(editor);
        Run("mnuCopy");
        EXPECT_TRUE(Enabled("mnuRedo")) << row.what;
        const int refreshes = host.commandStateRefreshes;
        row.change();
        EXPECT_FALSE(Enabled("mnuRedo")) << row.what;
        EXPECT_GT(host.commandStateRefreshes, refreshes) << row.what;
        EXPECT_EQ(SnapshotFiles(), row.left) << row.what;
    }
}

TEST_F(UndoTest, EachStepNamesItsChange) {
    AddBox({-1, 0, -1}, {1, 1, 1});  // the middle of the Top view lies in it
    const std::pair<std::function<void()>, std::string> rows[] = {
        {[&] { Click(TopView, Left(200, 150, CtrlKey)); }, "Select Brushes"},
        {[&] { Drag(TopView, Left(200, 150), Left(224, 150)); }, "Move"},
        {[&] { Run("mnuModeVertex"), Click(TopView, Left(0, 0)); }, "Select Vertices"},
        {[&] { Run("mnuModeEdge"), Drag(TopView, Left(0, 0), Left(20, 0)); }, "Select Edges"},
        {[&] { Run("mnuRotX"); }, "Rotate X-Axis 90°"},
        {[&] { TextureClicked(editor, 0); }, "Assign Texture"},
        {[&] { RunMultiply(editor, OpenMultiply(editor)); }, "Multiply Brushes"},
        {[&] { RunFreeRotate(editor, FreeRotateTexts()); }, "Free Rotate"},
    };
    for (const auto& [change, caption] : rows) {
        change();
        EXPECT_EQ(StatusText(*FindCommand("mnuUndo"), editor), "Undo: " + caption);
    }
    Run("mnuUndo");
    EXPECT_EQ(StatusText(*FindCommand("mnuRedo"), editor), "Redo: Free Rotate");
    ClearUndoCache(editor);
    EXPECT_EQ(StatusText(*FindCommand("mnuRedo"), editor), "Redo: Redo the last undone action");
}

TEST_F(UndoTest, AnUnreadableSnapshotIsDroppedAndTheSceneStays) {
    Change();
    Change();
    Change();
    test::WriteFileBytes(InCache(Names()[2]), {'O', 'B', 'S', 'F'});
    std::filesystem::remove(InCache(Names()[1]));
    editor.scene.clipboard = Brushes();
    Undo(editor);
    Undo(editor);
    EXPECT_EQ(Place(), 3);
    EXPECT_FALSE(editor.scene.clipboard.empty());
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(SnapshotFiles(), 1);
    Undo(editor);
    EXPECT_EQ(Place(), 0);
    EXPECT_EQ(editor.undo.UndoCount, 0);
    std::filesystem::remove(InCache(editor.undo.redo.back().file));
    editor.SceneModified = false;
    Redo(editor);
    EXPECT_EQ(Place(), 0);
    EXPECT_FALSE(editor.SceneModified);
    EXPECT_FALSE(Enabled("mnuUndo") || Enabled("mnuRedo"));
    EXPECT_EQ(SnapshotFiles(), 0);
}

TEST_F(UndoTest, NewAndASuccessfulOpenDropOnlyTheSessionsOwn) {
    std::ofstream(InCache("$0001_1.00$.$kvuscache$")) << "of another copy";
    const std::string saved = folder.Path("saved.kvobject"), bad = folder.Path("bad.kvobject");
    ASSERT_TRUE(SaveObject(editor, saved));
    test::WriteFileBytes(bad, {'K'});
    editor.settings.warnings.fill(false);
    const struct {
        const char* command;
        std::optional<std::string> path;
        std::ptrdiff_t left;  // snapshot files, the other copy's included
        int formCloses;       // dialogs end with the brushes they work on
    } rows[] = {{"mnuOpen", bad, 2, 1},
                {"mnuOpen", std::nullopt, 2, 0},
                {"mnuMerge", saved, 2, 0},
                {"mnuOpen", saved, 1, 1},
                {"mnuNew", std::nullopt, 1, 1}};
    for (const auto& row : rows) {
        ClearUndoCache(editor);
        TakeUndoSnapshot(editor);
        prompts.paths = {row.path};
        host.formCloses = 0;
        Run(row.command);
        EXPECT_EQ(host.formCloses, row.formCloses) << row.command;
        EXPECT_EQ(SnapshotFiles(), row.left) << row.command;
        EXPECT_EQ(editor.undo.UndoCount, row.left - 1) << row.command;
    }
}

}  // namespace
}  // namespace korvane
