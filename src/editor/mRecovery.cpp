#include "editor/mRecovery.h"

#include <cstdio>
#include <functional>
#include <random>

#include "base/NumberText.h"
#include "editor/mFolders.h"
#include "files/FileBuffer.h"
#include "files/RunRecord.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

/// A name that no other run has.
std::string NewRunName() {
    std::random_device random;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%08x%08x", random(), random());
    return std::string("$") + digits;
}

/// Stands for the content of the scene; never 0.
std::uint64_t StateOf(const Scene& scene) {
    std::uint64_t state = 0xCBF29CE484222325;
    const auto add = [&state](std::uint64_t value) { state = (state ^ value) * 0x100000001B3; };
    for (const Brush& brush : scene.brushes) {
        add(brush.revision);
        add(std::hash<std::string>()(brush.group));
    }
    return state | 1;
}

bool Note(Editor& editor, RunEntry kind, const std::string& text) {
    return editor.recovery.record->Append(EncodeRunEntry(kind, text));
}

/// A path that could be noted only in part is noted again before the next scene.
void NotePath(Editor& editor) {
    Recovery& recovery = editor.recovery;
    const bool foreign = editor.currentFileForeign;
    const std::string& path = editor.CurrentObjectPath;
    if (recovery.notedPath == path && recovery.notedForeign == foreign) return;
    if (!Note(editor, foreign ? RunEntry::ForeignPath : RunEntry::Path, path)) return;
    recovery.notedPath = path;
    recovery.notedForeign = foreign;
}

/// The record as it must be before a scene is noted: on the disk, with the object's path of now.
/// One that could not be made, or is gone, is made anew.
bool PrepareRecord(Editor& editor) {
    Recovery& recovery = editor.recovery;
    if (recovery.run.empty()) return false;
    if (!recovery.record || !recovery.record->HasName()) BeginRecovery(editor);
    if (!recovery.record) return false;
    NotePath(editor);
    return true;
}

std::string NextRecoveryName(Recovery& recovery) {
    return recovery.run + "_" + FormatPadded(++recovery.count, 4) + kRecoveryEnding;
}

/// The file takes the place of the recovery file before it, which goes when the new one is there.
void KeepInstead(Editor& editor, const std::string& name) {
    Recovery& recovery = editor.recovery;
    if (!recovery.kept.empty()) recovery.writer.DeleteOnceStored(CachePath(editor, recovery.kept));
    recovery.kept = name;
    recovery.keptState = StateOf(editor.scene);
}

/// What could not be written is tried again; the user is told the first time.
void CheckLastStore(Editor& editor) {
    Recovery& recovery = editor.recovery;
    const bool failed = recovery.writer.LastStoreFailed();
    if (failed) recovery.keptState = 0;
    if (failed && !recovery.failureTold) {
        recovery.failureTold = true;
        ShowError(editor,
                  "Error: Unable to save recovery data!\r\n"
                  "Unsaved changes are lost if the program ends unexpectedly.");
    }
    recovery.failureTold = failed;
}

}  // namespace

void BeginRecovery(Editor& editor) {
    Recovery& recovery = editor.recovery;
    EnsureCacheFolder(editor);
    recovery.run = NewRunName();
    recovery.record = LockedFile::Create(CachePath(editor, recovery.run + kRecordEnding));
    recovery.notedPath.clear();
    recovery.notedForeign = false;
    recovery.kept.clear();
    recovery.keptState = 0;
}

void EndRecovery(Editor& editor) {
    Recovery& recovery = editor.recovery;
    NothingUnsaved(editor);
    if (recovery.record) recovery.writer.Delete(CachePath(editor, recovery.run + kRecordEnding));
    recovery.writer.Wait();
    recovery.record.reset();
    recovery.run.clear();
}

bool StoreRecovery(Editor& editor) {
    Recovery& recovery = editor.recovery;
    if (recovery.run.empty()) return false;
    CheckLastStore(editor);
    if (!editor.SceneModified || editor.scene.brushes.empty()) return false;
    if (StateOf(editor.scene) == recovery.keptState) return false;
    if (!PrepareRecord(editor)) return false;
    const std::string name = NextRecoveryName(recovery);
    recovery.writer.Store(CachePath(editor, name),
                          EncodeObject(editor.scene, editor.textures, true));
    Note(editor, RunEntry::Scene, name);
    KeepInstead(editor, name);
    return true;
}

bool KeepAsRecovery(Editor& editor, const std::string& name) {
    if (!PrepareRecord(editor)) return false;
    const std::string kept = NextRecoveryName(editor.recovery);
    Note(editor, RunEntry::Scene, kept);  // first: under a name not noted the file would be lost
    if (!RenameFile(CachePath(editor, name), CachePath(editor, kept))) return false;
    KeepInstead(editor, kept);
    return true;
}

void NoteSnapshot(Editor& editor, const std::string& name) {
    if (!PrepareRecord(editor)) return;
    Note(editor, RunEntry::Scene, name);
    editor.recovery.keptState = StateOf(editor.scene);
}

void NothingUnsaved(Editor& editor) {
    Recovery& recovery = editor.recovery;
    if (!recovery.record) return;
    Note(editor, RunEntry::Saved, {});
    if (!recovery.kept.empty()) recovery.writer.Delete(CachePath(editor, recovery.kept));
    recovery.kept.clear();
    recovery.keptState = 0;
}

}  // namespace korvane
