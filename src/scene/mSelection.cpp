// Counting and clearing of selection flags. A brush is stamped as changed only where a flag of its
// faces or vertices really was cleared, so that an idle command keeps what the views derived.
#include "scene/mSelection.h"

#include <algorithm>

namespace korvane {
namespace {

template <class Record>
std::int32_t CountSelected(const std::vector<Record>& records) {
    return static_cast<std::int32_t>(
        std::count_if(records.begin(), records.end(), [](const Record& r) { return r.selected; }));
}

template <class Record>
bool Unselect(std::vector<Record>& records) {
    bool changed = false;
    for (Record& record : records) {
        changed = changed || record.selected.raw != 0;
        record.selected = false;
    }
    return changed;
}

template <class Action>
void ForSelected(Scene& scene, Action action) {
    for (Brush& brush : scene.brushes) {
        if (brush.selected) action(brush);
    }
}

}  // namespace

std::int32_t CountSelectedBrushes(const Scene& scene) {
    return CountSelected(scene.brushes);
}

std::int32_t CountSelectedFaces(const Scene& scene) {
    std::int32_t count = 0;
    for (const Brush& brush : scene.brushes) {
        if (brush.selected) count += CountSelected(brush.faces);
    }
    return count;
}

std::int32_t CountSelectedVertices(const Scene& scene) {
    std::int32_t count = 0;
    for (const Brush& brush : scene.brushes) {
        if (brush.selected) count += CountSelected(brush.vertices);
    }
    return count;
}

std::int32_t SelectedBrushIndex(const Scene& scene) {
    for (std::int32_t i = 0; i < scene.brushCount(); ++i) {
        if (scene.brushes[static_cast<std::size_t>(i)].selected) return i;
    }
    return -1;
}

void UnselectAllBrushes(Scene& scene) {
    Unselect(scene.brushes);
}

void ClearFaceSelection(Brush& brush) {
    if (Unselect(brush.faces)) Touch(brush);
}

void ClearVertexSelection(Brush& brush) {
    if (Unselect(brush.vertices)) Touch(brush);
}

void ClearSelectedFaces(Scene& scene) {
    ForSelected(scene, ClearFaceSelection);
}

void ClearSelectedVertices(Scene& scene) {
    ForSelected(scene, ClearVertexSelection);
}

void SelectOnly(Scene& scene, std::int32_t index) {
    UnselectAllBrushes(scene);
    if (index < 0 || index >= scene.brushCount()) return;
    Brush& brush = scene.brushes[static_cast<std::size_t>(index)];
    brush.selected = true;
    ClearFaceSelection(brush);
    ClearVertexSelection(brush);
}

void UnSelect(Scene& scene) {
    const bool vertexMode = scene.editMode == EdgeMove || scene.editMode == VertexMove;
    if (scene.editMode == FaceEdit && CountSelectedFaces(scene) > 0) {
        ClearSelectedFaces(scene);
    } else if (vertexMode && CountSelectedVertices(scene) > 0) {
        ClearSelectedVertices(scene);
    } else {
        UnselectAllBrushes(scene);
    }
}

}  // namespace korvane
