// Counting and clearing of selection flags. A brush is stamped as changed only where a flag of its
// faces or vertices really was cleared, so that an idle command keeps what the views derived.
#include "scene/mSelection.h"

#include <algorithm>
#include <unordered_set>

#include "base/SingleByteText.h"

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

/// Selects the brushes whose text (their name or group) is among the given ones.
void SelectByText(Scene& scene, std::string Brush::*text, std::span<const std::string> wanted) {
    std::unordered_set<std::string> lowerCase;
    for (const std::string& entry : wanted) lowerCase.insert(LowerCase(entry));
    for (Brush& brush : scene.brushes) {
        if (!lowerCase.contains(LowerCase(brush.*text))) continue;
        brush.selected = true;
        ClearFaceSelection(brush);
        ClearVertexSelection(brush);
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

void SelectByName(Scene& scene, std::span<const std::string> names) {
    SelectByText(scene, &Brush::name, names);
}

void SelectByGroup(Scene& scene, std::span<const std::string> groups) {
    SelectByText(scene, &Brush::group, groups);
}

void SelectByTexture(Scene& scene, std::span<const std::int32_t> textures) {
    const std::unordered_set<std::int32_t> wanted(textures.begin(), textures.end());
    for (Brush& brush : scene.brushes) {
        const bool wears = std::ranges::any_of(
            brush.faces, [&](const BrushFace& face) { return wanted.contains(face.texture); });
        if (wears) brush.selected = true;
    }
}

void ToggleFacePolygon(Brush& brush, std::int32_t face) {
    const BrushFace picked = brush.faces[static_cast<std::size_t>(face)];
    for (BrushFace& other : brush.faces) {
        if (other.polygonId == picked.polygonId) other.selected = !picked.selected;
    }
    Touch(brush);
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
