#include "editor/mPreviewClick.h"

#include "scene/mSelection.h"

namespace korvane {
namespace {

template <class Record>
bool Holds(const std::vector<Record>& records, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < records.size();
}

void ToggleBrush(Editor& editor, std::int32_t index) {
    if (!Holds(editor.scene.brushes, index)) return;
    Brush& brush = editor.scene.brushes[static_cast<std::size_t>(index)];
    brush.selected = !brush.selected;
    DepthRangeFromSelection(editor.scene, editor.depthRange);
}

void TogglePolygon(Brush& brush, std::int32_t face) {
    if (Holds(brush.faces, face)) ToggleFacePolygon(brush, face);
}

}  // namespace

void ClickPreview(Editor& editor, const PreviewPicker& pick) {
    Scene& scene = editor.scene;
    const std::int32_t selected = CountSelectedBrushes(scene);
    if (selected == 0 || scene.editMode != FaceEdit) {
        ToggleBrush(editor, pick());
    } else if (selected == 1) {
        const auto brush = static_cast<std::size_t>(SelectedBrushIndex(scene));
        TogglePolygon(scene.brushes[brush], pick());
    }
    RefreshAll(editor);
}

}  // namespace korvane
