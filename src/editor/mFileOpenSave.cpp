#include "editor/mFileOpenSave.h"

#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "editor/mRecentFiles.h"
#include "editor/mRecovery.h"
#include "editor/mUndo.h"
#include "editor/mViews.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

FileDialog ObjectDialog(std::string title, const Editor& editor) {
    return {std::move(title), "Korvane Files (*.kvobject)", "*.kvobject", "kvobject",
            editor.CurrentObjectPath};
}

/// Asks before unsaved changes are dropped; true to go on.
bool MayDropChanges(Editor& editor, Warning warning, std::string text, std::string title) {
    if (!editor.SceneModified || !editor.settings.warnings[warning]) return true;
    text += "\r\nAre you sure you wish to continue?";
    return editor.prompts.ShowMessage({std::move(text), std::move(title), MessageIcon::Question,
                                       MessageButtons::YesNo}) == Answer::Yes;
}

/// Puts the brushes behind those of the scene, or in their place.
void TakeBrushes(Scene& scene, std::vector<Brush> brushes, bool merge) {
    if (!merge) {
        scene.brushes = std::move(brushes);
        return;
    }
    scene.brushes.insert(scene.brushes.end(), std::make_move_iterator(brushes.begin()),
                         std::make_move_iterator(brushes.end()));
}

/// How a file enters the session.
struct LoadWay {
    bool merge = false;
    bool isUndo = false;
    bool withSelection = false;
    bool becomesCurrent = false;  ///< the path becomes CurrentObjectPath
};

/// A file that can't be read into memory changes nothing.
LoadResult LoadFrom(Editor& editor, const std::string& path, const LoadWay& way) {
    const auto bytes = LoadFile(path);
    if (!bytes) return LoadResult::Failed;
    auto brushes = DecodeObject(*bytes, editor.textures, way.withSelection,
                                way.merge ? editor.scene.brushCount() : 0);
    if (!brushes && way.isUndo) return LoadResult::Failed;
    if (!way.merge) ClearScene(editor.scene);
    if (way.becomesCurrent) {
        editor.CurrentObjectPath = path;
        editor.currentFileForeign = !brushes;
    }
    if (!brushes) return LoadResult::Failed;
    TakeBrushes(editor.scene, std::move(*brushes), way.merge);
    if (!way.isUndo) {
        MarkChanged(editor);
        editor.SceneModified = way.merge;
        if (!way.merge) NothingUnsaved(editor);
    }
    return LoadResult::Done;
}

/// The end of every command that loads.
void ReportLoad(Editor& editor, LoadResult result) {
    if (result == LoadResult::Failed) ShowError(editor, "Error: Invalid Korvane File Format!");
    RefreshAll(editor);
}

bool MayDropForOpen(Editor& editor) {
    return MayDropChanges(editor, WarnOpen, "Notice! There are unsaved changes to the scene!",
                          "Notice!");
}

/// After a successful open the snapshots belong to another object.
void ReportOpen(Editor& editor, LoadResult result) {
    if (result != LoadResult::Cancelled) editor.host.CloseForms();
    if (result == LoadResult::Done) ClearUndoCache(editor);
    ReportLoad(editor, result);
}

}  // namespace

bool SaveObject(Editor& editor, const std::string& path) {
    std::string target = path;
    if (target.empty()) {
        const auto chosen = editor.prompts.AskSavePath(ObjectDialog("Save Object As...", editor));
        if (!chosen || chosen->empty()) return false;
        target = editor.CurrentObjectPath = *chosen;
        AddRecentFile(editor, *chosen);
    }
    const bool saved = SaveFile(target, EncodeObject(editor.scene, editor.textures, false));
    if (saved) {
        editor.SceneModified = false;
        editor.currentFileForeign = false;
        NothingUnsaved(editor);
    } else {
        ShowError(editor, "Error: Unable to save file!");
    }
    RefreshAll(editor);
    return saved;
}

LoadResult LoadObject(Editor& editor, const std::string& path, bool merge, bool isUndo,
                      bool withSelection) {
    LoadWay way{merge, isUndo, withSelection, false};
    if (!path.empty()) return LoadFrom(editor, path, way);
    FileDialog dialog = ObjectDialog("Open Object...", editor);
    dialog.showsObject = true;
    const auto chosen = editor.prompts.AskOpenPath(dialog);
    if (!chosen || chosen->empty()) return LoadResult::Cancelled;
    way.becomesCurrent = !merge;
    if (!merge) AddRecentFile(editor, *chosen);
    return LoadFrom(editor, *chosen, way);
}

void NewObject(Editor& editor) {
    if (!MayDropChanges(editor, WarnNew, "Warning, there are unsaved changes to the current scene!",
                        "Warning!")) {
        return;
    }
    editor.host.CloseForms();
    ClearScene(editor.scene);
    ResetAllViews(editor);
    editor.SceneModified = false;
    editor.CurrentObjectPath.clear();
    editor.currentFileForeign = false;
    NothingUnsaved(editor);
    ClearUndoCache(editor);
    editor.host.LayoutPanes();  // the split is back in the middle
    RefreshAll(editor);
}

void OpenObject(Editor& editor) {
    if (!MayDropForOpen(editor)) return;
    ReportOpen(editor, LoadObject(editor, {}, false, false, false));
}

void MergeObject(Editor& editor) {
    ReportLoad(editor, LoadObject(editor, {}, true, false, false));
}

void SaveCurrentObject(Editor& editor) {
    SaveObject(editor, editor.currentFileForeign ? std::string() : editor.CurrentObjectPath);
}

void SaveObjectAs(Editor& editor) {
    SaveObject(editor, {});
}

void OpenRecentFile(Editor& editor, std::size_t index) {
    if (index >= editor.settings.recentFiles.size() || !MayDropForOpen(editor)) return;
    const std::string path = editor.settings.recentFiles[index];
    AddRecentFile(editor, path);
    const LoadResult result = LoadFrom(editor, path, {.becomesCurrent = true});
    if (result == LoadResult::Done || editor.CurrentObjectPath == path) editor.host.CloseForms();
    ReportLoad(editor, result);
}

void OpenFile(Editor& editor, const std::string& path) {
    if (MayDropForOpen(editor)) OpenObjectFile(editor, path);
}

void MergeFile(Editor& editor, const std::string& path) {
    ReportLoad(editor, LoadFrom(editor, path, {.merge = true}));
}

void OpenObjectFile(Editor& editor, const std::string& path) {
    const LoadResult result = LoadFrom(editor, path, {.becomesCurrent = true});
    if (result == LoadResult::Done) AddRecentFile(editor, path);
    ReportOpen(editor, result);
}

}  // namespace korvane
