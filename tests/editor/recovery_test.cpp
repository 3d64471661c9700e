// What a run that is not closed leaves, and what the next start makes of it.
#include <gmock/gmock.h>

#include <memory>

#include "editor/mFileOpenSave.h"
#include "editor/mPropertyEdits.h"
#include "editor/mRecovery.h"
#include "editor/mRestore.h"
#include "editor/mSelectDialog.h"
#include "editor/mUndo.h"
#include "files/RunRecord.h"
#include "support/FileSizeLimit.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;
using test::Bytes;

/// The fixture's session is the next start; `dead` ran before it and is gone without closing.
class RecoveryTest : public test::SessionTest {
  public:
    using SessionTest::folder;

    RecoveryTest() {
        dead = Start();
        Save();
    }

    std::unique_ptr<Editor> Start() {
        auto session = std::make_unique<Editor>(host, prompts);
        session->programFolder = folder.Path();
        BeginRecovery(*session);
        return session;
    }

    void SaveOver(Editor& session, const std::string& name) {
        session.CurrentObjectPath = folder.Path(name);
        ASSERT_TRUE(SaveObject(session, session.CurrentObjectPath));
    }

    void Save() { SaveOver(*dead, "house.kvobject"); }

    /// A command: one more box, which is selected alone.
    static void AddBoxTo(Editor& session) {
        TakeUndoSnapshot(session);
        for (Brush& brush : session.scene.brushes) brush.selected = false;
        const auto x = static_cast<float>(session.scene.brushes.size());
        CreateBrush(session.scene, {x, 0, 0}, {x + 1, 1, 1}, 4, session.Space());
        session.scene.brushes.back().selected = true;
    }

    void AddBoxes(int count) {
        for (int i = 0; i < count; ++i) AddBoxTo(*dead);
    }

    void Autosave() {
        StoreRecovery(*dead);
        dead->recovery.writer.Wait();
    }

    /// The next start with its answer; the number of boxes it restores, -1 for no offer.
    int Restored(Answer answer = Answer::Yes) {
        prompts.answers = {answer};
        prompts.messages.clear();
        if (!editor.recovery.record) BeginRecovery(editor);
        const bool restored = OfferRecovery(editor);
        EXPECT_EQ(restored, !prompts.messages.empty() && answer == Answer::Yes);
        return restored ? editor.scene.brushCount() : -1;
    }

    std::vector<std::string> Files(const std::string& ending) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.Path("ObjCache"))) {
            const std::string name = entry.path().filename();
            if (name.ends_with(ending)) names.push_back(entry.path());
        }
        return names;
    }

    std::unique_ptr<Editor> dead;
};

TEST_F(RecoveryTest, RestoresTheSceneOneCommandBeforeTheEndWithItsPathAgainAndAgain) {
    AddBoxes(3);
    const std::string path = dead->CurrentObjectPath;
    dead->currentFileForeign = true;
    AddBoxes(1);
    dead.reset();
    auto second = Start();
    prompts.answers = {Answer::Yes};
    EXPECT_TRUE(OfferRecovery(*second));
    second.reset();
    host.commandStateRefreshes = 0;
    EXPECT_EQ(Restored(), 3);
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].title, "Notice!");
    EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::YesNo);
    EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Question);
    EXPECT_THAT(prompts.messages[0].text,
                testing::MatchesRegex(
                    "Notice! The program ended unexpectedly!\r\nThere are unsaved changes to "
                    "\"house.kvobject\" from 2...-..-.. ..:..\\.\r\nDo you wish to restore them\\? "
                    "They are deleted if not\\."));
    EXPECT_EQ(editor.CurrentObjectPath, path);
    EXPECT_TRUE(editor.SceneModified);
    EXPECT_TRUE(editor.currentFileForeign) << "Save must still not overwrite it unasked";
    EXPECT_EQ(Selected(), "001") << "as it was before the last command";
    EXPECT_GE(host.commandStateRefreshes, 1);
    EXPECT_EQ(SnapshotFiles(), 2) << "this run's own record and what it would leave itself";
}

TEST_F(RecoveryTest, NoDeletesItButClosingTheQuestionDoesNot) {
    AddBoxes(3);
    Autosave();
    dead.reset();
    EXPECT_EQ(Restored(Answer::Cancel), -1);
    EXPECT_EQ(Restored(Answer::No), -1);
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(Brushes().empty());
    EXPECT_FALSE(editor.SceneModified);
    EXPECT_EQ(SnapshotFiles(), 1) << "this run's record";
    EXPECT_EQ(Restored(), -1);
    EXPECT_TRUE(prompts.messages.empty());
}

