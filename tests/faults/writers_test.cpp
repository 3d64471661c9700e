// Every writer of the program against every step that can fail, and on a disk that is full.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>

#include "SystemFaults.h"
#include "cli/mCli.h"
#include "editor/mExport.h"
#include "editor/mFileOpenSave.h"
#include "editor/mPreferences.h"
#include "editor/mRecovery.h"
#include "editor/mRestore.h"
#include "editor/mSettings.h"
#include "editor/mUndo.h"
#include "files/FileBuffer.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

namespace fs = std::filesystem;

/// A session in the folder `at`, with a scene to write.
struct Stage {
    explicit Stage(const std::string& at) : folder(at) {
        editor.programFolder = at;
        fs::create_directory(at + "/ObjCache");
        CreateBrush(editor.scene, {0, 0, 0}, {1, 1, 1}, 4, editor.Space());
        editor.settings.warnings.fill(false);
        source = EncodeObject(editor.scene, editor.textures, false);
        WriteFileBytes(at + "/source.kvobject", source);
        BeginRecovery(editor);
    }

    std::string folder;
    RecordingHost host;
    ScriptedPrompts prompts;
    Editor editor{host, prompts};
    Bytes source;
    std::string errors;  ///< what korvane-cli says
};

/// korvane-cli render, in this process.
void RenderPicture(Stage& stage, const std::string& target) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::string arguments[] = {"korvane-cli", "render",    stage.folder + "/source.kvobject",
                               "-o",          target,      "--view",
                               "top",         "--size",    "40x30",
                               "--textures",  stage.folder};
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    std::ostringstream errors;
    std::streambuf* old = std::cerr.rdbuf(errors.rdbuf());
    RunCli(static_cast<int>(argv.size()), argv.data());
    std::cerr.rdbuf(old);
    stage.errors = errors.str();
}

/// The next idle moment tells how it went; here it has nothing to store itself.
void StoreAndLookAgain(Stage& stage, const std::string&) {
    StoreRecovery(stage.editor);
    stage.editor.recovery.writer.Wait();
    const bool modified = std::exchange(stage.editor.SceneModified, false);
    StoreRecovery(stage.editor);
    stage.editor.SceneModified = modified;
}

/// One that writes the file `name`; where there was one before, it is to be whole.
struct Writer {
    const char* what;
    const char* name;  ///< null: a new name in ObjCache
    const char* told;
    void (*write)(Stage&, const std::string& target);
    const char* title = "Error!";  ///< null: told on standard error
    std::set<Step> without = {};   ///< steps that do not occur

    friend void PrintTo(const Writer& writer, std::ostream* out) { *out << writer.what; }
};

constexpr const char* kUnable = "Error: Unable to save file!";

const Writer kWriters[] = {
    {"Object", "a.kvobject", kUnable,
     [](Stage& s, const std::string& target) {
         s.editor.CurrentObjectPath = target;
         SaveCurrentObject(s.editor);
     }},
    {"Settings", "Korvane.kvdat", "Error: Unable to save settings!",
     [](Stage& s, const std::string&) { SaveSettingsOrTell(s.editor); }},
    {"Scheme", "a.kvcs", kUnable,
     [](Stage& s, const std::string&) {
         SaveColorScheme(s.editor, PreferencesOf(s.editor.settings));
     }},
    {"KeyMap", "a.kvkm", kUnable,
     [](Stage& s, const std::string&) { SaveKeyMap(s.editor, PreferencesOf(s.editor.settings)); }},
    {"CodeTemplate", "a.kvcode", kUnable,
     [](Stage& s, const std::string&) { SaveCodeTemplate(s.editor, DefaultCppCode()); }},
    {"Mesh", "a.3ds", kUnable, [](Stage& s, const std::string&) { Export3DS(s.editor); }},
    {"Wavefront", "a.obj", kUnable, [](Stage& s, const std::string&) { ExportOBJ(s.editor); }},
    {"Gltf", "a.glb", kUnable, [](Stage& s, const std::string&) { ExportGLB(s.editor); }},
    {"Text", "a.txt", kUnable,
     [](Stage& s, const std::string&) { ExportSourceCode(s.editor, DefaultCppCode()); }},
    {"Picture", "a.png", kUnable, RenderPicture, nullptr},
    {"Snapshot",
     nullptr,
     "Error: Unable to save undo data!",
     [](Stage& s, const std::string&) { TakeUndoSnapshot(s.editor); },
     "Error!",
     {Step::Mode, Step::Flush, Step::Rename}},  // a new file that does not wait for the disk
    {"Recovery",
     nullptr,
     "Error: Unable to save recovery data!",
     StoreAndLookAgain,
     "Error!",
     {Step::Mode}},
};

class WriterTest : public testing::TestWithParam<std::tuple<Writer, Step>> {
  protected:
    static void Fail(Stage& stage, const Writer& writer, const std::string& target) {
        stage.editor.SceneModified = true;
        stage.prompts.paths = {target};
        writer.write(stage, target);
        FailAt(Step::None);
    }

    static void ExpectTold(const Stage& stage, const Writer& writer) {
        if (writer.title == nullptr) {
            EXPECT_NE(stage.errors.find(writer.told), std::string::npos) << stage.errors;
            return;
        }
        ASSERT_EQ(stage.prompts.messages.size(), 1U);
        EXPECT_EQ(stage.prompts.messages[0].text.find(writer.told), 0U);
        EXPECT_EQ(stage.prompts.messages[0].title, writer.title);
    }

