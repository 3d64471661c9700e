#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "views/core/DepthRange.h"
#include "views/core/mBrushEdges.h"

namespace korvane {
namespace {

using Edges = std::multiset<std::pair<int, int>>;

Edges EdgesOf(const Brush& brush) {
    Edges edges;
    ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) { edges.emplace(a, b); });
    return edges;
}

Brush BrushOf(std::int16_t shape, int vertices) {
    Brush brush;
    brush.shape = shape;
    brush.vertices.resize(static_cast<std::size_t>(vertices));
    return brush;
}

TEST(BrushEdges, ABoxHasTwoRingsAndTheEdgesBetween) {
    EXPECT_EQ(EdgesOf(BrushOf(Box, 6)),
              (Edges{{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}}));
}

TEST(BrushEdges, AConeHasItsBaseAndTheEdgesToTheApex) {
    EXPECT_EQ(EdgesOf(BrushOf(Cone, 4)), (Edges{{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}));
}

TEST(BrushEdges, ASphereHasTwoSidesOfEachTriangle) {
    Brush sphere = BrushOf(Sphere, 4);
    AddFace(sphere, 0, 1, 2, 1);
    AddFace(sphere, 3, 2, 1, 2);
    EXPECT_EQ(EdgesOf(sphere), (Edges{{0, 1}, {0, 2}, {3, 2}, {3, 1}}));
}

TEST(BrushEdges, EdgesToVerticesThatDoNotExistAreLeftOut) {
    for (int count = 0; count <= 9; ++count)
        for (const std::int16_t shape : {Box, Cone, Sphere}) {
            Brush brush = BrushOf(shape, count);
            AddFace(brush, 0, 1, 99, 1);
            AddFace(brush, -1, 1, 2, 1);
            for (const auto& [a, b] : EdgesOf(brush)) {
                EXPECT_TRUE(a >= 0 && a < count && b >= 0 && b < count)
                    << shape << ' ' << count << ": " << a << ' ' << b;
            }
        }
    // Half of 7 vertices rounds to rings of 4, of 5 to rings of 2.
    EXPECT_EQ(EdgesOf(BrushOf(Box, 7)),
              (Edges{{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {0, 4}, {1, 5}, {2, 6}}));
    EXPECT_EQ(EdgesOf(BrushOf(Box, 5)), (Edges{{0, 1}, {1, 0}, {2, 3}, {3, 2}, {0, 2}, {1, 3}}));
}

TEST(DepthRange, FollowsTheSelectionsHeight) {
    Scene scene;
    const auto brush = static_cast<std::size_t>(AddBrush(scene, "", ""));
    AddVertex(scene.brushes[brush], {5, -1, 7}, false);
    AddVertex(scene.brushes[brush], {6, 3, 8}, false);
    DepthRange range{2, 0};
    EXPECT_FALSE(DepthRangeFromSelection(scene, range));
    EXPECT_EQ(range.HI, 2);
    EXPECT_EQ(range.LO, 0);
    scene.brushes[brush].selected = true;
    EXPECT_TRUE(DepthRangeFromSelection(scene, range));
    EXPECT_EQ(range.HI, 3);
    EXPECT_EQ(range.LO, -1);
}

}  // namespace
}  // namespace korvane
