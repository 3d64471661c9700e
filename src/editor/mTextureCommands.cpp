#include "editor/mTextureCommands.h"

#include "editor/mUndo.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

/// Whether anything was assigned.
bool AssignClicked(Editor& editor) {
    if (editor.scene.editMode != FaceEdit) {
        TakeUndoSnapshot(editor, "Assign Texture");
        AssignTextureToSelectedBrushes(editor.scene, editor.textures);
        UpdateSelectedTextureCoords(editor.scene, editor.Space());
        return true;
    }
    if (CountSelectedFaces(editor.scene) == 0) return false;
    TakeUndoSnapshot(editor, "Assign Texture");
    AssignTextureToSelectedFaces(editor.scene, editor.Space());
    return true;
}

}  // namespace

void TextureClicked(Editor& editor, std::int32_t index) {
    editor.textures.SelectTexture(index);
    if (CountSelectedBrushes(editor.scene) == 0) return;
    const bool assigned = AssignClicked(editor);
    editor.host.RequestRedraw(RedrawPreview);
    if (!assigned) return;
    editor.host.ShowCommandStates();  // the snapshot marked the scene as modified
    editor.host.RefreshPropertyPanel();
}

}  // namespace korvane
