// The ways of finding hidden faces side by side, at 5 degrees with all orbits. The number is the
// count of brushes; "ratio" is the first named to the second.
#include <QApplication>
#include <memory>

#include "Compare.h"
#include "optimizer/ExactEngine.h"
#include "optimizer/FastEngine.h"
#include "optimizer/TargetSight.h"
#include "support/PlainOptimizer.h"
#include "support/PreviewStage.h"
#include "views/ui/mSelectionEngine.h"

namespace korvane::test {
namespace {

using bench::Compare;

/// Boxes of size 1 that touch, the same a box apart, or brushes of all kinds that stand in each
/// other's way.
enum class Layout { Touching, Apart, Room };

Scene MakeScene(Layout layout, benchmark::State& state) {
    SceneMaker made;
    Dice dice(1);
    const int count = static_cast<int>(state.range(0));
    if (layout == Layout::Room) FillRoom(made, dice, count, 2.5F);
    if (layout != Layout::Room) FillGrid(made, count, layout == Layout::Touching ? 1.0F : 2.0F);
    return made.scene;
}

/// A whole run over an object of which nothing is hidden yet; the object stays as it is.
void Run(const Scene& scene, const std::unique_ptr<OptimizeEngine>& engine) {
    OptimizeWatch watch({});
    for (std::int32_t i = 0; i < scene.brushCount(); ++i) {
        std::vector<bool> invisible(scene.brushes[static_cast<std::size_t>(i)].faces.size());
        engine->OptimizeBrush(i, invisible, watch);
    }
}

void RunFast(const Scene& scene) {
    Run(scene, MakeFastEngine(scene, {}));
}

/// What every engine that samples has to do at least: find what the stops of each target meet.
void LookAtEachAlone(const Scene& scene) {
    OptimizeWatch watch({});
    const OptimizeOptions options;
    const StopCamera camera(options);
    const std::vector<CameraStop> stops = CameraStops(options);
    TargetSight sight(camera, stops);
    for (const Brush& brush : scene.brushes) {
        sight.LookAround(MakePickBrush(brush), OrbitOf(brush), watch);
        benchmark::DoNotOptimize(sight);
    }
}

template <Layout layout>
void FastToPlain(benchmark::State& state) {
    const Scene scene = MakeScene(layout, state);
    Compare(
        state, [&] { RunFast(scene); },
        [&] { Run(scene, std::make_unique<PlainEngine>(scene, OptimizeOptions{})); });
}

template <Layout layout>
void FastToTargetsAlone(benchmark::State& state) {
    const Scene scene = MakeScene(layout, state);
    Compare(
        state, [&] { RunFast(scene); }, [&] { LookAtEachAlone(scene); });
}

template <Layout layout>
void ExactToFast(benchmark::State& state) {
    const Scene scene = MakeScene(layout, state);
    Compare(
        state, [&] { Run(scene, MakeExactEngine(scene)); }, [&] { RunFast(scene); });
}

template <Layout layout>
void SelectionToFast(benchmark::State& state) {
    const Scene scene = MakeScene(layout, state);
    PreviewStage stage(800, 600);
    Compare(
        state, [&] { Run(scene, MakeSelectionEngine(stage.context, scene, {})); },
        [&] { RunFast(scene); });
}

void Counts(benchmark::internal::Benchmark* bench) {
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
    for (const int count : {20, 100, 1000, 5000}) bench->Arg(count);
}

BENCHMARK(FastToPlain<Layout::Touching>)
    ->Arg(20)
    ->Arg(100)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FastToPlain<Layout::Apart>)
    ->Arg(100)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FastToPlain<Layout::Room>)
    ->Arg(20)
    ->Arg(100)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FastToTargetsAlone<Layout::Touching>)->Apply(Counts)->Iterations(9);
BENCHMARK(FastToTargetsAlone<Layout::Apart>)->Apply(Counts)->Iterations(9);
BENCHMARK(FastToTargetsAlone<Layout::Room>)->Apply(Counts)->Iterations(5);
BENCHMARK(ExactToFast<Layout::Touching>)->Apply(Counts)->Iterations(5);
BENCHMARK(ExactToFast<Layout::Apart>)->Apply(Counts)->Iterations(5);
BENCHMARK(ExactToFast<Layout::Room>)->Apply(Counts)->Iterations(5);
BENCHMARK(SelectionToFast<Layout::Touching>)
    ->Arg(20)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane::test

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    return korvane::bench::RunWithKeptHeap(argc, argv);
}
