// The sampled optimizer written out plainly, pair by pair and stop by stop: the oracle of the fast
// engine and what benchmarks stand it beside. And scenes to run both on.
#pragma once

#include <random>
#include <set>

#include "optimizer/OptimizeEngine.h"
#include "optimizer/mPick.h"
#include "scene/mTransform.h"
#include "support/SceneMaker.h"

namespace korvane::test {

class PlainEngine final : public OptimizeEngine {
  public:
    PlainEngine(const Scene& scene, const OptimizeOptions& options)
        : scene_(scene), camera_(options), stops_(CameraStops(options)) {
        for (const Brush& brush : scene.brushes) brushes_.push_back(MakePickBrush(brush));
    }

    bool OptimizeBrush(std::int32_t target, std::vector<bool>& invisible,
                       OptimizeWatch& watch) override {
        const auto index = static_cast<std::size_t>(target);
        for (std::size_t other = 0; other < brushes_.size(); ++other) {
            if (other == index) continue;
            OptimizePair(index, other, invisible);
            if (!watch.GoOn(stops_.size())) return false;
        }
        return true;
    }

  private:
    void OptimizePair(std::size_t target, std::size_t other, std::vector<bool>& invisible) {
        const std::vector<BrushFace>& faces = scene_.brushes[target].faces;
        const OrbitTarget orbit = OrbitOf(scene_.brushes[target]);
        std::set<std::int32_t> seen;
        for (const CameraStop& stop : stops_) {
            const StopView view = ViewBeside(camera_, stop, orbit, brushes_[other]);
            const std::int32_t face =
                PickAtStop(view, brushes_[target], invisible, brushes_[other]);
            if (face >= 0) seen.insert(faces[static_cast<std::size_t>(face)].polygonId);
        }
        for (std::size_t i = 0; i < faces.size(); ++i) {
            invisible[i] = !seen.contains(faces[i].polygonId);
        }
    }

    const Scene& scene_;
    StopCamera camera_;
    std::vector<CameraStop> stops_;
    std::vector<PickBrush> brushes_;
};

/// Random numbers that are the same on every machine.
class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    /// 0 .. count - 1.
    int Roll(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    float Between(float low, float high) {
        return low + (high - low) * static_cast<float>(engine_() >> 8) / 16777216.0F;
    }
    Vec3 Point(float reach) {
        return {Between(-reach, reach), Between(-reach, reach), Between(-reach, reach)};
    }

  private:
    std::mt19937 engine_;
};

/// A brush of any shape and number of sides, turned one time out of two.
inline Brush& AddRandomBrush(SceneMaker& made, Dice& dice, const Vec3& at, float size) {
    constexpr BrushShape kShapes[] = {Box, Box, Cone, Sphere};
    const BrushShape shape = kShapes[dice.Roll(4)];
    const int sides = shape == Sphere ? 4 + dice.Roll(5) : 3 + dice.Roll(10);
    Brush& brush =
        made.Create(shape, sides, at,
                    {at.x + dice.Between(0.3F, 1) * size, at.y + dice.Between(0.3F, 1) * size,
                     at.z + dice.Between(0.3F, 1) * size});
    if (dice.Roll(2) == 0) {
        const Turn turn = TurnAbout(at, dice.Between(0, 360), dice.Between(0, 360), 0);
        TurnBrush(brush, turn, made.Space());
    }
    return brush;
}

/// `count` brushes in a room of such a size that they stand in each other's way: anything goes, so
/// they touch, cut and hold one another.
inline void FillRoom(SceneMaker& made, Dice& dice, int count, float roomPerBrush) {
    const float reach = std::cbrt(static_cast<float>(count)) * roomPerBrush / 2;
    for (int i = 0; i < count; ++i) AddRandomBrush(made, dice, dice.Point(reach), 2);
}

/// `count` boxes of size 1 in a cube, `pitch` apart: at 1 they touch.
inline void FillGrid(SceneMaker& made, int count, float pitch) {
    const int side = static_cast<int>(std::ceil(std::cbrt(static_cast<double>(count))));
    for (int i = 0; i < count; ++i) {
        const Vec3 at{static_cast<float>(i % side) * pitch,
                      static_cast<float>(i / side % side) * pitch,
                      static_cast<float>(i / side / side) * pitch};
        made.Create(Box, 4, at, {at.x + 1, at.y + 1, at.z + 1});
    }
}

}  // namespace korvane::test
