// Runs every check over its seeds and over the files of what fuzzing once found, without a fuzzer:
// replay FOLDER reads FOLDER/TARGET/*.
#include <cstdio>
#include <filesystem>

#include "Fuzz.h"
#include "files/FileBuffer.h"

namespace {

using namespace korvane::fuzz;

/// The name is printed first: a check that fails ends the program.
void Run(const Target& target, const std::string& name, Input input) {
    std::printf("%s %s\n", target.name, name.c_str());
    std::fflush(stdout);
    target.check(input);
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
            if (seed.target == target.name) Run(target, seed.name, seed.bytes);
        const fs::path folder = fs::path(argv[1]) / target.name;
        if (!fs::is_directory(folder)) continue;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const auto bytes = korvane::LoadFile(entry.path().string());
            Require(bytes.has_value(), "the file can be read");
            Run(target, entry.path().filename().string(), *bytes);
        }
    }
    return 0;
}
