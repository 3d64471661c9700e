// The object in numbers: what the statistics dialog and the command line show.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// The numbers, in the order of their labels. A face here is a polygon: a run of triangles of one
/// brush with the same polygonId, classified by its first triangle.
enum Statistic : std::size_t {
    BrushTotal = 0,
    FaceTotal = 1,
    InvisibleFaces = 2,
    TransparentFaces = 3,
    GlobalCoordFaces = 4,
    LocalCoordFaces = 5,
    VertexTotal = 6,
    TriangleTotal = 7,
    VisibleTriangles = 8,
    UsedTextures = 9,  ///< distinct textures of any triangle, the placeholder among them
    BoxBrushes = 10,
    ConeBrushes = 11,
    SphereBrushes = 12,
    TextureTotal = 13,  ///< entries of the library
    StatisticCount
};

using Statistics = std::array<std::int64_t, StatisticCount>;

/// Counts the whole scene. A texture index outside the library counts as the placeholder.
Statistics CountStatistics(const Scene& scene, const TextureLibrary& library);

/// The length of every number's bar, 0..1: its share in the largest number of its group. Groups are
/// the brushes, the faces, vertices with triangles, and the textures.
std::array<double, StatisticCount> BarsOf(const Statistics& statistics);

/// The groups that brushes belong to, each once ignoring letter case, in the order of first use.
std::vector<std::string> GroupsOf(const Scene& scene);

/// The file names of the textures that faces use, each once ignoring letter case, in the order of
/// first use; the placeholder has none.
std::vector<std::string> TextureNamesOf(const Scene& scene, const TextureLibrary& library);

}  // namespace korvane
