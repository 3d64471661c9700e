// Loading and storing whole files. This and LockedFile are what calls the operating system here.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "base/PathText.h"
#include "files/Descriptor.h"
#include "files/FileBuffer.h"

namespace korvane {
namespace {

constexpr std::size_t kLongestFile = std::numeric_limits<std::int32_t>::max();

/// The path that symbolic links lead to in the end, whether or not a file is there; empty where
/// they lead in a circle.
std::string FollowLinks(std::string path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        std::string target(4096, '\0');
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return path;  // no link
        target.resize(static_cast<std::size_t>(length));
        path = target.starts_with('/') ? target : FolderOf(path) + target;
    }
    return {};
}

/// Tries names for a temporary file until `make` makes one that is not in use yet; `name` receives
/// it. Returns what `make` did, negative for a failure.
template <class Make>
int MakeTemporary(const std::string& folder, std::string& name, Make make) {
    static std::atomic<unsigned> counter = 0;
    constexpr int kAttempts = 1000;
    for (int i = 0; i < kAttempts; ++i) {
        name = folder + ".korvane-" + std::to_string(getpid()) + "-" + std::to_string(counter++) +
               ".tmp";
        const int made = make(name);
        if (made >= 0 || errno != EEXIST) return made;
    }
    return -1;
}

/// Waits until the file is on the disk. A file system that has no such operation is no failure.
bool Flush(int fd) {
    int result;
    do {
        result = fsync(fd);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOSYS;
}

/// Gives the new file the mode of the one it replaces, and its owner where that is allowed.
bool TakeOver(int fd, const struct stat& old) {
    [[maybe_unused]] const int ownerKept = fchown(fd, old.st_uid, old.st_gid);
    return fchmod(fd, old.st_mode & 07777) == 0;
}

/// Writes the temporary file in full; `old` is the file it will replace, or null.
bool Fill(const Descriptor& file, std::span<const std::uint8_t> bytes, const struct stat* old) {
    const int fd = file.Get();
    return WriteAll(fd, bytes) && (!old || TakeOver(fd, *old)) && Flush(fd);
}

const char* Existing(const std::string& folder) {
    return folder.empty() ? "." : folder.c_str();
}

enum class Written { Done, Failed, NotPossible };

/// A temporary file that gets its name only when it is complete: while it is written, a kill leaves
/// nothing. Not every file system can do that.
Written WriteUnnamed(const std::string& folder, std::span<const std::uint8_t> bytes,
                     const struct stat* old, std::string& name) {
    Descriptor file(open(Existing(folder), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666));
    if (!file) return Written::NotPossible;
    if (!Fill(file, bytes, old)) return Written::Failed;
    const std::string opened = "/proc/self/fd/" + std::to_string(file.Get());
    const int linked = MakeTemporary(folder, name, [&opened](const std::string& tried) {
        return linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, tried.c_str(), AT_SYMLINK_FOLLOW);
    });
    if (linked < 0) return Written::NotPossible;
    return file.Close() ? Written::Done : Written::Failed;
}

/// Writes a temporary file in the folder; `name` is its name as soon as there is something of it.
/// Its mode is that of any new file, the umask applied by the system.
bool WriteTemporary(const std::string& folder, std::span<const std::uint8_t> bytes,
                    const struct stat* old, std::string& name) {
    const Written unnamed = WriteUnnamed(folder, bytes, old, name);
    if (unnamed != Written::NotPossible) return unnamed == Written::Done;
    Descriptor file(MakeTemporary(folder, name, [](const std::string& tried) {
        return open(tried.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    }));
    if (!file) name.clear();
    return file && Fill(file, bytes, old) && file.Close();
}

/// Makes a rename in the folder last; where that is not possible the file is still whole.
void FlushFolder(const std::string& folder) {
    const Descriptor handle(open(Existing(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle) Flush(handle.Get());
}

/// The new content of a file, complete beside it and not yet in its place.
class Replacement {
  public:
    Replacement() = default;
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (!temporary_.empty()) unlink(temporary_.c_str());
    }

    bool Prepare(const NewFile& file) {
        target_ = FollowLinks(file.path);
        if (target_.empty() || file.bytes.size() > kLongestFile) return false;
        struct stat old;
        const bool replaces = stat(target_.c_str(), &old) == 0;
        if (replaces && (!S_ISREG(old.st_mode) || access(target_.c_str(), W_OK) != 0)) return false;
        return WriteTemporary(FolderOf(target_), file.bytes, replaces ? &old : nullptr, temporary_);
    }

    bool Finish() {
        if (std::rename(temporary_.c_str(), target_.c_str()) != 0) return false;
        temporary_.clear();
        FlushFolder(FolderOf(target_));
        return true;
    }

  private:
    std::string target_;
    std::string temporary_;  ///< empty: there is none
};

}  // namespace

bool WriteAll(int fd, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::vector<std::uint8_t>> ReadAll(int fd) {
    struct stat info;
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    if (static_cast<std::uintmax_t>(info.st_size) > kLongestFile) return std::nullopt;

    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(info.st_size));
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got =
            pread(fd, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;  // cut short meanwhile
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

std::optional<std::vector<std::uint8_t>> LoadFile(const std::string& path) {
    // Not blocking: opening a pipe would wait for its writer.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return std::nullopt;
    return ReadAll(file.Get());
}

bool SaveFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    const NewFile file{path, bytes};
    return SaveFiles({&file, 1});
}

bool SaveFiles(std::span<const NewFile> files) {
    std::vector<Replacement> replacements(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (!replacements[i].Prepare(files[i])) return false;
    }
    for (Replacement& replacement : replacements) {
        if (!replacement.Finish()) return false;
    }
    return true;
}

Creation CreateFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    if (bytes.size() > kLongestFile) return Creation::Failed;
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file) return errno == EEXIST ? Creation::Exists : Creation::Failed;
    if (WriteAll(file.Get(), bytes) && file.Close()) return Creation::Done;
    unlink(path.c_str());
    return Creation::Failed;
}

bool RenameFile(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

void DeleteFile(const std::string& path) {
    unlink(path.c_str());
}

}  // namespace korvane
