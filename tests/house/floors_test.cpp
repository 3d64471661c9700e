// The floors of the house: a file includes only what its floor may stand on, and the core knows
// neither Qt nor OpenGL.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace korvane {
namespace {

namespace fs = std::filesystem;

struct Floor {
    std::string folder;
    std::set<std::string> standsOn;
    bool plain;  ///< standard library only
};

/// From the lowest up. A plain floor may stand on all plain ones before it.
const std::vector<Floor>& Floors() {
    static const std::vector<Floor> floors = [] {
        std::vector<Floor> all;
        std::set<std::string> core;
        for (const char* folder : {"base", "textures/core", "scene", "views/core", "files",
                                   "export", "interchange", "editor", "optimizer"}) {
            all.push_back({folder, core, true});
            core.insert(folder);
        }
        const auto coreAnd = [&](std::set<std::string> more) {
            more.insert(core.begin(), core.end());
            return more;
        };
        all.push_back({"views/ui", core, false});
        all.push_back({"textures/ui", coreAnd({"views/ui"}), false});
        all.push_back({"platform", core, false});
        all.push_back({"widgets", {}, false});
        all.push_back({"app", coreAnd({"views/ui", "textures/ui", "platform", "widgets"}), false});
        all.push_back({"cli", coreAnd({"views/ui", "textures/ui", "platform"}), false});
        return all;
    }();
    return floors;
}

struct Include {
    std::string name;
    bool quoted;
};

std::vector<Include> IncludesOf(const fs::path& file) {
    std::vector<Include> includes;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("#include ", 0) != 0) continue;
        const bool quoted = line[9] == '"';
        const auto end = line.find(quoted ? '"' : '>', 10);
        includes.push_back({line.substr(10, end - 10), quoted});
    }
    return includes;
}

bool IsPlainHeader(const std::string& name) {
    // Standard C++ headers carry no extension and no folder; the few POSIX ones stand in one file.
    return name.find('.') == std::string::npos && name.find('/') == std::string::npos &&
           name[0] != 'Q';
}

const std::map<std::string, std::set<std::string>>& AllowedSystemHeaders() {
    static const std::map<std::string, std::set<std::string>> allowed = {
        {"SaveFile.cpp", {"fcntl.h", "unistd.h", "sys/stat.h", "sys/types.h"}},
        {"Descriptor.h", {"unistd.h"}},
        {"LockedFile.cpp", {"fcntl.h", "sys/file.h", "sys/stat.h"}},
        {"FreedMemory.cpp", {"malloc.h"}},
    };
    return allowed;
}

TEST(FloorsTest, EveryFileStandsOnItsFloor) {
    int files = 0;
    for (const Floor& floor : Floors()) {
        const fs::path folder = fs::path(KORVANE_SOURCE_DIR) / "src" / floor.folder;
        ASSERT_TRUE(fs::is_directory(folder)) << folder;
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp") continue;
            ++files;
            for (const Include& include : IncludesOf(entry.path())) {
                if (include.quoted) {
                    const std::string from = fs::path(include.name).parent_path().string();
                    EXPECT_TRUE(from.empty() || from == floor.folder || floor.standsOn.count(from))
                        << entry.path() << " includes " << include.name;
                } else if (floor.plain && !IsPlainHeader(include.name) &&
                           !(floor.folder == "interchange" &&
                             (include.name.starts_with("assimp/") ||
                              include.name == "tiny_gltf.h"))) {
                    const auto allowed = AllowedSystemHeaders().find(entry.path().filename());
                    EXPECT_TRUE(allowed != AllowedSystemHeaders().end() &&
                                allowed->second.count(include.name))
                        << entry.path() << " includes <" << include.name << ">";
                }
            }
        }
    }
    EXPECT_GT(files, 40) << "the folders were not found";
}

}  // namespace
}  // namespace korvane
