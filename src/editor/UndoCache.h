// The record of the snapshots of one session, to go back and forth between.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace korvane {

inline constexpr std::int32_t kUndoSteps = 50;

/// Seconds since local midnight, with their fraction.
double SecondsSinceMidnight();

/// A stored state of the scene.
struct Snapshot {
    std::string file;     ///< its name without folder
    std::string caption;  ///< UTF-8: the change that lies between it and the scene after or before
};

/// The snapshots that can be gone to. Their files lie in the folder ObjCache, which other
/// running copies of the program use as well: only the files named here are this session's own.
struct UndoCache {
    /// What can be gone back to, the oldest first. Those behind UndoCount are used up.
    std::array<Snapshot, kUndoSteps> UndoNames;
    std::int32_t UndoCount = 0;
    std::vector<Snapshot> redo;        ///< what was undone, the first to come back last
    std::vector<std::string> dropped;  ///< names of snapshots whose files are still to be deleted
    std::string command;       ///< title of the command that runs; it names the snapshots taken
    bool failureTold = false;  ///< the user knows that snapshots can't be written at the moment
    double (*clock)() = SecondsSinceMidnight;  ///< gives names their second part
};

}  // namespace korvane
