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

    /// Removes the file, and what DeleteOnceStored still keeps.
    void Delete(std::string path);

    /// Removes a file that the one stored last replaces. While that one could not be written, it
    /// stays until a later one is.
    void DeleteOnceStored(std::string path);

    /// Returns when everything asked so far is done.
    void Wait();

    /// Whether the file stored last could not be written.
    bool LastStoreFailed() const { return failed_; }

  private:
    enum class Kind : std::uint8_t { Store, Delete, DeleteOnceStored };
    struct Job {
        std::string path;
        std::vector<std::uint8_t> bytes;
        Kind kind = Kind::Store;
    };

    void Ask(Job job);
    void Do(const Job& job, std::vector<std::string>& replaced);
    void Work();

    std::mutex mutex_;  ///< guards the next three
    std::condition_variable changed_;
    std::deque<Job> jobs_;  ///< the one at the front is being done
    bool ends_ = false;
    std::atomic<bool> failed_ = false;
    std::thread worker_;  ///< started by the first job
};

}  // namespace korvane
