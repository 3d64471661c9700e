// Picking and moving in the 2D views.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "scene/mNormals.h"
#include "support/SceneMaker.h"
#include "views/core/ViewState.h"
#include "views/core/mBrushEdges.h"
#include "views/core/mViewEdit.h"

namespace korvane {
namespace {

class ViewEditTest : public testing::Test, protected SceneMaker {
  protected:
    std::string Flags(std::size_t brush) const {
        return SelectedFlags(scene.brushes.at(brush).vertices);
    }

    std::vector<Vec3> Points(std::size_t brush) const {
        std::vector<Vec3> points;
        for (const Vertex& v : scene.brushes.at(brush).vertices) points.push_back(v.Position());
        return points;
    }

    static bool SameBits(const std::vector<Vec3>& a, const std::vector<Vec3>& b) {
        return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
    }
};

TEST_F(ViewEditTest, ABrushIsPickedStrictlyInsideItsBoundsInTheViewsAxes) {
    Create(Box, 4, {0, 0, 0}, {2, 3, 4});
    const struct {
        int view;
        Vec3 point;
        bool hit;
    } cases[] = {
        {TopView, {1, 50, 2}, true},      {TopView, {1, 1, 4}, false},
        {TopView, {0, 1, 2}, false},      {TopView, {2, 1, 2}, false},
        {TopView, {1, 1, 0}, false},      {TopView, {1, 1, 3.99F}, true},
        {LeftView, {-50, 1, 3.5F}, true}, {LeftView, {1, 3, 1}, false},
        {LeftView, {1, 0, 1}, false},     {FrontView, {1, 2.5F, 99}, true},
        {FrontView, {2.5F, 1, 1}, false},
    };
    for (const auto& c : cases) {
        scene.brushes[0].selected = false;
        PickBrushAt(scene, c.view, c.point);
        EXPECT_EQ(bool{scene.brushes[0].selected}, c.hit) << c.view << " " << c.point.x;
    }
}

TEST_F(ViewEditTest, PickingTogglesAllBrushesAndClearsWhatBecomesSelected) {
    SelectedBox({0, 0, 0}, {2, 2, 2});
    Create(Box, 4, {1, 5, 1}, {3, 6, 3});
    for (Brush& brush : scene.brushes) {
        brush.faces[0].selected = true;
        brush.vertices[0].selected = true;
    }
    PickBrushAt(scene, TopView, {1.5F, 0, 1.5F});
    EXPECT_FALSE(scene.brushes[0].selected);
    EXPECT_TRUE(scene.brushes[0].faces[0].selected) << "kept for when it is selected no more";
    EXPECT_TRUE(scene.brushes[1].selected);
    EXPECT_FALSE(scene.brushes[1].faces[0].selected);
    EXPECT_FALSE(scene.brushes[1].vertices[0].selected);
}

TEST_F(ViewEditTest, VerticesArePickedThroughTheDepthOfSelectedBrushesOnly) {
    SelectedBox({0, 0, 0}, {1, 1, 1});
    SelectedBox({1, 5, 0}, {2, 6, 1});
    Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    // Ring order of a box: (0, 0), (0, 1), (1, 1), (1, 0).
    PickVerticesAt(scene, TopView, {1.05F, 9, -0.05F}, 0.05F, true);
    EXPECT_EQ(Flags(0), "00010001") << "the edge of the picker counts";
    EXPECT_EQ(Flags(1), "10001000");
    EXPECT_EQ(Flags(2), "00000000");
    PickVerticesAt(scene, FrontView, {0, 1, 0}, 0.05F, true);
    EXPECT_EQ(Flags(0), "11010001") << "added";
    PickVerticesAt(scene, TopView, {1, 0, 0}, 0.05F, false);
    EXPECT_EQ(Flags(0), "11000000") << "the others stay";
    EXPECT_EQ(Flags(1), "00000000");
    PickVerticesAt(scene, LeftView, {0, 0, 0.06F}, 0.05F, true);
    EXPECT_EQ(Flags(0), "11000000") << "too far";
}

/// The plain definition: every vertex near one of the ends of every edge near the point.
void PlainPickEdges(Scene& scene, int view, const Vec3& point, float picker, bool select) {
    const auto near = [&](const Vec3& a, const Vec3& b) {
        const ViewAxes& axes = AxesOf(view);
        const Vec3 d = Absolute(Difference(a, b));
        return d.*axes.horizontal <= picker && d.*axes.vertical <= picker;
    };
    std::vector<Vec3> ends;
    for (const Brush& brush : scene.brushes) {
        ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) {
            const bool picked = near(Midpoint(At(brush, a), At(brush, b)), point);
            if (brush.selected && picked) ends.insert(ends.end(), {At(brush, a), At(brush, b)});
        });
    }
    for (Brush& brush : scene.brushes) {
        for (Vertex& v : brush.vertices) {
            const auto meets = [&](const Vec3& end) { return near(v.Position(), end); };
            if (brush.selected && std::ranges::any_of(ends, meets)) v.selected = select;
        }
    }
}

