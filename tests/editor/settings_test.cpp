// What outlives a run: the settings file and its damage, recent files, folders, the window's place.
#include <sys/wait.h>
#include <unistd.h>

#include <limits>

#include "editor/mFileOpenSave.h"
#include "editor/mFolders.h"
#include "editor/mRecentFiles.h"
#include "editor/mSettings.h"
#include "editor/mUndo.h"
#include "editor/mWindowPlace.h"
#include "files/mSettingsFile.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

class SettingsTest : public SessionTest {
  protected:
    const Paths& Recent() const { return editor.settings.recentFiles; }
    std::string File() const { return folder.Path("Korvane.kvdat"); }
};

TEST_F(SettingsTest, DamagedFileAppliesInPartAndIsKeptAtTheNextSave) {
    EXPECT_FALSE(LoadSettings(editor)) << "there is no file yet";
    editor.settings.snapSize = 0.5F;
    editor.settings.keyMap[KeyFunction::MoveFaster] = 65;
    SaveSettings(editor);
    Bytes damaged = FileBytes(File());
    damaged.resize(60);
    WriteFileBytes(File(), damaged);

    editor.settings = Settings{};
    EXPECT_FALSE(LoadSettings(editor));
    EXPECT_EQ(editor.settings.snapSize, 0.5F);
    EXPECT_EQ(editor.settings.keyMap[KeyFunction::MoveFaster], 16);
    EXPECT_EQ(FileBytes(File()), damaged) << "reading changes nothing";
    for (int save = 0; save < 2; ++save) {
        EXPECT_TRUE(SaveSettings(editor));
        EXPECT_EQ(FileBytes(File() + ".bad"), damaged);
        EXPECT_EQ(FileBytes(File()), EncodeSettings(editor.settings));
    }
}

TEST_F(SettingsTest, WhatIsUnknownBehindTheSettingsIsKept) {
    SaveSettings(editor);
    const Bytes whole = FileBytes(File());
    Bytes renamed = whole;
    renamed[whole.size() - 14] = 'X';  // in the tag "1100"
    Bytes longer = whole;
    longer.push_back(7);
    for (const Bytes& foreign : {renamed, longer}) {
        WriteFileBytes(File(), foreign);
        EXPECT_TRUE(LoadSettings(editor));
        EXPECT_TRUE(SaveSettings(editor));
        EXPECT_EQ(FileBytes(File() + ".bad"), foreign);
    }
}

