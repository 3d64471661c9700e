#include "optimizer/mOptimize.h"

#include <map>

#include "editor/mUndo.h"

namespace korvane {
namespace {

std::vector<bool> InvisibleFlags(const Brush& brush) {
    std::vector<bool> flags;
    for (const BrushFace& face : brush.faces) flags.push_back(face.invisible);
    return flags;
}

/// What there is of a polygon, before and after.
struct PolygonChange {
    bool hadVisible = false, hadInvisible = false, hasVisible = false, hasInvisible = false;
};

void Store(Brush& brush, const std::vector<bool>& invisible, OptimizeResult& result) {
    std::map<std::int32_t, PolygonChange> polygons;
    for (std::size_t i = 0; i < brush.faces.size(); ++i) {
        BrushFace& face = brush.faces[i];
        PolygonChange& polygon = polygons[face.polygonId];
        (face.invisible ? polygon.hadInvisible : polygon.hadVisible) = true;
        (invisible[i] ? polygon.hasInvisible : polygon.hasVisible) = true;
        face.invisible = invisible[i];
    }
    for (const auto& [id, polygon] : polygons) {
        if (polygon.hadVisible && !polygon.hasVisible) ++result.hidden;
        if (polygon.hadInvisible && !polygon.hasInvisible) ++result.shown;
    }
    Touch(brush);
}

}  // namespace

OptimizeResult OptimizeScene(Scene& scene, OptimizeEngine& engine, OptimizePoll poll) {
    OptimizeResult result;
    OptimizeWatch watch(std::move(poll));
    watch.progress.brushCount = scene.brushCount();
    for (std::int32_t& i = watch.progress.brush; i < scene.brushCount(); ++i) {
        watch.progress.shareOfBrush = 0;
        if (!watch.GoOn(0)) return result;
        Brush& brush = scene.brushes[static_cast<std::size_t>(i)];
        const std::vector<bool> before = InvisibleFlags(brush);
        std::vector<bool> invisible = before;
        if (!engine.OptimizeBrush(i, invisible, watch)) return result;
        if (invisible != before) Store(brush, invisible, result);
    }
    result.finished = true;
    return result;
}

OptimizeResult OptimizeObject(Editor& editor, OptimizeEngine& engine, OptimizePoll poll) {
    TakeUndoSnapshot(editor);
    return OptimizeScene(editor.scene, engine, std::move(poll));
}

}  // namespace korvane
