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

bool IsKnown(const UndoCache& undo, const std::string& file) {
    return std::ranges::count(undo.UndoNames, file, &Snapshot::file) > 0 ||
           std::ranges::count(undo.redo, file, &Snapshot::file) > 0 ||
           std::ranges::count(undo.dropped, file) > 0;
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
        if (IsKnown(editor.undo, name)) continue;
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

/// `command` is what the user has to do without, "Undo" or "Redo".
void TellFailureOnce(Editor& editor, const std::string& command) {
    if (editor.undo.failureTold) return;
    editor.undo.failureTold = true;
    ShowError(editor, "Error: Unable to save undo data!\r\n" + command +
                          " is not available for this step.");
}

void DeleteDropped(Editor& editor) {
    for (const std::string& name : editor.undo.dropped) DeleteFile(CachePath(editor, name));
    editor.undo.dropped.clear();
}

/// Deleting a large file takes as long as writing it: the user's edit does not wait for that.
void DeleteWhenIdle(Editor& editor) {
    editor.host.WhenIdle([&editor] { DeleteDropped(editor); });
}

void DropOldest(Editor& editor) {
    UndoCache& undo = editor.undo;
    undo.dropped.push_back(undo.UndoNames.front().file);
    std::ranges::rotate(undo.UndoNames, undo.UndoNames.begin() + 1);
    --undo.UndoCount;
    DeleteWhenIdle(editor);
}

void DropRedo(Editor& editor) {
    UndoCache& undo = editor.undo;
    if (undo.redo.empty()) return;
    for (const Snapshot& snapshot : undo.redo) undo.dropped.push_back(snapshot.file);
    undo.redo.clear();
    DeleteWhenIdle(editor);
}

/// Stores the scene as the newest step to go back to.
bool PushUndo(Editor& editor, std::string caption) {
    UndoCache& undo = editor.undo;
    auto file = StoreSnapshot(editor, std::min(undo.UndoCount + 1, kUndoSteps));
    if (!file) {
        TellFailureOnce(editor, "Undo");
        return false;
    }
    undo.failureTold = false;
    if (undo.UndoCount == kUndoSteps) DropOldest(editor);  // only now: the new one is safe
    undo.UndoNames[static_cast<std::size_t>(undo.UndoCount++)] = {*file, std::move(caption)};
    NoteSnapshot(editor, *file);
    return true;
}

/// The same for going forth. Where it fails the earlier ones are of no use either: a step would be
/// missing between them and the scene.
bool PushRedo(Editor& editor, std::string caption) {
    UndoCache& undo = editor.undo;
    const auto file = StoreSnapshot(editor, static_cast<std::int32_t>(undo.redo.size()) + 1);
    if (!file) {
        DropRedo(editor);
        TellFailureOnce(editor, "Redo");
        return false;
    }
    undo.redo.push_back({*file, std::move(caption)});
    return true;
}

Snapshot PopUndo(UndoCache& undo) {
    return undo.UndoNames[static_cast<std::size_t>(--undo.UndoCount)];
}

Snapshot PopRedo(UndoCache& undo) {
    Snapshot newest = std::move(undo.redo.back());
    undo.redo.pop_back();
    return newest;
}

/// Puts the snapshot in the place of the scene, if it can be read. Its file becomes what a crash
/// leaves, or goes.
bool Restore(Editor& editor, const Snapshot& snapshot) {
    const std::string path = CachePath(editor, snapshot.file);
    const bool done = LoadObject(editor, path, false, true, true) == LoadResult::Done;
    if (!done || !KeepAsRecovery(editor, snapshot.file)) DeleteFile(path);
    return done;
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

bool TakeUndoSnapshot(Editor& editor, std::string_view caption) {
    MarkChanged(editor);
    return PushUndo(editor, caption.empty() ? editor.undo.command : std::string(caption));
}

void MarkChanged(Editor& editor) {
    editor.SceneModified = true;
    DropRedo(editor);
}

void Undo(Editor& editor) {
    UndoCache& undo = editor.undo;
    if (undo.UndoCount == 0) return;
    const Snapshot step = PopUndo(undo);
    const bool stored = PushRedo(editor, step.caption);
    if (!Restore(editor, step) && stored) DeleteFile(CachePath(editor, PopRedo(undo).file));
}

void Redo(Editor& editor) {
    UndoCache& undo = editor.undo;
    if (undo.redo.empty()) return;
    const Snapshot step = undo.redo.back();
    const bool stored = PushUndo(editor, step.caption);  // not under the name of the step
    PopRedo(undo);
    if (Restore(editor, step)) {
        editor.SceneModified = true;
    } else if (stored) {
        DeleteFile(CachePath(editor, PopUndo(undo).file));
    }
}

std::string UndoCaption(const Editor& editor) {
    const UndoCache& undo = editor.undo;
    if (undo.UndoCount == 0) return {};
    return undo.UndoNames[static_cast<std::size_t>(undo.UndoCount - 1)].caption;
}

std::string RedoCaption(const Editor& editor) {
    return editor.undo.redo.empty() ? std::string() : editor.undo.redo.back().caption;
}

void RenameUndoStep(Editor& editor, std::string_view caption) {
    UndoCache& undo = editor.undo;
    if (undo.UndoCount > 0)
        undo.UndoNames[static_cast<std::size_t>(undo.UndoCount - 1)].caption = caption;
}

void ClearUndoCache(Editor& editor) {
    DropRedo(editor);
    DeleteDropped(editor);
    while (editor.undo.UndoCount > 0) DeleteFile(CachePath(editor, PopUndo(editor.undo).file));
}

}  // namespace korvane
