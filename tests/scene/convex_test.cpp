// Which brushes may hide what lies behind them.
#include <gtest/gtest.h>

#include <cmath>

#include "scene/mConvex.h"
#include "scene/mTransform.h"
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

TEST(ConvexTest, OnlyClosedConvexBodiesThatLookOutwardsAreSolid) {
    SceneMaker maker;
    const auto box = [&]() -> Brush& { return maker.Create(Box, 4, {0, 0, 0}, {1, 2, 3}); };
    EXPECT_TRUE(IsConvexSolid(box()));
    EXPECT_TRUE(IsConvexSolid(maker.Create(Cone, 7, {0, 0, 0}, {1, 2, 3})));
    EXPECT_TRUE(IsConvexSolid(maker.Create(Sphere, 8, {0, 0, 0}, {2, 2, 2})));
    Brush& turned = maker.SelectedBox({100, -300, 0}, {101, -298, 3});
    RotateSelection(maker.scene, 12, 40, 7, maker.Space());
    EXPECT_TRUE(IsConvexSolid(turned)) << "turned and far away";
    for (const float height : {1.0F, 0.0F}) EXPECT_FALSE(IsConvexSolid(Dart(maker, height)));
    const std::pair<const char*, void (*)(Brush&)> spoilt[] = {
        {"inside out",
         [](Brush& b) {
             for (BrushFace& f : b.faces) std::swap(f.b, f.c);
         }},
        {"a face is missing", [](Brush& b) { b.faces.pop_back(); }},
        {"no face", [](Brush& b) { b.faces.clear(); }},
        {"no number", [](Brush& b) { b.vertices[2].x = std::nanf(""); }},
        {"a face names no vertex", [](Brush& b) { b.faces[3].b = 8; }},
    };
    for (const auto& [what, spoil] : spoilt) {
        Brush& brush = box();
        spoil(brush);
        EXPECT_FALSE(IsConvexSolid(brush)) << what;
    }
}

}  // namespace
}  // namespace korvane
