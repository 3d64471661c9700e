// The bounds of the brushes in a tree, neighbours together, so that a frame can leave out many at
// once: those outside the view, and those behind something that hides them all.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "views/ui/mBoundingBox.h"

namespace korvane {

/// A binary tree of boxes that contain each other.
class PreviewTree {
  public:
    /// A box and what lies in it: two nodes, or a few brushes.
    struct Node {
        BoundingBox bounds;
        std::uint32_t parent = 0;
        std::uint32_t first = 0;  ///< of the two nodes, or of the brushes: a place in Leaves()
        std::uint32_t count = 0;  ///< of the brushes; 0 where there are two nodes
    };
    /// A brush, neighbours in space side by side.
    struct Leaf {
        BoundingBox bounds;
        std::uint32_t brush = 0;  ///< place in the scene
    };

    /// Builds the tree of the leaves, which it puts into another order. Their bounds are finite.
    void Build(std::vector<Leaf> leaves);

    /// Gives a brush other bounds, which are finite; false when the tree does not hold the brush.
    /// The boxes around it follow. A tree of which much has moved stays right but leaves out less,
    /// see IsWorn.
    bool Move(std::uint32_t brush, const BoundingBox& bounds);

    /// Whether the tree holds the brush.
    bool Holds(std::uint32_t brush) const {
        return brush < places_.size() && places_[brush] != kNone;
    }

    /// Whether as many brushes have moved as there are: time to build the tree anew.
    bool IsWorn() const { return moves_ > leaves_.size(); }

    /// The node that holds all, or nothing where there are no brushes.
    std::span<const Node> Root() const { return std::span(nodes_).first(nodes_.empty() ? 0 : 1); }
    /// The nodes in a node, if it holds nodes.
    std::span<const Node> Children(const Node& node) const {
        return node.count == 0 ? std::span(nodes_).subspan(node.first, 2) : std::span<const Node>();
    }
    /// The brushes in a node, if it holds brushes.
    std::span<const Leaf> Leaves(const Node& node) const {
        return node.count == 0 ? std::span<const Leaf>()
                               : std::span(leaves_).subspan(node.first, node.count);
    }

  private:
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    void Split(std::uint32_t node);
    void Fit(Node& node) const;

    std::vector<Node> nodes_;
    std::vector<Leaf> leaves_;
    std::vector<std::uint32_t> places_;  ///< by brush: its place in leaves_, or kNone
    std::vector<std::uint32_t> owners_;  ///< by place in leaves_: its node
    std::size_t moves_ = 0;
};

}  // namespace korvane
