// A file that shows whether the process that made it still lives: the lock on it goes with the
// process, however that ends, and with the machine. A number of a process would be given again.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "files/Descriptor.h"

namespace korvane {

class LockedFile {
  public:
    /// Creates the file (UTF-8 path), over nothing that is there; nobody ever sees it unlocked
    /// under its name. Nothing when that can't be done.
    static std::optional<LockedFile> Create(const std::string& path);

    /// The file of that path, locked for this process. Nothing when another one holds it, or where
    /// the file system can't tell.
    static std::optional<LockedFile> Take(const std::string& path);

    /// Adds bytes at the end, without waiting for the disk.
    bool Append(std::span<const std::uint8_t> bytes);

    /// The whole file that is locked, even where the lock keeps others from reading, this process
    /// among them. Nothing when it can't be read.
    std::optional<std::vector<std::uint8_t>> Read() const { return ReadAll(file_.Get()); }

    /// Whether the file still has a name: its folder may have been emptied meanwhile.
    bool HasName() const;

    /// When it was last written, in seconds since 1970; 0 when that can't be told.
    std::int64_t WrittenAt() const;

  private:
    explicit LockedFile(Descriptor file) : file_(std::move(file)) {}

    Descriptor file_;
};

}  // namespace korvane
