// Runs every check over its seeds, over each small seed with one byte after the other changed, over
// large files and over the files of what fuzzing once found, without a fuzzer: replay FOLDER reads
// FOLDER/TARGET/*.
#include <cstdio>
#include <filesystem>

#include "Fuzz.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"

namespace {

using namespace korvane::fuzz;

/// The name is printed first: a check that fails ends the program.
void Run(const Target& target, const std::string& name, Input input) {
    std::printf("%s %s\n", target.name, name.c_str());
    std::fflush(stdout);
    target.check(input);
}

/// Counts that claim too much, lengths that lead astray, numbers that are none.
void RunDamaged(const Target& target, const Seed& seed) {
    constexpr std::size_t kMostBytes = 2000;
    if (seed.bytes.size() > kMostBytes) return;
    for (std::size_t at = 0; at < seed.bytes.size(); ++at) {
        Bytes bytes = seed.bytes;
        bytes[at] ^= at % 2 == 0 ? 0xFF : 0x80 >> at / 2 % 8;
        target.check(bytes);
    }
}

/// The most brushes, and the most different vertices, for the size of their file.
void RunLarge() {
    korvane::Scene hollow, loose;
    hollow.brushes.resize(50'000);
    korvane::RenumberBrushNames(hollow);
    korvane::AddBrush(loose, {}, {});
    for (std::int32_t f = 0; f < 50'000; ++f) {
        const auto place = static_cast<float>(f);
        for (const float z : {0.0F, place, place * place})
            korvane::AddVertex(loose.brushes[0], {place, z, -place}, false);
        korvane::AddFace(loose.brushes[0], 3 * f, 3 * f + 1, 3 * f + 2, 3);
    }
    for (const korvane::Scene& scene : {hollow, loose})
        CheckObject(korvane::EncodeObject(scene, korvane::TextureLibrary(), false));
}

}  // namespace

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    if (argc != 2 || !fs::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const std::vector<Seed> seeds = Seeds();
    for (const Target& target : kTargets) {
        for (const Seed& seed : seeds)
            if (seed.target == target.name) {
                Run(target, seed.name, seed.bytes);
                RunDamaged(target, seed);
            }
        const fs::path folder = fs::path(argv[1]) / target.name;
        if (!fs::is_directory(folder)) continue;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const auto bytes = korvane::LoadFile(entry.path().string());
            Require(bytes.has_value(), "the file can be read");
            Run(target, entry.path().filename().string(), *bytes);
        }
    }
    RunLarge();
    return 0;
}
