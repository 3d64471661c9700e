// The tree of boxes: whoever walks it from the root meets every brush once, in boxes that hold it,
// also after brushes have moved.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "views/ui/mPreviewTree.h"

namespace korvane {
namespace {

using Leaf = PreviewTree::Leaf;

BoundingBox Cube(float x, float y, float z) {
    return {{x, y, z}, {x + 1, y + 1, z + 1}};
}

bool Holds(const BoundingBox& outer, const BoundingBox& inner) {
    return outer.min.x <= inner.min.x && outer.min.y <= inner.min.y && outer.min.z <= inner.min.z &&
           outer.max.x >= inner.max.x && outer.max.y >= inner.max.y && outer.max.z >= inner.max.z;
}

/// Walks a tree and gathers what is in it.
struct Walk {
    const PreviewTree& tree;
    std::vector<Leaf> found;
    int loose = 0;    ///< boxes that do not hold what they should
    int deepest = 0;  ///< nodes from the root on

    explicit Walk(const PreviewTree& walked) : tree(walked) {
        for (const auto& root : tree.Root()) Visit(root, 1);
        std::ranges::sort(found, {}, &Leaf::brush);
    }

    void Visit(const PreviewTree::Node& node, int depth) {
        deepest = std::max(deepest, depth);
        for (const auto& child : tree.Children(node)) {
            loose += !Holds(node.bounds, child.bounds);
            Visit(child, depth + 1);
        }
        for (const Leaf& leaf : tree.Leaves(node)) {
            loose += !Holds(node.bounds, leaf.bounds);
            found.push_back(leaf);
        }
    }
};

/// Boxes here and there, or all in one place; only every third brush of the scene is in the tree.
std::vector<Leaf> Scatter(int count, float spread) {
    std::mt19937 random(7);
    const auto number = [&] { return float(random()) / float(std::mt19937::max()) * spread; };
    std::vector<Leaf> leaves;
    for (int i = 0; i < count; ++i) {
        const float x = number(), y = number(), z = number();
        leaves.push_back({Cube(x, y, z), std::uint32_t(i) * 3});
    }
    return leaves;
}

TEST(PreviewTreeTest, EveryBrushIsFoundOnceInBoxesThatHoldIt) {
    for (const int count : {0, 1, 10, 11, 5000}) {
        for (const float spread : {0.0F, 100.0F}) {
            std::vector<Leaf> leaves = Scatter(count, spread);
            PreviewTree tree;
            tree.Build(Scatter(3, 1));  // what was there before is gone
            tree.Build(leaves);
            for (std::uint32_t i = 0; i < leaves.size(); i += 7) {
                const BoundingBox there = Cube(float(i), -900, 5);
                ASSERT_TRUE(tree.Move(leaves[i].brush, there));
                leaves[i].bounds = there;
            }
            const Walk walk(tree);
            EXPECT_EQ(walk.loose, 0) << count << ' ' << spread;
            EXPECT_LE(walk.deepest, 11) << "halved each time, also in one place";
            ASSERT_EQ(walk.found.size(), leaves.size());
            for (std::size_t i = 0; i < leaves.size(); ++i) {
                EXPECT_EQ(walk.found[i].brush, leaves[i].brush);
                EXPECT_EQ(walk.found[i].bounds.min, leaves[i].bounds.min);
            }
        }
    }
}

TEST(PreviewTreeTest, BoxesShrinkAgainAndWearIsTold) {
    PreviewTree tree;
    tree.Build(Scatter(30, 10));
    EXPECT_FALSE(tree.Move(1, Cube(0, 0, 0))) << "between two that are there";
    EXPECT_FALSE(tree.Move(90, Cube(0, 0, 0))) << "after the last";
    const BoundingBox before = tree.Root()[0].bounds;
    const BoundingBox home = Walk(tree).found[4].bounds;
    EXPECT_TRUE(tree.Move(12, Cube(500, 0, 0)));
    EXPECT_EQ(tree.Root()[0].bounds.max.x, 501);
    EXPECT_TRUE(tree.Move(12, home));
    EXPECT_EQ(tree.Root()[0].bounds.max, before.max);
    for (int i = 0; i < 60; ++i) tree.Move(12, home);
    EXPECT_FALSE(tree.IsWorn()) << "it stayed where it was";
    for (int i = 0; i < 30; ++i) tree.Move(12, Cube(float(i), 0, 20));
    EXPECT_TRUE(tree.IsWorn());
}

}  // namespace
}  // namespace korvane
