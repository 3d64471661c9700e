// Writes the files that fuzzing starts from: write_seeds FOLDER makes FOLDER/TARGET/NAME.
#include <cstdio>
#include <filesystem>

#include "Fuzz.h"
#include "files/FileBuffer.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    for (const korvane::fuzz::Seed& seed : korvane::fuzz::Seeds()) {
        const std::filesystem::path folder = std::filesystem::path(argv[1]) / seed.target;
        std::filesystem::create_directories(folder);
        if (korvane::SaveFile((folder / seed.name).string(), seed.bytes)) continue;
        std::fprintf(stderr, "can't write %s/%s\n", folder.c_str(), seed.name.c_str());
        return 1;
    }
    return 0;
}
