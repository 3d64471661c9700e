// The record of the undo snapshots of one session.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace korvane {

inline constexpr std::int32_t kUndoSteps = 50;

/// Seconds since local midnight, with their fraction.
double SecondsSinceMidnight();

/// The snapshots that can be gone back to. Their files lie in the folder ObjCache, which other
/// running copies of the program use as well: only the files named here are this session's own.
struct UndoCache {
    /// File names without folder, the oldest first. Those behind UndoCount are used up.
    std::array<std::string, kUndoSteps> UndoNames;
    std::int32_t UndoCount = 0;
    std::vector<std::string> dropped;  ///< names of snapshots whose files are still to be deleted
    bool failureTold = false;  ///< the user knows that snapshots can't be written at the moment
    double (*clock)() = SecondsSinceMidnight;  ///< gives names their second part
};

}  // namespace korvane