TEST_F(ViewEditTest, EdgePicksEqualTheirPlainDefinition) {
    SelectedBox({-1, 0, -1}, {1, 2, 1});
    SelectedBox({-0.97F, 0.02F, -1.02F}, {1.03F, 1.98F, 1.04F});  // on every side of those ends
    Create(Sphere, 16, {-1, 0, -1}, {1, 2, 1}).selected = true;
    Create(Cone, 9, {-1, 0, 0}, {1, 2, 1}).selected = true;
    Create(Box, 4, {-1, 0, -1}, {1, 2, 1});
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-1.2F, 1.2F);
    std::ptrdiff_t picked = 0;
    for (int i = 0; i < 400; ++i) {
        const Vec3 point{place(random), place(random), place(random)};
        const float picker = i % 2 == 0 ? 0.3F : 0.05F;
        const bool select = i % 5 != 0;
        for (Brush& brush : scene.brushes) {
            for (Vertex& v : brush.vertices) v.selected = !select;
        }
        Scene plain = scene;
        PickEdgesAt(scene, i % 3, point, picker, select);
        PlainPickEdges(plain, i % 3, point, picker, select);
        for (std::size_t b = 0; b < 5; ++b) {
            ASSERT_EQ(Flags(b), SelectedFlags(plain.brushes[b].vertices)) << "pick " << i;
            picked += std::ranges::count(Flags(b), select ? '1' : '0');
        }
    }
    EXPECT_GT(picked, 1000) << "the picks met something";
}

TEST_F(ViewEditTest, MovesTakeTheDeltaOffAndSnap) {
    SelectedBox({0, 0, 0}, {1, 1, 1});
    Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    const std::vector<Vec3> still = Points(1);
    MoveSelectedBrushes(scene, {-2, 0.34F, 0}, 0, Space());
    EXPECT_EQ(BrushBounds(scene.brushes[0]).min, (Vec3{2, -0.34F, 0}));
    MoveSelectedBrushes(scene, {0, 0, 0}, 0.25F, Space());
    EXPECT_EQ(BrushBounds(scene.brushes[0]), (Bounds{{2, -0.25F, 0}, {3, 0.75F, 1}}));
    EXPECT_EQ(Points(1), still);
    scene.brushes[0].vertices[2].selected = true;
    const std::vector<Vec3> before = Points(0);
    MoveSelectedVertices(scene, {-0.6F, 0, 0}, 0.2F, Space());
    const std::vector<Vec3> after = Points(0);
    for (std::size_t v = 0; v < 8; ++v) {
        EXPECT_EQ(after[v].x, v == 2 ? 3.6F : before[v].x);
        EXPECT_EQ(after[v].y, v == 2 ? 0.8F : before[v].y) << "only what moves is snapped";
    }
}

TEST_F(ViewEditTest, AnOriginEndsWithWhatItRemembers) {
    SelectedBox({0, 0, 0}, {1, 1, 1});
    SelectedBox({2, 0, 0}, {3, 1, 1});
    const MoveOrigin origin = OriginOfBrushes(scene);
    const auto broken = [&](auto change) {
        Scene changed = scene;
        change(changed);
        return !IsCurrent(changed, origin);
    };
    EXPECT_FALSE(broken([](Scene&) {}));
    EXPECT_FALSE(broken([](Scene& s) { AddBrush(s, "", ""); }));
    EXPECT_TRUE(broken([](Scene& s) { s.brushes[1].selected = false; }));
    EXPECT_TRUE(broken([](Scene& s) { UpdateBrushNormals(s.brushes[0]); }));
    EXPECT_TRUE(broken([](Scene& s) { DeleteBrush(s, 0); }));
    EXPECT_TRUE(broken([](Scene& s) { ClearScene(s); }));
}

/// Whole steps of the grid, out and back along a random path, beside one step after the other as
/// the plain definition takes them.
TEST_F(ViewEditTest, WhatComesBackLiesWhereItWasToTheBit) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> cell(-400, 400);
    for (const float snap : {0.1F, 0.25F, 0.01F, 0.3F, 1.0F, 0.125F, 0.07F, 0.0F}) {
        const bool wholeHundredths = snap >= 0.01F && snap != 0.125F;
        const float unit = snap > 0 ? snap : 0.0371F;
        const auto point = [&] {
            const Vec3 p{cell(random) * unit, cell(random) * unit, cell(random) * unit};
            return SnapToGrid(p, snap);
        };
        scene.brushes.clear();
        Brush& brush = SelectedBox({0, 0, 0}, {1, 1, 1});
        for (Vertex& v : brush.vertices) v.MoveTo(point());
        const std::vector<Vec3> start = Points(0);
        std::vector<Vec3> plain = start;
        MoveOrigin origin = OriginOfBrushes(scene);
        const Vec3 first = point();
        Vec3 last = first;
        for (int step = 1; step <= 500; ++step) {
            const Vec3 cursor = step % 40 == 0 ? first : point();
            MoveFromOrigin(scene, origin, Difference(cursor, first), snap, Space());
            for (Vec3& p : plain) p = MovedPoint(p, Difference(cursor, last), snap);
            last = cursor;
            ASSERT_TRUE(!wholeHundredths || SameBits(Points(0), plain)) << snap;
            ASSERT_TRUE(step % 40 != 0 || SameBits(Points(0), start)) << snap << " step " << step;
        }
    }
}

}  // namespace
}  // namespace korvane