using R = RecoveryTest;

/// What a run does before it ends, and what the next start restores: boxes, or -1 for no offer.
struct EndCase {
    const char* what;
    void (*run)(RecoveryTest&);
    int boxes;

    friend void PrintTo(const EndCase& end, std::ostream* out) { *out << end.what; }
};

const EndCase kEnds[] = {
    {"Nothing", [](R&) {}, -1},
    {"FirstCommand", [](R& t) { t.AddBoxes(1); }, -1},
    {"Saved", [](R& t) { t.AddBoxes(3), t.Autosave(), t.Save(); }, -1},
    {"CommandAfterSave", [](R& t) { t.AddBoxes(3), t.Save(), t.AddBoxes(1); }, 3},
    {"Autosaved", [](R& t) { t.AddBoxes(3), t.Autosave(); }, 3},
    {"CommandAfterAutosave", [](R& t) { t.AddBoxes(3), t.Autosave(), t.AddBoxes(2); }, 4},
    {"Undone", [](R& t) { t.AddBoxes(5), t.Autosave(), Undo(*t.dead), Undo(*t.dead); }, 3},
    {"UndoneAndAutosaved", [](R& t) { t.AddBoxes(5), Undo(*t.dead), t.Autosave(), t.Autosave(); },
     4},
    {"NewObject",
     [](R& t) { t.AddBoxes(3), t.dead->settings.warnings.fill(false), NewObject(*t.dead); }, -1},
    {"AnotherWasOpened",
     [](R& t) { t.AddBoxes(3), t.Autosave(), OpenObjectFile(*t.dead, t.dead->CurrentObjectPath); },
     -1},
    {"FailedOpenEmptiedTheScene",
     [](R& t) {
         t.AddBoxes(3);
         test::WriteFileBytes(t.folder.Path("bad"), {'K'});
         OpenObjectFile(*t.dead, t.folder.Path("bad"));
         t.Autosave();
     },
     2},
    {"NewestFilesDamaged",
     [](R& t) {
         t.AddBoxes(4), t.Autosave();
         test::WriteFileBytes(t.Files("0001$.$kvrecovery$").at(0), {'O', 'B', 'S', 'F', 1});
         for (const std::string& file : t.Files("kvuscache$"))
             if (file.find("$0004_") != file.npos) fs::resize_file(file, 300);
     },
     2},
    {"EverythingDamaged",
     [](R& t) {
         t.AddBoxes(4);
         for (const std::string& file : t.Files("kvuscache$")) fs::resize_file(file, 50);
     },
     -1},
    {"RecordDamaged",
     [](R& t) {
         t.AddBoxes(4);
         Bytes noise(5000);
         for (std::size_t i = 0; i < noise.size(); ++i)
             noise[i] = static_cast<std::uint8_t>(i * i % 251 * (i % 3));
         test::WriteFileBytes(t.Files("kvrun$").at(0), noise);
     },
     -1},
    {"CutRecord",
     [](R& t) {
         t.AddBoxes(4);
         const std::string record = t.Files("kvrun$").at(0);
         fs::resize_file(record, fs::file_size(record) - 5);
     },
     2},
    {"RecordLeadsElsewhere",
     [](R& t) {
         Bytes record;
         for (const char* name : {"../house.kvobject", "$/../../house.kvobject$", "house.kvobject"})
             for (const std::uint8_t byte : EncodeRunEntry(RunEntry::Scene, name))
                 record.push_back(byte);
         test::WriteFileBytes(t.Files("kvrun$").at(0), record);
     },
     -1},
    {"FolderEmptiedMeanwhile",
     [](R& t) { t.AddBoxes(2), fs::remove_all(t.folder.Path("ObjCache")), t.AddBoxes(2); }, 3},
    {"NoFolderAtFirst",
     [](R& t) {
         const std::string cache = t.folder.Path("ObjCache");
         fs::remove_all(cache);
         test::WriteFileBytes(cache, {'x'});  // in its way
         BeginRecovery(*t.dead);
         fs::remove(cache);
         t.AddBoxes(3);
     },
     2},
};

class EndTest : public RecoveryTest, public testing::WithParamInterface<EndCase> {};

TEST_P(EndTest, LeavesWhatTheNextStartRestores) {
    GetParam().run(*this);
    dead.reset();
    EXPECT_EQ(Restored(), GetParam().boxes);
    EXPECT_TRUE(fs::exists(folder.Path("house.kvobject")));
    EndRecovery(editor);
    EXPECT_EQ(SnapshotFiles(), 0) << "nothing of the dead run is left";
}

