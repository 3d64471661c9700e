// The sampled optimizer: the cases a user knows by eye, and the fast engine beside the plain one.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "optimizer/FastEngine.h"
#include "optimizer/mOptimize.h"
#include "scene/mTransform.h"
#include "support/PlainOptimizer.h"

namespace korvane::test {
namespace {

std::vector<bool> Flags(const Scene& scene) {
    std::vector<bool> flags;
    for (const Brush& brush : scene.brushes) {
        for (const BrushFace& face : brush.faces) flags.push_back(face.invisible);
    }
    return flags;
}

/// Visible polygons of a brush, and how many it has.
std::pair<std::size_t, std::size_t> VisibleOf(const Brush& brush) {
    std::map<std::int32_t, bool> visible;
    for (const BrushFace& face : brush.faces) {
        visible[face.polygonId] = visible[face.polygonId] || !face.invisible;
    }
    std::size_t count = 0;
    for (const auto& [id, seen] : visible) count += seen ? 1 : 0;
    return {count, visible.size()};
}

void RunFast(Scene& scene, const OptimizeOptions& options = {}) {
    EXPECT_TRUE(OptimizeScene(scene, *MakeFastEngine(scene, options)).finished);
}

TEST(SampledOptimizerTest, HidesWhatTheOtherBoxCovers) {
    constexpr Bounds kBeside{{1, 0, 0}, {2, 1, 1}};
    const struct {
        const char* what;
        Bounds other;  // of a box from 0 to 1
        float scale;
        std::size_t visible, otherVisible;
    } cases[] = {
        {"apart", {{3, 0, 0}, {4, 1, 1}}, 1, 6, 6},
        {"touching", kBeside, 1, 5, 5},
        {"beyond the fixed far plane", kBeside, 100, 5, 5},
        {"before the fixed near plane", kBeside, 0.001F, 5, 5},
        {"the camera stands inside the other", {{-20, -20, -20}, {20, 20, 20}}, 1, 0, 6},
        {"the other is huge", {{-9000, -9000, -9000}, {9000, 9000, 9000}}, 0.1F, 0, 6},
        {"the other is small", {{-1, -1, -1}, {9, 9, 9}}, 0.001F, 0, 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        SceneMaker made;
        const auto scaled = [&](const Vec3& p) {
            return Vec3{p.x * c.scale, p.y * c.scale, p.z * c.scale};
        };
        for (const Bounds& box : {Bounds{{0, 0, 0}, {1, 1, 1}}, c.other})
            made.Create(Box, 4, scaled(box.min), scaled(box.max));
        RunFast(made.scene);
        EXPECT_EQ(VisibleOf(made.scene.brushes[0]), std::pair(c.visible, std::size_t{6}));
        EXPECT_EQ(VisibleOf(made.scene.brushes[1]), std::pair(c.otherVisible, std::size_t{6}));
    }
}

TEST(SampledOptimizerTest, HiddenFacesStillCoverAndComeBackOnlyWithTheirPolygon) {
    SceneMaker made;
    made.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    made.Create(Box, 4, {30, 0, 0}, {31, 1, 1});
    std::vector<BrushFace>& faces = made.scene.brushes[0].faces;
    faces[0].invisible = true;                       // one triangle of the top
    faces[2].invisible = faces[3].invisible = true;  // both of the bottom
    const std::uint64_t untouched = made.scene.brushes[1].revision;
    const OptimizeResult result = OptimizeScene(made.scene, *MakeFastEngine(made.scene, {}));
    EXPECT_FALSE(faces[0].invisible);
    EXPECT_TRUE(faces[2].invisible && faces[3].invisible);
    EXPECT_EQ(result.shown, 1);
    EXPECT_EQ(result.hidden, 0);
    EXPECT_EQ(made.scene.brushes[1].revision, untouched);
    for (BrushFace& face : faces) face.invisible = false;
    made.scene.brushes.pop_back();
    for (BrushFace& face : made.Create(Box, 4, {1, 0, 0}, {2, 1, 1}).faces) face.invisible = true;
    RunFast(made.scene);
    EXPECT_EQ(VisibleOf(made.scene.brushes[0]).first, 5U) << "what nobody sees still covers";
}

TEST(SampledOptimizerTest, StopsIncludeBothEndsOfEachOrbit) {
    const struct {
        float step;
        bool z, polar;
        std::size_t stops;
    } rows[] = {{5, true, true, 5 * 73}, {20, false, true, 4 * 19}, {10, true, false, 3 * 37}};
    for (const auto& row : rows) {
        const auto stops = CameraStops({row.step, row.z, row.polar});
        EXPECT_EQ(stops.size(), row.stops);
        EXPECT_EQ(stops.front().yaw, 0);
        EXPECT_EQ(stops[row.stops / (2 + row.z + 2 * row.polar) - 1].yaw, 360);
    }
}

/// Makes a brush no solid, or one with holes or turned inside out, now and then.
void Damage(Brush& brush, Dice& dice) {
    const int kind = dice.Roll(8);
    if (kind == 0) brush.vertices[0].x += dice.Between(-1, 1);
    if (kind == 1) brush.faces.pop_back();
    if (kind == 2) {
        for (BrushFace& face : brush.faces) std::swap(face.a, face.c);
    }
    if (kind == 3) brush.faces[0].invisible = true;
    if (kind == 4) {
        for (BrushFace& face : brush.faces) face.invisible = dice.Roll(2) == 0;
    }
}

/// Scenes of every kind: crowded, damaged, touching, within a room, bursting through one.
SceneMaker MakeScene(Dice& dice, int kind) {
    SceneMaker made;
    const int count = 2 + dice.Roll(9);
    if (kind % 3 == 0) FillGrid(made, count, 1);
    if (kind % 3 != 0) FillRoom(made, dice, count, 1.0F + dice.Between(0, 2));
    if (kind % 4 == 1) made.Create(Box, 4, {-30, -30, -30}, {30, 30, 30});
    if (kind % 4 == 2) {
        const float half = dice.Between(2, 12);
        made.Create(dice.Roll(2) == 0 ? Box : Sphere, 6, {-half, -half, -half}, {half, half, half});
    }
    if (kind % 4 != 3) {
        for (Brush& brush : made.scene.brushes) Damage(brush, dice);
    }
    return made;
}

TEST(SampledOptimizerTest, FastEngineSetsTheFlagsOfThePlainOne) {
    Dice dice(2026);
    int hidden = 0;
    for (int kind = 0; kind < 240; ++kind) {
        SceneMaker made = MakeScene(dice, kind);
        OptimizeOptions options;
        options.angleStep = kDetailSteps[static_cast<std::size_t>(kind) % kDetailSteps.size()];
        if (kind % 8 != 0) options.angleStep = std::max(options.angleStep, 20.0F);
        options.zAxisPass = dice.Roll(3) > 0;
        options.polarPasses = dice.Roll(3) > 0;
        options.viewportHeight = 1 + dice.Roll(1000);
        Scene plain = made.scene;
        PlainEngine engine(plain, options);
        hidden += OptimizeScene(plain, engine).hidden;
        RunFast(made.scene, options);
        ASSERT_EQ(Flags(made.scene), Flags(plain)) << "scene " << kind;
    }
    EXPECT_GT(hidden, 1000) << "the scenes are too easy";
}

/// The fast engine, looked at after each brush whatever the time.
class WatchedEngine final : public OptimizeEngine {
  public:
    explicit WatchedEngine(const Scene& scene) : engine_(MakeFastEngine(scene, {})) {}

    bool OptimizeBrush(std::int32_t brush, std::vector<bool>& invisible,
                       OptimizeWatch& watch) override {
        return engine_->OptimizeBrush(brush, invisible, watch) && watch.Report();
    }

  private:
    std::unique_ptr<OptimizeEngine> engine_;
};

TEST(SampledOptimizerTest, AnEndedRunLeavesFinishedBrushesAndNothingElse) {
    constexpr std::int32_t kEnd = 13;  // the brush in the middle, all of which is hidden
    SceneMaker made;
    FillGrid(made, 27, 1);
    Scene whole = made.scene;
    RunFast(whole);
    WatchedEngine engine(made.scene);
    const OptimizeResult result = OptimizeScene(
        made.scene, engine, [](const OptimizeProgress& progress) { return progress.brush < kEnd; });
    EXPECT_FALSE(result.finished);
    int hidden = 0;
    for (std::size_t i = 0; i < made.scene.brushes.size(); ++i) {
        const std::size_t all = 6;
        const std::size_t visible = i < kEnd ? VisibleOf(whole.brushes[i]).first : all;
        EXPECT_EQ(VisibleOf(made.scene.brushes[i]).first, visible) << i;
        hidden += static_cast<int>(all - visible);
    }
    EXPECT_EQ(result.hidden, hidden);
    EXPECT_LT(VisibleOf(whole.brushes[kEnd]).first, 6U) << "the brush that was broken off";
    RunFast(made.scene);
    EXPECT_EQ(Flags(made.scene), Flags(whole)) << "carried on";
}

}  // namespace
}  // namespace korvane::test
