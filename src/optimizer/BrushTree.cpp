#include "optimizer/BrushTree.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvane {
namespace {

constexpr std::size_t kLeafSize = 4;

Bounds Union(const Bounds& a, const Bounds& b) {
    return {{std::min(a.min.x, b.min.x), std::min(a.min.y, b.min.y), std::min(a.min.z, b.min.z)},
            {std::max(a.max.x, b.max.x), std::max(a.max.y, b.max.y), std::max(a.max.z, b.max.z)}};
}

/// Twice the middle. Bounds without end on both sides have none, and a sort needs a number.
double Middle(const Bounds& b, int axis) {
    constexpr float Vec3::*kAxes[] = {&Vec3::x, &Vec3::y, &Vec3::z};
    const auto place = kAxes[axis];
    const double sum = double{b.min.*place} + b.max.*place;
    return std::isnan(sum) ? 0 : sum;
}

bool Meet(const Bounds& a, const Bounds& b) {
    return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y &&
           a.min.z <= b.max.z && b.min.z <= a.max.z;
}

/// Whether a stretch comes near a box: by the three slabs that its sides bound.
class StretchMeets {
  public:
    explicit StretchMeets(const RayStretch& ray) : ray_(ray) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            // A ray along a slab never leaves it: a huge number does for the infinite one.
            const double d = ray.direction[axis];
            inverse_[axis] = std::fabs(d) > 1e-12 ? 1 / d : std::copysign(1e12, d);
        }
    }

    bool operator()(const Bounds& box) const {
        double from = -ray_.reach;
        double to = ray_.length + ray_.reach;
        return Cut(0, box.min.x, box.max.x, from, to) && Cut(1, box.min.y, box.max.y, from, to) &&
               Cut(2, box.min.z, box.max.z, from, to);
    }

  private:
    bool Cut(std::size_t axis, float low, float high, double& from, double& to) const {
        const double a = (low - ray_.reach - ray_.start[axis]) * inverse_[axis];
        const double b = (high + ray_.reach - ray_.start[axis]) * inverse_[axis];
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from <= to;
    }

    const RayStretch& ray_;
    std::array<double, 3> inverse_{};
};

}  // namespace

std::vector<Bounds> BoundsOf(const Scene& scene) {
    std::vector<Bounds> bounds;
    for (const Brush& brush : scene.brushes) bounds.push_back(BrushBounds(brush));
    return bounds;
}

BrushTree::BrushTree(const std::vector<Bounds>& bounds) {
    order_.resize(bounds.size());
    std::iota(order_.begin(), order_.end(), 0);
    if (!order_.empty()) Build(bounds, 0, order_.size());
    for (const std::int32_t i : order_) leafBounds_.push_back(bounds[static_cast<std::size_t>(i)]);
}

void BrushTree::Build(const std::vector<Bounds>& bounds, std::size_t first, std::size_t count) {
    const auto of = [&](std::int32_t i) -> const Bounds& {
        return bounds[static_cast<std::size_t>(i)];
    };
    const auto begin = order_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    const std::size_t node = nodes_.size();
    nodes_.push_back(
        {of(*begin), static_cast<std::int32_t>(first), static_cast<std::int32_t>(count)});
    std::array<double, 3> low{1e30, 1e30, 1e30};
    std::array<double, 3> high{-1e30, -1e30, -1e30};
    for (auto i = begin; i != end; ++i) {
        nodes_[node].bounds = Union(nodes_[node].bounds, of(*i));
        for (int axis = 0; axis < 3; ++axis) {
            const auto a = static_cast<std::size_t>(axis);
            low[a] = std::min(low[a], Middle(of(*i), axis));
            high[a] = std::max(high[a], Middle(of(*i), axis));
        }
    }
    if (count <= kLeafSize) return;
    int widest = 0;
    for (int axis = 1; axis < 3; ++axis) {
        const auto a = static_cast<std::size_t>(axis);
        const auto w = static_cast<std::size_t>(widest);
        if (high[a] - low[a] > high[w] - low[w]) widest = axis;
    }
    const std::size_t half = count / 2;
    std::nth_element(begin, begin + static_cast<std::ptrdiff_t>(half), end,
                     [&](std::int32_t a, std::int32_t b) {
                         return Middle(of(a), widest) < Middle(of(b), widest);
                     });
    nodes_[node].count = 0;
    Build(bounds, first, half);
    nodes_[node].first = static_cast<std::int32_t>(nodes_.size());
    Build(bounds, first + half, count - half);
}

template <class Reaches>
void BrushTree::Find(Reaches reaches, std::vector<std::int32_t>& found) const {
    if (nodes_.empty()) return;
    std::array<std::int32_t, 64> open{};  // the tree is halved at each level
    std::size_t depth = 0;
    open[depth++] = 0;
    while (depth > 0) {
        const std::int32_t at = open[--depth];
        const Node& node = nodes_[static_cast<std::size_t>(at)];
        if (!reaches(node.bounds)) continue;
        if (node.count == 0) {
            open[depth++] = node.first;
            open[depth++] = at + 1;
            continue;
        }
        for (std::int32_t i = node.first; i < node.first + node.count; ++i) {
            const auto place = static_cast<std::size_t>(i);
            if (reaches(leafBounds_[place])) found.push_back(order_[place]);
        }
    }
}

void BrushTree::FindInBox(const Bounds& box, std::vector<std::int32_t>& found) const {
    Find([&box](const Bounds& bounds) { return Meet(bounds, box); }, found);
}

void BrushTree::FindAlong(const RayStretch& ray, std::vector<std::int32_t>& found) const {
    Find(StretchMeets(ray), found);
}

}  // namespace korvane
