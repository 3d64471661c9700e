// What a run of the program notes in ObjCache while it works, for the start after it: entries that
// are only ever appended, so that a run may end between any two bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

enum class RunEntry : char {
    Path = 'P',  ///< of the object (UTF-8; empty: a new one), from here on
    ForeignPath =
        'F',      ///< the same; the file there is none of ours, see Editor::currentFileForeign
    Scene = 'S',  ///< name of a file in ObjCache that holds the scene as it was here
    Saved = 'C'   ///< nothing was unsaved here
};

/// One entry as bytes: between two zeros, so that a torn entry spoils no other.
std::vector<std::uint8_t> EncodeRunEntry(RunEntry kind, std::string_view text);

/// What the record of a run says.
struct RunRecord {
    std::string path;
    bool foreign = false;
    std::vector<std::string> files;  ///< names of all files of the run that may still be there
    std::size_t saved = 0;           ///< as many of them are no newer than the last save
};

/// Reads a record; what is no entry, or names a file that can't lie in ObjCache, is passed over.
RunRecord DecodeRunRecord(std::span<const std::uint8_t> bytes);

}  // namespace korvane
