#include "files/LockedFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace korvane {
namespace {

bool Lock(const Descriptor& file) {
    int result;
    do {
        result = flock(file.Get(), LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

}  // namespace

std::optional<LockedFile> LockedFile::Create(const std::string& path) {
    const std::string unnamed = path + ".new";
    constexpr int kAttempts = 5;  // before it is locked, another start may take it for a stray
    for (int i = 0; i < kAttempts; ++i) {
        Descriptor file(
            open(unnamed.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666));
        if (!file) break;
        if (Lock(file) && access(path.c_str(), F_OK) != 0 &&
            std::rename(unnamed.c_str(), path.c_str()) == 0) {
            return LockedFile(std::move(file));
        }
        unlink(unnamed.c_str());
    }
    return std::nullopt;
}

std::optional<LockedFile> LockedFile::Take(const std::string& path) {
    // Not blocking: opening a pipe would wait. Writable: some systems lock only such files.
    Descriptor file(open(path.c_str(), O_RDWR | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file || !Lock(file)) return std::nullopt;
    return LockedFile(std::move(file));
}

bool LockedFile::Append(std::span<const std::uint8_t> bytes) {
    return WriteAll(file_.Get(), bytes);
}

bool LockedFile::HasName() const {
    struct stat info;
    return fstat(file_.Get(), &info) == 0 && info.st_nlink > 0;
}

std::int64_t LockedFile::WrittenAt() const {
    struct stat info;
    return fstat(file_.Get(), &info) == 0 ? std::int64_t{info.st_mtime} : 0;
}

}  // namespace korvane
