// Finds the brushes whose bounds reach a box or the stretch of a ray, without asking each.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "scene/mNormals.h"

namespace korvane {

/// A stretch of a ray, thickened.
struct RayStretch {
    std::array<double, 3> start{};
    std::array<double, 3> direction{};  ///< of unit length
    double length = 0;
    double reach = 0;  ///< everything within this distance of the stretch counts
};

/// The bounds of each brush of a scene.
std::vector<Bounds> BoundsOf(const Scene& scene);

/// A tree of boxes over bounds that do not change.
class BrushTree {
  public:
    /// Builds the tree; entry i of the list is brush i.
    explicit BrushTree(const std::vector<Bounds>& bounds);

    /// Appends to `found` all brushes whose bounds reach the box, in no particular order.
    void FindInBox(const Bounds& box, std::vector<std::int32_t>& found) const;

    /// Appends to `found` all brushes whose bounds reach the stretch, and perhaps some near it.
    void FindAlong(const RayStretch& ray, std::vector<std::int32_t>& found) const;

  private:
    struct Node {
        Bounds bounds;
        std::int32_t first = 0;  ///< of a leaf: place in order_; else the second child
        std::int32_t count = 0;  ///< brushes of a leaf; 0: the first child is the next node
    };

    void Build(const std::vector<Bounds>& bounds, std::size_t first, std::size_t count);
    template <class Reaches>
    void Find(Reaches reaches, std::vector<std::int32_t>& found) const;

    std::vector<Node> nodes_;
    std::vector<std::int32_t> order_;
    std::vector<Bounds> leafBounds_;  ///< of order_
};

}  // namespace korvane
