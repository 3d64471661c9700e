// The primitive operations on the scene's records.
#include "scene/Scene.h"

#include <atomic>
#include <utility>

#include "base/NumberText.h"

namespace korvane {

void Touch(Brush& brush) {
    static std::atomic<std::uint64_t> latest{0};
    brush.revision = latest.fetch_add(1, std::memory_order_relaxed) + 1;
}

void ClearScene(Scene& scene) {
    scene.brushes.clear();
    scene.clipboard.clear();
}

std::string DefaultBrushName(std::int32_t index) {
    return "Brush-" + FormatPadded(index, 4);
}

std::int32_t AddBrush(Scene& scene, std::string name, std::string group) {
    const std::int32_t index = scene.brushCount();
    Brush& brush = scene.brushes.emplace_back();
    brush.name = name.empty() ? DefaultBrushName(index) : std::move(name);
    brush.group = std::move(group);
    Touch(brush);
    return index;
}

std::int32_t AddVertex(Brush& brush, const Vec3& point, bool reuse) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    if (reuse) {
        for (std::int32_t i = 0; i < count; ++i) {
            if (brush.vertices[static_cast<std::size_t>(i)].Position() == point) return i;
        }
    }
    brush.vertices.push_back({false, point.x, point.y, point.z});
    return count;
}

std::int32_t AddFace(Brush& brush, std::int32_t a, std::int32_t b, std::int32_t c,
                     std::int32_t polygonId) {
    BrushFace& face = brush.faces.emplace_back();
    face.a = a;
    face.b = b;
    face.c = c;
    face.polygonId = polygonId;
    return static_cast<std::int32_t>(brush.faces.size()) - 1;
}

void DeleteBrush(Scene& scene, std::int32_t index) {
    if (index < 0 || index >= scene.brushCount()) return;
    scene.brushes.erase(scene.brushes.begin() + index);
    RenumberBrushNames(scene);
}

void RenumberBrushNames(Scene& scene) {
    std::int32_t index = 0;
    for (Brush& brush : scene.brushes) brush.name = DefaultBrushName(index++);
}

}  // namespace korvane
