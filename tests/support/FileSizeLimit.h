// A disk that is full for a while: no file may grow beyond a size.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace korvane::test {

/// While it lives, a write beyond `bytes` into any file of this process fails, as on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }

  private:
    void (*oldHandler_)(int);
    rlimit old_{};
};

}  // namespace korvane::test
