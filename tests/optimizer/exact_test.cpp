// The exact mode: what is covered is hidden, and nothing that can be seen from outside.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include "optimizer/ExactEngine.h"
#include "optimizer/mOptimize.h"
#include "optimizer/mPick.h"
#include "support/PlainOptimizer.h"

namespace korvane::test {
namespace {

void RunExact(Scene& scene) {
    ASSERT_TRUE(OptimizeScene(scene, *MakeExactEngine(scene)).finished);
}

/// Visible triangles of each brush.
std::vector<std::ptrdiff_t> Visible(const Scene& scene) {
    std::vector<std::ptrdiff_t> counts;
    for (const Brush& brush : scene.brushes) {
        counts.push_back(
            std::ranges::count_if(brush.faces, [](const BrushFace& f) { return !f.invisible; }));
    }
    return counts;
}

TEST(ExactOptimizerTest, HidesExactlyWhatIsCovered) {
    constexpr Bounds kOne{{0, 0, 0}, {1, 1, 1}}, kRoom{{-1, -1, -1}, {2, 2, 2}};
    constexpr Bounds kFirstPart{{1, 0, 0}, {2, 1, 0.4F}};
    const struct {
        const char* what;
        std::vector<Bounds> boxes;
        std::vector<std::ptrdiff_t> visible;
    } cases[] = {
        {"alone", {kOne}, {12}},
        {"touching", {kOne, {{1, 0, 0}, {2, 1, 1}}}, {10, 10}},
        {"a hair's breadth apart", {kOne, {{1.00005F, 0, 0}, {2, 1, 1}}}, {10, 10}},
        {"a visible gap", {kOne, {{1.001F, 0, 0}, {2, 1, 1}}}, {12, 12}},
        {"inside", {kOne, kRoom}, {0, 12}},
        {"inside, level with the top", {{{0, 0, 0}, {1, 2, 1}}, kRoom}, {2, 12}},
        {"in the same place", {kOne, kOne}, {12, 12}},
        {"partly covered", {kOne, {{1, 0, 0}, {2, 1, 0.9F}}}, {12, 10}},
        {"by two together", {kOne, kFirstPart, {{1, 0, 0.4F}, {2, 1, 1}}}, {10, 8, 8}},
        {"two with a slit", {kOne, kFirstPart, {{1, 0, 0.41F}, {2, 1, 1}}}, {12, 10, 10}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        SceneMaker made;
        for (const Bounds& box : test.boxes) made.Create(Box, 4, box.min, box.max);
        for (Brush& brush : made.scene.brushes) brush.faces[5].invisible = true;
        RunExact(made.scene);
        EXPECT_EQ(Visible(made.scene), test.visible);
    }
}

TEST(ExactOptimizerTest, OnlyConvexClosedOutwardBrushesCover) {
    const std::pair<const char*, void (*)(Brush&)> changes[] = {
        {"a dent", [](Brush& b) { b.vertices[0].x = b.vertices[0].z = 1.5F; }},
        {"a hole", [](Brush& b) { b.faces.pop_back(); }},
        {"inside out",
         [](Brush& b) {
             for (BrushFace& f : b.faces) std::swap(f.a, f.c);
         }},
        {"a vertex that is missing", [](Brush& b) { b.faces[3].b = 99; }},
    };
    for (const auto& [what, change] : changes) {
        SceneMaker made;
        made.Create(Box, 4, {-1, -1, -1}, {1, 1, 1});
        change(made.Create(Box, 4, {-2, -2, -2}, {2, 2, 2}));
        RunExact(made.scene);
        EXPECT_EQ(Visible(made.scene)[0], 12) << what;
    }
    SceneMaker made;
    made.Create(Box, 4, {-1, -1, -1}, {1, 1, 1});
    made.Create(Sphere, 64, {-2, -2, -2}, {2, 2, 2});
    made.Create(Cone, 64, {-9, -3, -9}, {9, 30, 9});
    RunExact(made.scene);
    EXPECT_EQ(Visible(made.scene)[0], 0) << "many-sided brushes are solids too";
    EXPECT_EQ(Visible(made.scene)[1], 0);
}

/// Brushes on a grid, so that much is level or touches, some turned, most in each other's way.
SceneMaker MakeScene(Dice& dice) {
    SceneMaker made;
    const int count = 3 + dice.Roll(12);
    for (int i = 0; i < count; ++i) {
        const auto whole = [&dice](int low, int range) {
            return static_cast<float>(low + dice.Roll(range));
        };
        const Vec3 at{whole(-3, 5), whole(-3, 5), whole(-3, 5)};
        if (dice.Roll(4) == 0) {
            AddRandomBrush(made, dice, at, 4);
        } else {
            made.Create(Box, 4, at, {at.x + whole(1, 4), at.y + whole(1, 4), at.z + whole(1, 4)});
        }
    }
    return made;
}

/// How far along a ray a triangle that is turned to it is met; negative: it is not.
double Meeting(const Point3& start, const Point3& direction, const PickBrush& brush,
               const PickTriangle& triangle) {
    const double slope = Dot(triangle.normal, direction);
    if (slope >= 0) return -1;
    const double t = (triangle.offset - Dot(triangle.normal, start)) / slope;
    const Point3 p = Along(start, direction, t);
    for (std::size_t i = 0; i < 3; ++i) {
        const Point3 a = ToPoint3(brush.points[triangle.corners[i]]);
        const Point3 b = ToPoint3(brush.points[triangle.corners[(i + 1) % 3]]);
        if (Dot(triangle.normal, Cross(Along(b, a, -1), Along(p, a, -1))) < 0) return -1;
    }
    return t;
}

/// Whether the first thing that a ray meets is a hidden face: one with no visible face at the same
/// distance, give or take what counts as touching at the angle of the ray.
bool MeetsHiddenFirst(const Scene& scene, const std::vector<PickBrush>& brushes,
                      const Point3& start, const Point3& direction) {
    double hidden = 1e9;
    double visible = 1e9;
    for (std::size_t b = 0; b < brushes.size(); ++b) {
        for (const PickTriangle& triangle : brushes[b].triangles) {
            const double t = Meeting(start, direction, brushes[b], triangle);
            if (t < 0) continue;
            const bool isHidden =
                scene.brushes[b].faces[static_cast<std::size_t>(triangle.face)].invisible;
            double& nearest = isHidden ? hidden : visible;
            nearest = std::min(nearest, t);
        }
    }
    return hidden < visible - 100 * kTouching;
}

TEST(ExactOptimizerTest, NoRayFromOutsideMeetsAHiddenFaceFirst) {
    Dice dice(77);
    std::ptrdiff_t hidden = 0;
    for (int i = 0; i < 400; ++i) {
        SceneMaker made = MakeScene(dice);
        RunExact(made.scene);
        std::vector<PickBrush> brushes;
        for (const Brush& brush : made.scene.brushes) {
            brushes.push_back(MakePickBrush(brush));
            hidden += std::ranges::count_if(brush.faces, &BrushFace::invisible);
        }
        for (int ray = 0; ray < 300; ++ray) {
            const Point3 aim = ToPoint3(dice.Point(4));
            const Point3 side = ToPoint3(dice.Point(1));
            const double length = std::sqrt(Dot(side, side));
            if (length < 0.01) continue;
            const Point3 direction = Along({}, side, -1 / length);
            ASSERT_FALSE(
                MeetsHiddenFirst(made.scene, brushes, Along(aim, direction, -40), direction))
                << "scene " << i << " ray " << ray;
        }
    }
    EXPECT_GT(hidden, 5000) << "the scenes are too easy";
}

TEST(ExactOptimizerTest, StopsAtOnceAmongManySolidsToLookInto) {
    SceneMaker made;
    made.Create(Box, 4, {-1, -1, -1}, {1, 1, 1});
    made.scene.brushes.resize(600, made.Create(Sphere, 64, {-2, -2, -2}, {2, 2, 2}));
    const auto engine = MakeExactEngine(made.scene);
    using Clock = std::chrono::steady_clock;
    Clock::time_point stopped;
    int polls = 0;
    const auto stop = [&](const OptimizeProgress&) {
        stopped = Clock::now();
        return ++polls < 3;
    };
    EXPECT_FALSE(OptimizeScene(made.scene, *engine, stop).finished);
    EXPECT_LT(Clock::now() - stopped, std::chrono::milliseconds(500)) << "generous: may be busy";
}

}  // namespace
}  // namespace korvane::test
