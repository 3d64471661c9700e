// The object file of 10,000 boxes, each operation beside its reference in the same run:
//   encode  : at most 8 times copying the same bytes
//   save    : encoded and stored, at most 1.6 times storing the same bytes the same way
//   decode  : with normals, at most 3 times copying the scene's records
// Operation and reference take turns, and the counter "ratio" is the median over the rounds of the
// time of one by the time of the other: what slows the machine for a while slows both.
#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "Compare.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "scene/mBrush.h"
#include "scene/mNormals.h"

namespace korvane {
namespace {

using bench::Compare;

using Bytes = std::vector<std::uint8_t>;

/// Boxes on a grid that wear eight textures.
struct Subject {
    TextureLibrary library;
    Scene scene;
    Bytes bytes;

    Subject() {
        constexpr int kBoxes = 10'000;
        for (int t = 0; t < 8; ++t) {
            library.AddTexture("texture" + std::to_string(t) + ".jpg", 256, 256);
        }
        for (int i = 0; i < kBoxes; ++i) {
            library.SelectTexture(1 + i % 8);
            const auto x = static_cast<float>(i % 100);
            const auto z = static_cast<float>(i / 100);
            CreateBrush(scene, {x, 0, z}, {x + 0.75F, 1, z + 0.75F}, 4, {library});
        }
        bytes = EncodeObject(scene, library, false);
    }
};

const Subject& TheSubject() {
    static const Subject subject;
    return subject;
}

void Encode(benchmark::State& state) {
    const Subject& subject = TheSubject();
    Bytes copy(subject.bytes.size());
    Compare(
        state,
        [&] { benchmark::DoNotOptimize(EncodeObject(subject.scene, subject.library, false)); },
        [&] {
            std::memcpy(copy.data(), subject.bytes.data(), copy.size());
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        });
}

void Save(benchmark::State& state) {
    const Subject& subject = TheSubject();
    const auto folder =
        std::filesystem::current_path();  // a real disk; the temporary folder may not be
    const std::string path = (folder / "korvane-bench.kvobject").string();
    const std::string other = (folder / "korvane-bench-reference.kvobject").string();
    bool saved = true;
    Compare(
        state,
        [&] { saved &= SaveFile(path, EncodeObject(subject.scene, subject.library, false)); },
        [&] { saved &= SaveFile(other, subject.bytes); });
    if (!saved) state.SkipWithError("could not save");
    std::filesystem::remove(path);
    std::filesystem::remove(other);
}

void Decode(benchmark::State& state) {
    const Subject& subject = TheSubject();
    Compare(
        state,
        [&] { benchmark::DoNotOptimize(DecodeObject(subject.bytes, subject.library, false)); },
        [&] {
            std::vector<Brush> copy = subject.scene.brushes;
            benchmark::DoNotOptimize(copy.data());
        });
}

/// What part of decoding is the normals.
void NormalsAlone(benchmark::State& state) {
    Scene scene = TheSubject().scene;
    for (auto _ : state) {
        for (Brush& brush : scene.brushes) UpdateBrushNormals(brush);
    }
}

BENCHMARK(Encode)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->UseManualTime()->Iterations(60)->Unit(benchmark::kMillisecond);
BENCHMARK(Decode)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
BENCHMARK(NormalsAlone)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    return korvane::bench::RunWithKeptHeap(argc, argv);
}
