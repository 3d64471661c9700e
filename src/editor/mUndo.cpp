#include "editor/mUndo.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>

#include "base/NumberText.h"
#include "editor/mFileOpenSave.h"
#include "editor/mFolders.h"
#include "editor/mRecovery.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

/// Further attempts append digits to the fraction of the time.
std::string SnapshotName(std::int32_t count, double seconds, int attempt) {
    const std::string more = attempt > 0 ? FormatPadded(attempt, 4) : std::string();
    return "$" + FormatPadded(count, 4) + "_" + FormatFixed(seconds, 2, 2) + more + "$.$kvuscache$";
}

/// Writes the scene to a file that did not exist before. A name still known to the session is not
/// used either: its file may have been taken away from outside.
std::optional<std::string> StoreSnapshot(const Editor& editor, std::int32_t count) {
    constexpr int kAttempts = 10'000;
    const auto bytes = EncodeObject(editor.scene, editor.textures, true);
    const double seconds = editor.undo.clock();
    EnsureCacheFolder(editor);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::string name = SnapshotName(count, seconds, attempt);
        if (std::ranges::count(editor.undo.UndoNames, name) > 0) continue;
        if (std::ranges::count(editor.undo.dropped, name) > 0) continue;
        switch (CreateFile(CachePath(editor, name), bytes)) {
            case Creation::Done:
                return name;
            case Creation::Failed:
                return std::nullopt;
            case Creation::Exists:
                break;
        }
    }
    return std::nullopt;
}

void TellFailureOnce(Editor& editor) {
    if (editor.undo.failureTold) return;
    editor.undo.failureTold = true;
    ShowError(editor,
              "Error: Unable to save undo data!\r\n"
              "Undo is not available for this step.");
}

void DeleteDropped(Editor& editor) {
    for (const std::string& name : editor.undo.dropped) DeleteFile(CachePath(editor, name));
    editor.undo.dropped.clear();
}

/// Deleting a large file takes as long as writing it: the user's edit does not wait for that.
void DropOldest(Editor& editor) {
    UndoCache& undo = editor.undo;
    undo.dropped.push_back(undo.UndoNames.front());
    std::ranges::rotate(undo.UndoNames, undo.UndoNames.begin() + 1);
    --undo.UndoCount;
    editor.host.WhenIdle([&editor] { DeleteDropped(editor); });
}

}  // namespace

double SecondsSinceMidnight() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t whole = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&whole, &local);
    const duration<double> fraction = now - system_clock::from_time_t(whole);
    return 3600.0 * local.tm_hour + 60.0 * local.tm_min + local.tm_sec + fraction.count();
}

void TakeUndoSnapshot(Editor& editor) {
    editor.SceneModified = true;
    UndoCache& undo = editor.undo;
    const auto name = StoreSnapshot(editor, std::min(undo.UndoCount + 1, kUndoSteps));
    if (!name) {
        TellFailureOnce(editor);
        return;
    }
    undo.failureTold = false;
    if (undo.UndoCount == kUndoSteps) DropOldest(editor);  // only now: the new one is safe
    undo.UndoNames[static_cast<std::size_t>(undo.UndoCount++)] = *name;
    NoteSnapshot(editor, *name);
}

void Undo(Editor& editor) {
    UndoCache& undo = editor.undo;
    if (undo.UndoCount == 0) return;
    const std::size_t newest = static_cast<std::size_t>(--undo.UndoCount);
    const std::string& name = undo.UndoNames[newest];
    const std::string path = CachePath(editor, name);
    const bool restored = LoadObject(editor, path, false, true, true) == LoadResult::Done;
    if (!restored || !KeepAsRecovery(editor, name)) DeleteFile(path);
}

void ClearUndoCache(Editor& editor) {
    DeleteDropped(editor);
    while (editor.undo.UndoCount > 0) {
        const std::size_t newest = static_cast<std::size_t>(--editor.undo.UndoCount);
        DeleteFile(CachePath(editor, editor.undo.UndoNames[newest]));
    }
}

}  // namespace korvane
