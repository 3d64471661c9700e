#include "SystemFaults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <string>
#include <utility>

// The names are the linker's.
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int fd, const void* bytes, size_t count);
int __real_close(int fd);
}

namespace korvane::test {
namespace {

std::atomic<Step> failing = Step::None;
std::atomic<int> failures = 0;
std::atomic<int> writes = 0;
thread_local std::string trace;  ///< files are also written by another thread
std::atomic<int> writable = -1;  ///< opened last for writing

void Note(char what) {
    trace += what;
}

bool Fails(Step step, int error) {
    if (failing != step) return false;
    ++failures;
    errno = error;
    return true;
}

ssize_t Write(int fd, const void* bytes, size_t count) {
    if (Fails(Step::FirstWrite, ENOSPC)) return -1;
    const bool later = writes++ > 0;
    if (later && Fails(Step::LaterWrite, ENOSPC)) return -1;
    return __real_write(fd, bytes,
                        failing == Step::LaterWrite ? std::min<size_t>(count, 3) : count);
}

/// The file is closed all the same, as the system does it.
int Close(int fd) {
    const int result = __real_close(fd);
    if (fd != writable) return result;
    writable = -1;
    return Fails(Step::Close, EIO) ? -1 : result;
}

int Open(const char* path, int flags, mode_t mode) {
    const bool toWrite = (flags & O_ACCMODE) != O_RDONLY;
    if (toWrite && Fails(Step::Open, EACCES)) return -1;
    if ((flags & O_TMPFILE) == O_TMPFILE && Fails(Step::Unnamed, EOPNOTSUPP)) return -1;
    const int fd = __real_open(path, flags, mode);
    if (toWrite) writable = fd;
    return fd;
}

}  // namespace

void FailAt(Step step) {
    if (step != Step::None) failures = 0;
    writes = 0;
    failing = step;
}

int Failures() {
    return failures;
}

std::string TakeTrace() {
    return std::exchange(trace, {});
}

}  // namespace korvane::test

extern "C" {
using korvane::test::Fails;
using korvane::test::Note;
using korvane::test::Step;

int __real_fchmod(int fd, mode_t mode);
int __real_fsync(int fd);
int __real_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, mode_t mode) {
    return korvane::test::Open(path, flags, mode);
}
ssize_t __wrap_write(int fd, const void* bytes, size_t count) {
    return korvane::test::Write(fd, bytes, count);
}
int __wrap_close(int fd) {
    return korvane::test::Close(fd);
}
int __wrap_fchmod(int fd, mode_t mode) {
    return Fails(Step::Mode, EPERM) ? -1 : __real_fchmod(fd, mode);
}
int __wrap_fsync(int fd) {
    struct stat flushed;
    const bool folder = fstat(fd, &flushed) == 0 && S_ISDIR(flushed.st_mode);
    Note(folder ? 'D' : 'F');
    return Fails(Step::Flush, EIO) ? -1 : __real_fsync(fd);
}
int __wrap_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    if (Fails(Step::Link, ENOENT)) return -1;
    return __real_linkat(fromFolder, from, toFolder, to, flags);
}
int __wrap_rename(const char* from, const char* to) {
    Note('R');
    return Fails(Step::Rename, EACCES) ? -1 : __real_rename(from, to);
}
}
