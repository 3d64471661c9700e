#include "scene/mStatistics.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/SingleByteText.h"

namespace korvane {
namespace {

/// Bars of one group share a scale; in the order of Statistic.
enum class BarGroup { Brushes, Faces, Geometry, Textures };
constexpr std::array<BarGroup, StatisticCount> kBarGroups = {
    BarGroup::Brushes,  BarGroup::Faces,    BarGroup::Faces,    BarGroup::Faces,
    BarGroup::Faces,    BarGroup::Faces,    BarGroup::Geometry, BarGroup::Geometry,
    BarGroup::Geometry, BarGroup::Textures, BarGroup::Brushes,  BarGroup::Brushes,
    BarGroup::Brushes,  BarGroup::Textures};

class Counter {
  public:
    explicit Counter(const TextureLibrary& library)
        : used_(static_cast<std::size_t>(library.ListCount()), false) {
        counts_[TextureTotal] = library.ListCount();
    }

    void Count(const Brush& brush) {
        ++counts_[BrushTotal];
        if (brush.shape >= Box && brush.shape <= Sphere) {
            ++counts_[BoxBrushes + static_cast<std::size_t>(brush.shape)];
        }
        counts_[VertexTotal] += std::ssize(brush.vertices);
        const BrushFace* previous = nullptr;
        for (const BrushFace& face : brush.faces) {
            CountTriangle(face);
            if (!previous || face.polygonId != previous->polygonId) CountPolygon(face);
            previous = &face;
        }
    }

    Statistics Take() {
        counts_[UsedTextures] = std::ranges::count(used_, true);
        return counts_;
    }

  private:
    void CountTriangle(const BrushFace& face) {
        const auto texture = static_cast<std::uint32_t>(face.texture);
        used_[texture < used_.size() ? texture : 0] = true;
        ++counts_[TriangleTotal];
        if (!face.invisible) ++counts_[VisibleTriangles];
    }

    void CountPolygon(const BrushFace& first) {
        ++counts_[FaceTotal];
        ++counts_[first.localCoords ? LocalCoordFaces : GlobalCoordFaces];
        if (first.transparency > 0) ++counts_[TransparentFaces];
        if (first.invisible) ++counts_[InvisibleFaces];
    }

    Statistics counts_{};
    std::vector<bool> used_;
};

}  // namespace

Statistics CountStatistics(const Scene& scene, const TextureLibrary& library) {
    Counter counter(library);
    for (const Brush& brush : scene.brushes) counter.Count(brush);
    return counter.Take();
}

std::array<double, StatisticCount> BarsOf(const Statistics& statistics) {
    std::array<std::int64_t, 4> largest{};
    const auto groupOf = [](std::size_t i) { return static_cast<std::size_t>(kBarGroups[i]); };
    for (std::size_t i = 0; i < StatisticCount; ++i) {
        largest[groupOf(i)] = std::max(largest[groupOf(i)], statistics[i]);
    }
    std::array<double, StatisticCount> bars{};
    for (std::size_t i = 0; i < StatisticCount; ++i) {
        const auto whole = static_cast<double>(largest[groupOf(i)]);
        if (whole > 0) bars[i] = static_cast<double>(statistics[i]) / whole;
    }
    return bars;
}

std::vector<std::string> GroupsOf(const Scene& scene) {
    std::vector<std::string> groups;
    std::unordered_set<std::string> known;
    for (const Brush& brush : scene.brushes) {
        if (brush.group.empty()) continue;
        if (known.insert(LowerCase(brush.group)).second) groups.push_back(brush.group);
    }
    return groups;
}

std::vector<std::string> TextureNamesOf(const Scene& scene, const TextureLibrary& library) {
    std::vector<std::string> names;
    std::unordered_set<std::int32_t> seen;
    std::unordered_set<std::string> known;
    for (const Brush& brush : scene.brushes) {
        for (const BrushFace& face : brush.faces) {
            if (!seen.insert(face.texture).second) continue;
            const std::string& name = library.TextureFilename(face.texture);
            if (name.empty()) continue;
            if (known.insert(LowerCase(name)).second) names.push_back(name);
        }
    }
    return names;
}

}  // namespace korvane
