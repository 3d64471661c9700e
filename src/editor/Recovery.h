// The record of what the session leaves in ObjCache for the next start, should it not be closed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "files/FileQueue.h"
#include "files/LockedFile.h"

namespace korvane {

/// See mRecovery.h. Without a record the session leaves nothing; without a run it is not to.
struct Recovery {
    std::optional<LockedFile> record;  ///< held as long as the session lives; see files/RunRecord.h
    std::string run;                   ///< what the names of the run's files begin with
    std::string notedPath;             ///< CurrentObjectPath as the record has it
    bool notedForeign = false;
    std::string kept;             ///< name of the newest recovery file; empty: none
    std::int32_t count = 0;       ///< recovery files so far: they number the next
    std::uint64_t keptState = 0;  ///< StateOf the scene that was stored last; 0: none
    bool failureTold = false;     ///< the user knows that recovery files can't be written
    FileQueue writer;
};

}  // namespace korvane
