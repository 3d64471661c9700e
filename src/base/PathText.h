// Paths as text.
#pragma once

#include <string>

namespace korvane {

/// The part of the path behind its last separator, of whichever system: settings and objects
/// travel.
inline std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

/// The folder of a path to a file of this machine, with its slash; empty for a bare name.
inline std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

}  // namespace korvane
