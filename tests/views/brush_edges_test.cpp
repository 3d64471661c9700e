// Which edges the 2D views draw and pick.
#include <gtest/gtest.h>

#include <set>
#include <utility>

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

TEST(BrushEdges, BoxesAndConesHaveTheirRingsSpheresTwoSidesOfEachTriangle) {
    EXPECT_EQ(EdgesOf(BrushOf(Box, 6)),
              (Edges{{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}}));
    EXPECT_EQ(EdgesOf(BrushOf(Cone, 4)), (Edges{{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}));
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
    // Half of 7 vertices rounds to rings of 4.
    EXPECT_EQ(EdgesOf(BrushOf(Box, 7)),
              (Edges{{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {0, 4}, {1, 5}, {2, 6}}));
}

}  // namespace
}  // namespace korvane
