#include "views/ui/mPreviewTree.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

/// Brushes that are looked at one by one: fewer make more nodes than they save tests.
constexpr std::uint32_t kMostLeaves = 10;

float Vec3::*WidestAxis(const BoundingBox& bounds) {
    const Vec3 size = Difference(bounds.min, bounds.max);
    if (size.x >= size.y && size.x >= size.z) return &Vec3::x;
    return size.y >= size.z ? &Vec3::y : &Vec3::z;
}

}  // namespace

void PreviewTree::Build(std::vector<Leaf> leaves) {
    leaves_ = std::move(leaves);
    nodes_.clear();
    moves_ = 0;
    owners_.assign(leaves_.size(), 0);
    std::uint32_t brushes = 0;
    for (const Leaf& leaf : leaves_) brushes = std::max(brushes, leaf.brush + 1);
    places_.assign(brushes, kNone);
    if (leaves_.empty()) return;
    nodes_.push_back({{}, kNone, 0, static_cast<std::uint32_t>(leaves_.size())});
    // A node's children come after it, so the end of the list is reached when all are split.
    for (std::uint32_t node = 0; node < nodes_.size(); ++node) Split(node);
    for (std::uint32_t place = 0; place < leaves_.size(); ++place) {
        places_[leaves_[place].brush] = place;
    }
}

/// Fits the node, which holds brushes, and divides them among two nodes if they are many.
void PreviewTree::Split(std::uint32_t index) {
    Fit(nodes_[index]);
    const Node node = nodes_[index];
    const auto begin = leaves_.begin() + node.first;
    if (node.count <= kMostLeaves) {
        std::fill_n(owners_.begin() + node.first, node.count, index);
        return;
    }
    const std::uint32_t half = node.count / 2;
    std::ranges::nth_element(begin, begin + half, begin + node.count, {},
                             [axis = WidestAxis(node.bounds)](const Leaf& leaf) {
                                 return leaf.bounds.min.*axis + leaf.bounds.max.*axis;
                             });
    nodes_[index].first = static_cast<std::uint32_t>(nodes_.size());
    nodes_[index].count = 0;
    nodes_.push_back({{}, index, node.first, half});
    nodes_.push_back({{}, index, node.first + half, node.count - half});
}

/// Makes the box as small as what lies in it allows.
void PreviewTree::Fit(Node& node) const {
    if (node.count == 0) {
        node.bounds = nodes_[node.first].bounds;
        Include(node.bounds, nodes_[node.first + 1].bounds);
        return;
    }
    node.bounds = leaves_[node.first].bounds;
    for (const Leaf& leaf : Leaves(node)) Include(node.bounds, leaf.bounds);
}

bool PreviewTree::Move(std::uint32_t brush, const BoundingBox& bounds) {
    if (!Holds(brush)) return false;
    BoundingBox& own = leaves_[places_[brush]].bounds;
    if (own == bounds) return true;
    own = bounds;
    for (auto node = owners_[places_[brush]]; node != kNone; node = nodes_[node].parent) {
        Fit(nodes_[node]);
    }
    ++moves_;
    return true;
}

}  // namespace korvane
