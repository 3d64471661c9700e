#include "editor/mRestore.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "base/PathText.h"
#include "editor/mFolders.h"
#include "editor/mRecovery.h"
#include "editor/mUndo.h"
#include "files/FileBuffer.h"
#include "files/LockedFile.h"
#include "files/RunRecord.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// Bytes; some hundred thousand commands. A longer record is damaged.
constexpr std::size_t kLongestRecord = 8 << 20;

/// A run whose record nobody holds any more: this session does, until it is done with it.
struct DeadRun {
    LockedFile lock;
    std::string name;  ///< of the record
    RunRecord record;
};

/// A scene that can be restored.
struct Leftover {
    std::string file;
    std::vector<Brush> brushes;
};

std::vector<std::string> CacheNames(const Editor& editor) {
    std::vector<std::string> names;
    std::error_code failed;
    const std::string folder = CachePath(editor, "");
    fs::directory_iterator entries(std::u8string(folder.begin(), folder.end()), failed);
    for (; !failed && entries != fs::directory_iterator(); entries.increment(failed)) {
        const std::u8string name = entries->path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

bool IsRecord(const std::string& name) {
    return name.ends_with(kRecordEnding);
}

std::optional<DeadRun> TakeDeadRun(const Editor& editor, const std::string& name) {
    auto lock = LockedFile::Take(CachePath(editor, name));
    const auto bytes = lock ? lock->Read() : std::nullopt;
    if (!bytes) return std::nullopt;  // perhaps the next start can
    const bool sound = bytes->size() <= kLongestRecord;
    return DeadRun{std::move(*lock), name, sound ? DecodeRunRecord(*bytes) : RunRecord()};
}

/// The run that wrote last comes first.
std::vector<DeadRun> TakeDeadRuns(const Editor& editor, const std::vector<std::string>& names) {
    std::vector<DeadRun> runs;
    for (const std::string& name : names) {
        if (!IsRecord(name)) continue;
        if (auto run = TakeDeadRun(editor, name)) runs.push_back(std::move(*run));
    }
    std::ranges::sort(runs, std::greater(),
                      [](const DeadRun& run) { return run.lock.WrittenAt(); });
    return runs;
}

/// The newest scene of the run since it was saved last. One that is damaged, empty, or was still to
/// be written, gives way to the one before it.
std::optional<Leftover> FindLeftover(const Editor& editor, const RunRecord& record) {
    for (std::size_t i = record.files.size(); i > record.saved; --i) {
        const std::string& file = record.files[i - 1];
        const auto bytes = LoadFile(CachePath(editor, file));
        auto brushes = bytes ? DecodeObject(*bytes, editor.textures, true) : std::nullopt;
        if (brushes && !brushes->empty()) return Leftover{file, std::move(*brushes)};
    }
    return std::nullopt;
}

std::string TimeText(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    localtime_r(&time, &local);
    char text[20] = "";
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

Answer AskToRestore(Editor& editor, const DeadRun& run) {
    const std::string name = FileName(run.record.path);
    const std::string object = name.empty() ? "a new object" : "\"" + name + "\"";
    return editor.prompts.ShowMessage(
        {"Notice! The program ended unexpectedly!\r\n"
         "There are unsaved changes to " +
             object + " from " + TimeText(run.lock.WrittenAt()) +
             ".\r\n"
             "Do you wish to restore them? They are deleted if not.",
         "Notice!", MessageIcon::Question, MessageButtons::YesNo});
}

/// Makes the restored scene this run's own leftover, so that the dead run's files may go.
bool Secure(Editor& editor, const std::string& file) {
    if (KeepAsRecovery(editor, file)) return true;
    StoreRecovery(editor);
    editor.recovery.writer.Wait();
    return editor.recovery.record && !editor.recovery.writer.LastStoreFailed();
}

void Restore(Editor& editor, const DeadRun& run, std::vector<Brush> brushes) {
    ClearScene(editor.scene);
    editor.scene.brushes = std::move(brushes);
    editor.CurrentObjectPath = run.record.path;
    editor.currentFileForeign = run.record.foreign;
    editor.SceneModified = true;
    editor.host.CloseForms();
    RefreshAll(editor);
}

/// The record goes last, so that what is left of an interrupted removal is found again.
void RemoveRun(const Editor& editor, const DeadRun& run) {
    for (const std::string& file : run.record.files) DeleteFile(CachePath(editor, file));
    DeleteFile(CachePath(editor, run.name));
}

bool IsStray(const Editor& editor, const std::string& name) {
    const bool own = name.starts_with(editor.recovery.run + "_") && !editor.recovery.run.empty();
    return !own && (name.ends_with("$.$kvuscache$") || name.ends_with(kRecoveryEnding) ||
                    name.ends_with(std::string(kRecordEnding) + ".new") ||
                    (name.starts_with(".korvane-") && name.ends_with(".tmp")));
}

/// Removes what ends of runs in the middle of writing have left, which no record names. `names`
/// was listed before: a run whose files are in it shows its record now, if it lives. Where this run
/// could not make one, others could not either.
void RemoveStrays(const Editor& editor, const std::vector<std::string>& names) {
    if (!editor.recovery.record) return;
    const std::string own = editor.recovery.run + kRecordEnding;
    for (const std::string& name : CacheNames(editor))
        if (IsRecord(name) && name != own) return;
    for (const std::string& name : names) {
        if (!IsStray(editor, name)) continue;
        const std::string path = CachePath(editor, name);
        const auto free = LockedFile::Take(path);  // not a record that is just being made
        if (free) DeleteFile(path);
    }
}

}  // namespace

bool OfferRecovery(Editor& editor) {
    const std::vector<std::string> names = CacheNames(editor);
    bool restored = false;
    for (const DeadRun& run : TakeDeadRuns(editor, names)) {
        if (restored) break;
        auto leftover = FindLeftover(editor, run.record);
        const Answer answer = leftover ? AskToRestore(editor, run) : Answer::No;
        if (answer == Answer::Cancel) break;  // neither wanted nor thrown away: the next start asks
        restored = answer == Answer::Yes;
        if (restored) Restore(editor, run, std::move(leftover->brushes));
        if (!restored || Secure(editor, leftover->file)) RemoveRun(editor, run);
    }
    RemoveStrays(editor, names);
    return restored;
}

}  // namespace korvane
