#include "scene/mClipboard.h"

#include <algorithm>
#include <iterator>

#include "scene/mSelection.h"

namespace korvane {

void CopySelection(Scene& scene) {
    scene.clipboard.clear();
    std::ranges::copy_if(scene.brushes, std::back_inserter(scene.clipboard),
                         [](const Brush& brush) { return bool{brush.selected}; });
}

Brush& AddCopy(Scene& scene, const Brush& brush) {
    Brush& copy = scene.brushes.emplace_back(brush);
    copy.name = DefaultBrushName(scene.brushCount() - 1);
    copy.selected = true;
    ClearFaceSelection(copy);
    ClearVertexSelection(copy);
    Touch(copy);
    return copy;
}

void PasteClipboard(Scene& scene) {
    UnselectAllBrushes(scene);
    for (const Brush& copied : scene.clipboard) AddCopy(scene, copied);
}

void DeleteSelectedBrushes(Scene& scene) {
    const auto removed =
        std::erase_if(scene.brushes, [](const Brush& brush) { return bool{brush.selected}; });
    if (removed > 0) RenumberBrushNames(scene);
}

}  // namespace korvane