TEST_F(SettingsTest, WindowsThatCloseAtOnceLeaveOneWholeFile) {
    constexpr int kWindows = 4, kSaves = 25;
    std::vector<pid_t> windows;
    for (int i = 0; i < kWindows; ++i) {
        editor.settings.recentFiles = Paths(kRecentFiles, std::string(40U * (i + 1), 'a'));
        if (const pid_t child = fork(); child > 0) {
            windows.push_back(child);
            continue;
        }
        bool whole = true;
        for (int save = 0; save < kSaves; ++save) {
            whole = SaveSettings(editor) && whole;
            Settings read;
            whole = DecodeSettings(FileBytes(File()), read) && whole;
        }
        _exit(whole ? 0 : 1);
    }
    for (const pid_t window : windows) {
        int status = -1;
        waitpid(window, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_FALSE(fs::exists(File() + ".bad"));
    EXPECT_EQ(folder.EntryCount(), 2) << "the file and ObjCache";
}

TEST_F(SettingsTest, RecentFilesKeepTheNewestFiveOnce) {
    for (const char* path : {"/1", "/2", "", "/3", "/4", "/5", "/6"}) AddRecentFile(editor, path);
    EXPECT_EQ(Recent(), (Paths{"/6", "/5", "/4", "/3", "/2"}));
    AddRecentFile(editor, "/A/b.kvobject");
    AddRecentFile(editor, "/5");
    AddRecentFile(editor, "/a/B.KVobject");
    EXPECT_EQ(Recent(), (Paths{"/a/B.KVobject", "/5", "/6", "/4", "/3"}));
    Run("mnuClearRecentFiles");
    EXPECT_EQ(Recent(), Paths{});
}

TEST_F(SettingsTest, FileCommandsListWhatTheUserChooses) {
    const std::string saved = folder.Path("saved.kvobject"), argument = folder.Path("arg.kvobject");
    prompts.paths = {saved, saved, folder.Path("gone.kvobject"), saved, std::nullopt};
    SaveObjectAs(editor);
    EXPECT_EQ(Recent(), Paths{saved});
    fs::copy(saved, argument);
    OpenObjectFile(editor, argument);
    OpenObjectFile(editor, folder.Path("no such argument"));
    EXPECT_EQ(Recent(), (Paths{argument, saved}));
    OpenObject(editor);
    OpenObject(editor);
    MergeObject(editor);
    OpenObject(editor);
    EXPECT_EQ(Recent(), (Paths{folder.Path("gone.kvobject"), saved, argument}));
}

TEST_F(SettingsTest, RecentFileOpensAfterTheQuestionAndKeepsTheUndoCache) {
    const std::string first = folder.Path("first.kvobject"), second = folder.Path("2.kvobject");
    AddBox({0, 0, 0}, {1, 1, 1});
    prompts.paths = {first, second};
    SaveObjectAs(editor);
    AddBox({2, 0, 0}, {3, 1, 1});
    SaveObjectAs(editor);
    TakeUndoSnapshot(editor);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        prompts.answers = {answer};
        OpenRecentFile(editor, 1);
        EXPECT_EQ(editor.CurrentObjectPath, answer == Answer::No ? second : first);
    }
    EXPECT_EQ(prompts.Told().size(), 2U);
    EXPECT_EQ(Brushes().size(), 1U);
    EXPECT_EQ(Recent(), (Paths{first, second}));
    EXPECT_FALSE(editor.SceneModified);
    EXPECT_EQ(editor.undo.UndoCount, 1);

    fs::remove(second);
    OpenRecentFile(editor, 1);
    EXPECT_EQ(prompts.Told(), Paths{"Error: Invalid Korvane File Format!"});
    EXPECT_EQ(Brushes().size(), 1U) << "scene and path stay";
    EXPECT_EQ(editor.CurrentObjectPath, first);
    EXPECT_EQ(Recent(), (Paths{second, first})) << "the entry stays";
    OpenRecentFile(editor, 7);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(SettingsTest, DataLiesBesideTheProgramOrElseWithTheUser) {
    const std::string program = folder.Path("bin"), installed = folder.Path("share/korvane");
    const std::string user = folder.Path("home/korvane");
    const auto choice = [&](const std::string& users) {
        const ProgramFolders folders = ChooseFolders(program, installed, users);
        return Paths{folders.shipped, folders.data};
    };
    fs::create_directory(program);
    EXPECT_EQ(choice(user), (Paths{program, program})) << "alone";
    EXPECT_EQ(ChooseDataFolder("/proc", "/proc/korvane"), "/proc");
    EXPECT_FALSE(fs::exists(user));
    EXPECT_EQ(ChooseDataFolder("/proc", user), user);
    EXPECT_TRUE(fs::is_directory(user));
    fs::create_directories(installed + "/ObjTextures");
    EXPECT_EQ(choice(user), (Paths{installed, user}));
    EXPECT_EQ(choice("/proc/korvane"), (Paths{installed, installed}));
    EXPECT_TRUE(fs::is_empty(program)) << "no probe is left";
    fs::create_directory(program + "/ObjTextures");
    EXPECT_EQ(choice(user), (Paths{program, program}))
        << "a portable folder beside an installation";
}

TEST_F(SettingsTest, UserFolderStartsWithTheShippedTextures) {
    fs::create_directory(folder.Path("ObjTextures"));
    WriteFileBytes(folder.Path("ObjTextures/brick.bmp"), {1});
    const std::string unreadable = folder.Path("ObjTextures/unreadable.bmp");
    fs::create_symlink(folder.Path("gone"), unreadable);
    editor.dataFolder = folder.Path("user");
    fs::create_directory(editor.dataFolder);
    MakeFolders(editor);
    for (const auto& entry : fs::directory_iterator(editor.dataFolder))
        EXPECT_EQ(entry.path().filename(), "ObjCache") << "no half copy is left";
    fs::remove(unreadable);
    const std::string copied = folder.Path("user/ObjTextures/brick.bmp");
    MakeFolders(editor);
    EXPECT_EQ(FileBytes(copied), Bytes{1}) << "made at the next start";
    fs::remove(copied);
    MakeFolders(editor);
    EXPECT_FALSE(fs::exists(copied)) << "what the user removed stays away";
    TakeUndoSnapshot(editor);
    SaveSettings(editor);
    EXPECT_FALSE(fs::is_empty(folder.Path("user/ObjCache")));
    EXPECT_TRUE(fs::exists(folder.Path("user/Korvane.kvdat")));
}

TEST(WindowPlaceTest, StateAtTheEndDecidesTheStart) {
    const struct {
        bool remember;
        std::int16_t state;
        WindowStart start;
    } rows[] = {
        {false, 0, WindowStart::Default},  {false, 2, WindowStart::Default},
        {true, -1, WindowStart::Default},  {true, 0, WindowStart::Normal},
        {true, 2, WindowStart::Maximized}, {true, 1, WindowStart::MinimizedBefore},
    };
    for (const auto& row : rows) {
        Settings settings;
        settings.rememberWindow = row.remember;
        settings.window.state = row.state;
        EXPECT_EQ(StartOfWindow(settings), row.start) << row.state;
    }
    EXPECT_STREQ(LogWord(WindowStart::MinimizedBefore), "MINIMIZED -> OVERRIDE_TO: DEFAULT");
}

TEST(WindowPlaceTest, RectangleIsMadeToFitTheScreens) {
    using Screens = std::vector<TwipRect>;
    const Screens one = {{0, 0, 19200, 15360}};
    const Screens two = {{0, 0, 19200, 15360}, {19200, 0, 28800, 16200}};
    struct Row {
        const Screens& screens;
        WindowPlace stored, applied;
    };
    const Row rows[] = {
        {one, {0, -200, 100, 5000, 8000}, {0, 0, 100, 9600, 8000}},
        {one, {0, 300, -1, 30000, 30000}, {0, 300, 0, 19200, 15360}},
        {one, {0, 5000, 6000, 12000, 9000}, {0, 5000, 6000, 12000, 9000}},  // reaches over the edge
        {one, {0, 0, 0, 0, 0}, {0, 0, 0, 9600, 7200}},
        {two, {0, 25000, 300, 12000, 9000}, {0, 25000, 300, 12000, 9000}},
        {one, {0, 25000, 300, 12000, 9000}, {0, 7200, 300, 12000, 9000}},  // its screen is gone
        {one, {0, 300, 15200, 12000, 9000}, {0, 300, 6360, 12000, 9000}},
        {one, {0, 1e30F, 1e30F, 1e30F, 1e30F}, {0, 0, 0, 19200, 15360}},
    };
    for (const Row& row : rows) {
        const WindowPlace got = ClampToScreens(row.stored, row.screens);
        const auto all = [](const WindowPlace& p) {
            return std::array{p.left, p.top, p.width, p.height};
        };
        EXPECT_EQ(all(got), all(row.applied)) << row.stored.left << " " << row.stored.top;
    }
}

}  // namespace
}  // namespace korvane::test
