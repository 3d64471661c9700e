// What holds for every scene that a user can come to, whatever the commands and gestures on the
// way.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <string>

#include "editor/Editor.h"
#include "scene/mNormals.h"

namespace korvane::test {

/// The caps of a box lie in its two rings, one each.
inline std::string RingProblem(const Brush& box) {
    const auto n = static_cast<std::int32_t>(box.vertices.size()) / 2;
    if (box.vertices.size() != static_cast<std::size_t>(2 * n) ||
        box.faces.size() != static_cast<std::size_t>(4 * n - 4)) {
        return "counts that no box has";
    }
    for (const BrushFace& face : box.faces) {
        for (const std::int32_t corner : {face.a, face.b, face.c}) {
            if (face.polygonId <= 2 && corner / n != face.polygonId - 1)
                return "a cap off its ring";
        }
    }
    return {};
}

/// Whether the faces carry the texture coordinates that one of these scales gives them: another
/// scale counts for what is computed from then on.
inline bool CoordsAreFresh(const Brush& brush, const TextureLibrary& library,
                           std::span<const float> scales) {
    std::vector<bool> fresh(brush.faces.size(), false);
    for (const float scale : scales) {
        Brush again = brush;
        UpdateTextureCoords(again, {library, scale});
        for (std::size_t f = 0; f < fresh.size(); ++f)
            fresh[f] = fresh[f] || brush.faces[f].uv == again.faces[f].uv;
        if (std::ranges::find(fresh, false) == fresh.end()) return true;
    }
    return false;
}

/// What is wrong with a brush: corners, numbers, derived data that is not up to date. Empty:
/// nothing.
inline std::string BrushProblem(const Brush& brush, const TextureLibrary& library,
                                std::span<const float> scales) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    for (const Vertex& v : brush.vertices) {
        if (!std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.z))
            return "a vertex that is nowhere";
    }
    for (const BrushFace& face : brush.faces) {
        for (const std::int32_t i : {face.a, face.b, face.c}) {
            if (i < 0 || i >= count) return "a corner without vertex";
        }
        if (face.texture < 0 || face.texture >= library.ListCount())
            return "a texture that the library lacks";
    }
    Brush fresh = brush;
    UpdateBrushNormals(fresh);
    for (std::size_t f = 0; f < brush.faces.size(); ++f) {
        if (brush.faces[f].normal != fresh.faces[f].normal) return "a stale normal";
        if (brush.faces[f].cornerNormals != fresh.faces[f].cornerNormals)
            return "a stale shading normal";
    }
    if (!CoordsAreFresh(brush, library, scales)) return "stale texture coordinates";
    return brush.shape == Box ? RingProblem(brush) : std::string();
}

/// What is wrong with the session's scene; empty: nothing. Only brushes that `concerns` names are
/// looked into, and their texture coordinates may be those of any of the scales.
template <class Concerns>
std::string SceneProblem(const Editor& editor, std::span<const float> scales, Concerns concerns) {
    std::int32_t index = 0;
    for (const Brush& brush : editor.scene.brushes) {
        if (brush.name != DefaultBrushName(index++)) return brush.name + ": a name out of place";
        if (!concerns(brush)) continue;
        const std::string problem = BrushProblem(brush, editor.textures, scales);
        if (!problem.empty()) return brush.name + ": " + problem;
    }
    if (bool{editor.scene.markerShown} != (editor.markerForms > 0))
        return "a rotation marker without its dialog, or a dialog without its marker";
    return {};
}

inline std::string SceneProblem(const Editor& editor) {
    return SceneProblem(editor, {&editor.settings.TextureScale, 1},
                        [](const Brush&) { return true; });
}

}  // namespace korvane::test
