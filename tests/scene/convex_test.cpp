// Which brushes may hide what lies behind them.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "scene/mConvex.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

/// A prism over a dart, a four-sided outline with a notch; `height` 0 makes it flat.
Brush& Dart(SceneMaker& maker, float height) {
    constexpr float kOutline[][2] = {{-1.2F, -1.2F}, {2, -2}, {-2, -2}, {-2, 2}};
    Brush& brush = maker.Create(Box, 4, {-2, 0, -2}, {2, 1, 2});
    for (std::size_t i = 0; i < brush.vertices.size(); ++i) {
        const auto& corner = kOutline[i % 4];
        brush.vertices[i].MoveTo({corner[0], i < 4 ? 0 : height, corner[1]});
    }
    return brush;
}

void Turn(Brush& brush, float angle) {
    for (Vertex& v : brush.vertices) {
        const float c = std::cos(angle);
        const float s = std::sin(angle);
        v.MoveTo({c * v.x - s * v.y + 100, s * v.x + c * v.y - 300, v.z});
    }
}

struct Case {
    const char* name;
    std::function<void(SceneMaker&)> make;  ///< builds one brush, the last of the scene
    bool solid;
};

const Case kCases[] = {
    {"box",
     [](SceneMaker& m) {
         m.Create(Box, 4, {0, 0, 0}, {1, 2, 3});
     },
     true},
    {"box of 12 sides",
     [](SceneMaker& m) {
         m.Create(Box, 12, {0, 0, 0}, {1, 2, 3});
     },
     true},
    {"cone",
     [](SceneMaker& m) {
         m.Create(Cone, 7, {0, 0, 0}, {1, 2, 3});
     },
     true},
    {"sphere",
     [](SceneMaker& m) {
         m.Create(Sphere, 8, {0, 0, 0}, {2, 2, 2});
     },
     true},
    {"turned and far away",
     [](SceneMaker& m) {
         Turn(m.Create(Box, 5, {0, 0, 0}, {1, 2, 3}), 0.7F);
     },
     true},
    {"inside out",
     [](SceneMaker& m) {
         for (BrushFace& f : m.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).faces) std::swap(f.b, f.c);
     },
     false},
    {"a face is missing",
     [](SceneMaker& m) {
         m.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).faces.pop_back();
     },
     false},
    {"no face",
     [](SceneMaker& m) {
         m.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).faces.clear();
     },
     false},
    {"with a notch", [](SceneMaker& m) { Dart(m, 1); }, false},
    {"flat with a notch", [](SceneMaker& m) { Dart(m, 0); }, false},
    {"a vertex is not a number",
     [](SceneMaker& m) {
         m.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).vertices[2].x =
             std::numeric_limits<float>::quiet_NaN();
     },
     false},
    {"a face names no vertex",
     [](SceneMaker& m) {
         m.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).faces[3].b = 8;
     },
     false},
};

TEST(ConvexTest, OnlyClosedConvexBodiesThatLookOutwardsAreSolid) {
    for (const Case& c : kCases) {
        SceneMaker maker;
        c.make(maker);
        EXPECT_EQ(IsConvexSolid(maker.scene.brushes.back()), c.solid) << c.name;
    }
}

}  // namespace
}  // namespace korvane