INSTANTIATE_TEST_SUITE_P(Ends, EndTest, testing::ValuesIn(kEnds),
                         [](const auto& test) { return test.param.what; });

TEST_F(RecoveryTest, EditsWithoutASnapshotAreCovered) {
    AddBoxes(2);
    Autosave();
    SetTransparency(*dead, 40);
    Autosave();
    SetGroupOfSelection(*dead, "roof");
    const Bytes last = EncodeObject(dead->scene, dead->textures, true);
    Autosave();
    EXPECT_EQ(Files("kvrecovery$").size(), 1U) << "the older one is gone";
    const auto stored = fs::last_write_time(Files("kvrecovery$")[0]);
    Autosave();
    EXPECT_EQ(fs::last_write_time(Files("kvrecovery$")[0]), stored) << "nothing new to store";
    dead.reset();
    EXPECT_EQ(Restored(), 2);
    EXPECT_EQ(SceneBytes(), last);
}

TEST_F(RecoveryTest, TheQuestionStandsOnlyOnceAndNothingGoesBeforeItsAnswer) {
    AddBoxes(3);
    dead.reset();
    prompts.whenAsked = [this] {
        if (prompts.messages.size() > 1) return;
        const auto second = Start();
        const std::ptrdiff_t files = SnapshotFiles();
        EXPECT_FALSE(OfferRecovery(*second));
        EXPECT_EQ(SnapshotFiles(), files);
    };
    EXPECT_EQ(Restored(), 2);
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST_F(RecoveryTest, WhereNoRecordCanBeMadeNothingIsRemoved) {
    EndRecovery(*dead);
    AddBoxes(2);
    EXPECT_FALSE(OfferRecovery(editor));
    EXPECT_EQ(SnapshotFiles(), 2) << "snapshots of a session that may well live";
}

TEST_F(RecoveryTest, ARecordThatIsJustBeingMadeIsLeftAlone) {
    EndRecovery(*dead);
    const std::string made = folder.Path("ObjCache/$1") + kRecordEnding + ".new";
    test::WriteFileBytes(made, {});
    auto maker = LockedFile::Take(made);
    EXPECT_EQ(Restored(), -1);
    EXPECT_TRUE(fs::exists(made));
    maker.reset();
    EXPECT_EQ(Restored(), -1);
    EXPECT_FALSE(fs::exists(made));
}

TEST_F(RecoveryTest, APathOnAFullDiskIsNotedLater) {
    AddBoxTo(*dead);
    SaveOver(*dead, "garage.kvobject");
    SetTransparency(*dead, 40);
    {
        const auto record = folder.Path("ObjCache/" + dead->recovery.run + kRecordEnding);
        const test::FileSizeLimit full(fs::file_size(record) + 10);
        Autosave();
    }
    const std::string path = dead->CurrentObjectPath;
    AddBoxes(1);
    dead.reset();
    EXPECT_EQ(Restored(), 1);
    EXPECT_EQ(editor.CurrentObjectPath, path);
}

TEST_F(RecoveryTest, OfSeveralDeadRunsTheNewestIsOfferedFirstAndTheOthersWait) {
    auto living = Start();
    AddBoxTo(*living);
    auto older = Start();
    AddBoxTo(*older);
    AddBoxTo(*older);
    AddBoxes(5);
    fs::last_write_time(folder.Path("ObjCache/" + older->recovery.run + kRecordEnding),
                        fs::file_time_type::clock::now() - std::chrono::hours(2));
    dead.reset();
    older.reset();
    EXPECT_EQ(Restored(), 4);
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(Restored(), 1) << "at the next start";
    EXPECT_THAT(prompts.messages[0].text, testing::HasSubstr("changes to a new object from"));
    EXPECT_EQ(Restored(), -1);
    Undo(*living);
    EXPECT_EQ(living->scene.brushCount(), 0);
}

TEST_F(RecoveryTest, AFullDiskIsToldOnceAndTriedAgain) {
    AddBoxes(2);
    {
        const test::FileSizeLimit full(100);
        for (int i = 0; i < 3; ++i) Autosave();
    }
    EXPECT_THAT(prompts.Told(),
                testing::ElementsAre(testing::StartsWith("Error: Unable to save recovery data!")));
    Autosave();
    EXPECT_TRUE(dead->SceneModified);
    dead.reset();
    EXPECT_EQ(Restored(), 2);
}

}  // namespace
}  // namespace korvane
