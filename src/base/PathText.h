// Paths as text. Both separators count, because settings and objects travel between systems.
#pragma once

#include <string>

namespace korvane {

/// The part of the path behind its last separator.
inline std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace korvane
