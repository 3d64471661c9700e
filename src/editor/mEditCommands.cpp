#include "editor/mEditCommands.h"

#include <string>

#include "editor/mUndo.h"
#include "scene/mClipboard.h"
#include "scene/mSelection.h"
#include "scene/mTransform.h"

namespace korvane {
namespace {

bool HasSelection(const Editor& editor) {
    return SelectedBrushIndex(editor.scene) >= 0;
}

/// Whether `count` brushes may be deleted.
bool MayDelete(Editor& editor, std::int32_t count) {
    if (!editor.settings.warnings[count == 1 ? WarnDeleteBrush : WarnDeleteBrushes]) return true;
    const std::string what =
        count == 1 ? "this brush?" : "these " + std::to_string(count) + " brushes?";
    return editor.prompts.ShowMessage({"Warning! Are you sure you wish delete " + what, "Warning!",
                                       MessageIcon::Question, MessageButtons::YesNo}) ==
           Answer::Yes;
}

/// A change of the selected brushes in one undo step; without a selection it only refreshes.
template <class Change>
void ChangeSelection(Editor& editor, Change change) {
    if (HasSelection(editor)) {
        TakeUndoSnapshot(editor);
        change();
    }
    RefreshAll(editor);
}

}  // namespace

void UndoLastChange(Editor& editor) {
    Undo(editor);
    RefreshAll(editor);
}

void RedoLastChange(Editor& editor) {
    Redo(editor);
    RefreshAll(editor);
}

void CopyBrushes(Editor& editor) {
    if (!HasSelection(editor)) return;
    CopySelection(editor.scene);
    UpdateCommandStates(editor);  // there is something to paste now
}

void PasteBrushes(Editor& editor) {
    if (editor.scene.clipboard.empty()) return;
    TakeUndoSnapshot(editor);
    PasteClipboard(editor.scene);
    RefreshAll(editor);
}

void UnSelectCommand(Editor& editor) {
    UnSelect(editor.scene);
    RefreshAll(editor);
}

void DeleteBrushes(Editor& editor) {
    const std::int32_t count = CountSelectedBrushes(editor.scene);
    if (count == 0 || !MayDelete(editor, count)) return;
    TakeUndoSnapshot(editor);
    DeleteSelectedBrushes(editor.scene);
    RefreshAll(editor);
}

void RotateBrushes(Editor& editor, float ax, float ay, float az) {
    ChangeSelection(editor, [&] { RotateSelection(editor.scene, ax, ay, az, editor.Space()); });
}

void FlipBrushes(Editor& editor, bool fx, bool fy, bool fz) {
    ChangeSelection(editor, [&] { FlipSelection(editor.scene, fx, fy, fz, editor.Space()); });
}

void InvertBrushes(Editor& editor) {
    ChangeSelection(editor, [&] { InvertSelection(editor.scene, editor.Space()); });
}

}  // namespace korvane
