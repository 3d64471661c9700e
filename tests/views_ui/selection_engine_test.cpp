// The optimizer's reference in selection mode: what the driver says lies under the pixel, stop by
// stop, beside the plain pick.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>

#include "optimizer/mOptimize.h"
#include "support/PlainOptimizer.h"
#include "support/PreviewStage.h"
#include "views/ui/mSelectionEngine.h"

namespace korvane::test {
namespace {

/// Two brushes as they come: apart, touching, cutting or holding one another.
SceneMaker MakePair(Dice& dice) {
    SceneMaker made;
    switch (dice.Roll(4)) {
        case 0:
            made.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
            made.Create(Box, 4, {1, 0, 0}, {2, 1, dice.Between(0.5F, 1.5F)});
            break;
        case 1:
            AddRandomBrush(made, dice, {-0.5F, -0.5F, -0.5F}, 1);
            made.Create(Box, 4, {-3, -3, -3}, {3, 3, 3});
            break;
        default:
            AddRandomBrush(made, dice, dice.Point(1), 2);
            AddRandomBrush(made, dice, dice.Point(2), 3);
    }
    return made;
}

/// The two brushes, prepared for both ways.
struct PreparedPair {
    explicit PreparedPair(const Scene& scene)
        : target(scene.brushes.at(0)),
          other(scene.brushes.at(1)),
          pickTarget(MakePickBrush(target)),
          pickOther(MakePickBrush(other)),
          orbit(OrbitOf(target)),
          invisible(target.faces.size()) {}

    std::int32_t PolygonOf(std::int32_t face) const {
        return face < 0 ? -1 : target.faces.at(static_cast<std::size_t>(face)).polygonId;
    }

    const Brush& target;
    const Brush& other;
    PickBrush pickTarget, pickOther;
    OrbitTarget orbit;
    std::vector<bool> invisible;
};

/// Whether the depths of what two picks found are equal but for the rounding of single precision,
/// which is the only thing that the two ways may differ in.
bool IsTie(const StopView& view, const PreparedPair& pair, std::int32_t face1, std::int32_t face2) {
    constexpr PickDepth kSteps = 4 * 256;  // of single precision near 1, in 2^32nds
    const auto depthOf = [&](std::int32_t face) {
        PickDepth nearest = kMissed;
        const bool ofTarget = face >= 0;
        const PickBrush& brush = ofTarget ? pair.pickTarget : pair.pickOther;
        for (const PickTriangle& triangle : brush.triangles) {
            if (ofTarget && triangle.face != face) continue;
            nearest = std::min(nearest, HitTriangle(view, brush, triangle).depth);
        }
        return nearest;
    };
    return std::abs(depthOf(face1) - depthOf(face2)) <= kSteps;
}

class SelectionEngineTest : public testing::Test {
  protected:
    PreviewStage stage{800, 600};
};

TEST_F(SelectionEngineTest, DriverFindsThePolygonOfThePlainPick) {
    Dice dice(11);
    int stops = 0;
    int hits = 0;
    int differ = 0;
    for (int i = 0; i < 2000; ++i) {
        const SceneMaker made = MakePair(dice);
        const PreparedPair pair(made.scene);
        OptimizeOptions options;
        options.angleStep = kDetailSteps.at(static_cast<std::size_t>(i) % kDetailSteps.size());
        const StopCamera camera(options);
        const std::vector<CameraStop> all = CameraStops(options);
        for (int k = 0; k < 10; ++k) {
            const CameraStop& stop = all[static_cast<std::size_t>(dice.Roll(int(all.size())))];
            const StopView view = ViewBeside(camera, stop, pair.orbit, pair.pickOther);
            const std::int32_t driver =
                SelectAtStop(stop, view, {pair.target, pair.invisible, pair.other});
            const std::int32_t plain =
                PickAtStop(view, pair.pickTarget, pair.invisible, pair.pickOther);
            ++stops;
            hits += driver >= 0;
            if (pair.PolygonOf(driver) == pair.PolygonOf(plain)) continue;
            ++differ;
            EXPECT_TRUE(IsTie(view, pair, driver, plain))
                << "pair " << i << ", faces " << driver << " and " << plain;
        }
    }
    EXPECT_EQ(stops, 20000);
    EXPECT_GT(hits, stops / 2);
    EXPECT_LE(differ, stops / 2000) << "99.95 % have to agree";
}

TEST_F(SelectionEngineTest, PicksLeaveNoMemoryBehind) {
    Dice dice(13);
    const SceneMaker made = MakePair(dice);
    const PreparedPair pair(made.scene);
    const CameraStop stop = CameraStops({}).front();
    const StopView view = StopCamera({}).ViewAt(stop, pair.orbit);
    const auto inUseAfter = [&](int picks) {
        for (int i = 0; i < picks; ++i) {
            SelectAtStop(stop, view, {pair.target, pair.invisible, pair.other});
        }
        const struct mallinfo2 heap = mallinfo2();
        return static_cast<std::ptrdiff_t>(heap.uordblks + heap.hblkhd);
    };
    const std::ptrdiff_t before = inUseAfter(100);
    EXPECT_LT(inUseAfter(5000) - before, 100'000) << "bytes";
}

TEST_F(SelectionEngineTest, LeavesTheContextAsThePreviewNeedsIt) {
    stage.Add({-1, -1, -1}, {1, 1, 1}, 1);
    stage.Add({2, -1, -1}, {3, 1, 1}, 2);
    stage.LookFrom(0, 0, 6);
    const QImage before = stage.Render().copy();
    Scene& scene = stage.editor.scene;
    int polls = 0;
    const auto engine = MakeSelectionEngine(stage.context, scene, {});
    OptimizeScene(scene, *engine, [&](const OptimizeProgress&) {
        ++polls;
        EXPECT_EQ(stage.Render(), before) << "a repaint while the run goes on";
        return true;
    });
    EXPECT_GT(polls, 1);
    EXPECT_EQ(stage.Render(), before);
}

}  // namespace
}  // namespace korvane::test
