// A scene that carries a number in every part of it: a mixture of two versions shows.
#pragma once

#include <string>
#include <vector>

#include "scene/Scene.h"

namespace korvane::test {

inline float PlaceOfVersion(int version) {
    return static_cast<float>(version % 900);
}

/// Moves all brushes to the place of the version and writes it into their group names.
inline void MakeVersion(std::vector<Brush>& brushes, int version) {
    for (Brush& brush : brushes) {
        const float step = PlaceOfVersion(version) - brush.vertices.at(0).x;
        for (Vertex& vertex : brush.vertices) vertex.x += step;
        brush.group = std::to_string(version);
        Touch(brush);
    }
}

/// The number; -1 where the brushes carry none, or not all the same.
inline int VersionOf(const std::vector<Brush>& brushes) {
    if (brushes.empty() || brushes[0].group.empty()) return -1;
    const int version = std::stoi(brushes[0].group);
    for (const Brush& brush : brushes) {
        if (brush.group != brushes[0].group) return -1;
        if (brush.vertices.at(0).x != PlaceOfVersion(version)) return -1;
    }
    return version;
}

}  // namespace korvane::test