    static std::vector<std::string> Listing(const std::string& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            names.push_back(entry.path());
        std::ranges::sort(names);
        return names;
    }

    /// The writer fails by itself; all is as before and the user knows. `before` brings the fault.
    template <class Fault>
    static void ExpectHarmless(const std::string& folder, const Writer& writer, Fault before) {
        Stage stage(folder);
        const std::string target = folder + "/" + (writer.name ? writer.name : "no file");
        Fail(stage, writer, target);  // not yet: this makes the old file
        const Bytes old = FileBytes(target);
        ASSERT_EQ(writer.name != nullptr, !old.empty()) << stage.errors;
        CreateBrush(stage.editor.scene, {5, 0, 0}, {6, 1, 1}, 64, stage.editor.Space());
        const auto files = Listing(folder);
        const std::int32_t snapshots = stage.editor.undo.UndoCount;
        stage.prompts.messages.clear();
        before();
        Fail(stage, writer, target);
        EXPECT_EQ(FileBytes(target), old);
        EXPECT_EQ(Listing(folder), files) << "nothing stray is left, nothing is gone";
        EXPECT_TRUE(stage.editor.SceneModified);
        EXPECT_EQ(stage.editor.undo.UndoCount, snapshots);
        ExpectTold(stage, writer);
    }
};

TEST_P(WriterTest, AFailedStepCostsNothing) {
    const auto& [writer, step] = GetParam();
    const TempFolder folder;
    if (writer.without.contains(step)) {
        Stage stage(folder.Path());
        FailAt(step);
        Fail(stage, writer, {});
        EXPECT_EQ(Failures(), 0);
        return;
    }
    ExpectHarmless(folder.Path(), writer, [step = step] { FailAt(step); });
    EXPECT_GE(Failures(), 1);
}

std::string NameOf(const testing::TestParamInfo<std::tuple<Writer, Step>>& test) {
    const char* steps[] = {"FullDisk", "Open",  "FirstWrite", "LaterWrite",
                           "Mode",     "Flush", "Close",      "Rename"};
    const auto& [writer, step] = test.param;
    return std::string(writer.what) + "_" + steps[static_cast<int>(step)];
}

INSTANTIATE_TEST_SUITE_P(Faults, WriterTest,
                         testing::Combine(testing::ValuesIn(kWriters),
                                          testing::Values(Step::Open, Step::FirstWrite,
                                                          Step::LaterWrite, Step::Mode, Step::Flush,
                                                          Step::Close, Step::Rename)),
                         NameOf);

TEST(SaveFileTest, DoesWithoutUnnamedFilesWhereTheSystemHasNone) {
    for (const Step step : {Step::Unnamed, Step::Link}) {
        const TempFolder folder;
        FailAt(step);
        EXPECT_TRUE(SaveFile(folder.Path("file"), Bytes{1, 2}));
        FailAt(Step::None);
        EXPECT_EQ(Failures(), 1);
        EXPECT_EQ(FileBytes(folder.Path("file")), (Bytes{1, 2}));
        EXPECT_EQ(folder.EntryCount(), 1);
    }
}

TEST(RestoreTest, WhatCannotBeMadeSafeWaitsForTheNextStart) {
    const TempFolder folder;
    auto dead = std::make_unique<Stage>(folder.Path());
    TakeUndoSnapshot(dead->editor);
    dead.reset();
    for (const Step step : {Step::Rename, Step::None}) {
        Stage next(folder.Path());
        next.prompts.answers = {Answer::Yes};
        FailAt(step);
        EXPECT_TRUE(OfferRecovery(next.editor));
        FailAt(Step::None);
        EXPECT_EQ(next.editor.scene.brushCount(), 1);
    }
}

/// A small disk of its own, visible to this process only.
class SmallDisk {
  public:
    explicit SmallDisk(std::string at) : at_(std::move(at)) {
        fs::create_directory(at_);
        mounted_ = unshare(CLONE_NEWNS) == 0 &&
                   mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                   mount("tmpfs", at_.c_str(), "tmpfs", 0, "size=512k") == 0;
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        if (mounted_) umount2(at_.c_str(), MNT_DETACH);
    }

    explicit operator bool() const { return mounted_; }

    /// Lets the file grow until nothing more fits.
    static void Fill(const std::string& file) {
        std::ofstream filler(file, std::ios::binary);
        const std::string page(4096, 'x');
        while (filler.write(page.data(), std::ssize(page)).flush()) continue;
    }

  private:
    std::string at_;
    bool mounted_ = false;
};

class FullDiskTest : public WriterTest {};

TEST_P(FullDiskTest, CostsNothing) {
    const TempFolder folder;
    const SmallDisk disk(folder.Path("disk"));
    if (!disk) GTEST_SKIP() << "no right to mount a file system";
    const std::string filler = folder.Path("disk/filler");
    WriteFileBytes(filler, {});
    ExpectHarmless(folder.Path("disk"), std::get<0>(GetParam()), [&] { disk.Fill(filler); });
}

INSTANTIATE_TEST_SUITE_P(Faults, FullDiskTest,
                         testing::Combine(testing::ValuesIn(kWriters), testing::Values(Step::None)),
                         NameOf);

}  // namespace
}  // namespace korvane::test
