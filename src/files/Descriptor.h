// An open file of the operating system, for the sources of this floor that talk to it.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace korvane {

/// An open file, closed at the end of the scope.
class Descriptor {
  public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~Descriptor() { Close(); }

    int Get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }

    /// Some file systems report a failed write only here.
    bool Close() {
        const int fd = std::exchange(fd_, -1);
        return fd < 0 || close(fd) == 0;
    }

  private:
    int fd_;
};

/// Writes all of the bytes; false when some could not be written.
bool WriteAll(int fd, std::span<const std::uint8_t> bytes);

/// The whole file from its beginning, under the conditions of LoadFile.
std::optional<std::vector<std::uint8_t>> ReadAll(int fd);

}  // namespace korvane
