// Files that are stored and removed behind the user's back: nobody waits for the disk, and what is
// asked first is done first.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace korvane {

class FileQueue {
  public:
    FileQueue() = default;
    FileQueue(const FileQueue&) = delete;
    FileQueue& operator=(const FileQueue&) = delete;
    /// Waits until everything is done.
    ~FileQueue();

    /// Stores the bytes as SaveFile does (UTF-8 path).
    void Store(std::string path, std::vector<std::uint8_t> bytes);

    /// Removes the file.
    void Delete(std::string path);

    /// Returns when everything asked so far is done.
    void Wait();

    /// Whether the file stored last could not be written.
    bool LastStoreFailed() const { return failed_; }

  private:
    struct Job {
        std::string path;
        std::vector<std::uint8_t> bytes;
        bool stores = false;
    };

    void Ask(Job job);
    void Work();

    std::mutex mutex_;  ///< guards the next three
    std::condition_variable changed_;
    std::deque<Job> jobs_;  ///< the one at the front is being done
    bool ends_ = false;
    std::atomic<bool> failed_ = false;
    std::thread worker_;  ///< started by the first job
};

}  // namespace korvane
