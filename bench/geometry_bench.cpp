// Construction and shading normals against their all-pairs definitions.
//
// Each pair "X/plain" and "X/fast" does the same work; every fast run carries the counter
// "plain_over_fast", the ratio of the reference's time to its own, taken in turns within that run.
// The goals: a sphere of 64 sides created at least 150 times faster than its merge and normals
// alone take by definition, its normals at least 300 times, a cone of 64 sides at least 15 times.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>

#include "scene/mBrush.h"
#include "scene/mNormals.h"
#include "support/PlainGeometry.h"

namespace korvane {
namespace {

using Work = std::function<void()>;

struct World {
    Scene scene;
    TextureLibrary library;
    TextureSpace Space() { return {library}; }

    Brush& Create(BrushShape shape, std::int32_t sides, const Vec3& at = {}) {
        scene.createShape = shape;
        CreateBrush(scene, at, {at.x + 3, at.y + 2, at.z + 3}, sides, Space());
        return scene.brushes.back();
    }
};

/// Processor time, so that what else the machine does leaves the ratios alone.
double SecondsOf(const Work& work, int repeats) {
    const std::clock_t start = std::clock();
    for (int i = 0; i < repeats; ++i) work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / repeats;
}

/// How often the work has to be done to take 10 milliseconds or more.
int RepeatsFor(const Work& work) {
    int repeats = 1;
    while (SecondsOf(work, repeats) * repeats < 0.01) repeats *= 2;
    return repeats;
}

/// Times both in turns and takes the median ratio, so that a drifting clock rate hits both alike.
double MedianRatio(const Work& plain, const Work& fast) {
    constexpr int kRounds = 9;
    const int plainRepeats = RepeatsFor(plain);
    const int fastRepeats = RepeatsFor(fast);
    std::vector<double> ratios;
    for (int i = 0; i < kRounds; ++i) {
        ratios.push_back(SecondsOf(plain, plainRepeats) / SecondsOf(fast, fastRepeats));
    }
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() / 2];
}

bool SameBits(const Brush& a, const Brush& b) {
    if (a.faces.size() != b.faces.size()) return false;
    for (std::size_t f = 0; f < a.faces.size(); ++f) {
        const BrushFace& p = a.faces[f];
        const BrushFace& q = b.faces[f];
        if (p.a != q.a || p.b != q.b || p.c != q.c) return false;
        if (std::memcmp(&p.normal, &q.normal, sizeof p.normal) != 0) return false;
        if (std::memcmp(&p.cornerNormals, &q.cornerNormals, sizeof p.cornerNormals) != 0) {
            return false;
        }
    }
    return true;
}

void Expect(bool same, const char* what) {
    if (same) return;
    std::fprintf(stderr, "%s: the fast result differs from the plain one\n", what);
    std::exit(1);
}

void Pair(const std::string& name, const Work& plain, const Work& fast) {
    benchmark::RegisterBenchmark((name + "/plain").c_str(), [plain](benchmark::State& state) {
        for (auto _ : state) plain();
    })->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark((name + "/fast").c_str(), [plain, fast](benchmark::State& state) {
        const double ratio = MedianRatio(plain, fast);
        for (auto _ : state) fast();
        state.counters["plain_over_fast"] = ratio;
    })->Unit(benchmark::kMicrosecond);
}

/// Normals of one brush; both results are compared before anything is timed.
void NormalsPair(const std::string& name, BrushShape shape, std::int32_t sides) {
    World world;
    const Brush brush = world.Create(shape, sides);
    Brush plainBrush = brush;
    plain::UpdateBrushNormals(plainBrush);
    Expect(SameBits(brush, plainBrush), name.c_str());
    Pair(
        name, [b = brush]() mutable { plain::UpdateBrushNormals(b); },
        [b = brush]() mutable { UpdateBrushNormals(b); });
}

/// The whole creation of a brush against its normals alone, and its merge where it is a sphere.
void CreationPair(const std::string& name, BrushShape shape, std::int32_t sides) {
    World world;
    const Brush built = world.Create(shape, sides);
    const auto plainWork = [shape](Brush& b) {
        if (shape == Sphere) {
            plain::UnmergeSphere(b);
            plain::MergeEqualVertices(b);
        }
        plain::UpdateBrushNormals(b);
    };
    Brush again = built;
    plainWork(again);
    Expect(SameBits(built, again), name.c_str());
    Pair(
        name, [plainWork, b = built]() mutable { plainWork(b); },
        [shape, sides] {
            static World fresh;
            ClearScene(fresh.scene);
            benchmark::DoNotOptimize(fresh.Create(shape, sides).faces.data());
        });
}

void ManyBoxesPair() {
    static World world;
    for (int i = 0; i < 10000; ++i) {
        world.Create(Box, 4, {static_cast<float>(i % 100) * 4, 0, static_cast<float>(i / 100) * 4});
    }
    Pair(
        "Normals/10000 boxes",
        [] {
            for (Brush& b : world.scene.brushes) plain::UpdateBrushNormals(b);
        },
        [] {
            for (Brush& b : world.scene.brushes) UpdateBrushNormals(b);
        });
}

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    using namespace korvane;
    benchmark::Initialize(&argc, argv);
    CreationPair("Create/sphere 64", Sphere, 64);
    CreationPair("Create/cone 64", Cone, 64);
    NormalsPair("Normals/sphere 64", Sphere, 64);
    NormalsPair("Normals/sphere 16", Sphere, 16);
    NormalsPair("Normals/cone 64", Cone, 64);
    NormalsPair("Normals/box 64", Box, 64);
    NormalsPair("Normals/box 4", Box, 4);
    ManyBoxesPair();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
