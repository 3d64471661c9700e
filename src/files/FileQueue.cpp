#include "files/FileQueue.h"

#include <utility>

#include "files/FileBuffer.h"

namespace korvane {

FileQueue::~FileQueue() {
    {
        const std::lock_guard guard(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    if (worker_.joinable()) worker_.join();
}

void FileQueue::Store(std::string path, std::vector<std::uint8_t> bytes) {
    Ask({std::move(path), std::move(bytes), Kind::Store});
}

void FileQueue::Delete(std::string path) {
    Ask({std::move(path), {}, Kind::Delete});
}

void FileQueue::DeleteOnceStored(std::string path) {
    Ask({std::move(path), {}, Kind::DeleteOnceStored});
}

void FileQueue::Wait() {
    std::unique_lock guard(mutex_);
    changed_.wait(guard, [this] { return jobs_.empty(); });
}

void FileQueue::Ask(Job job) {
    {
        const std::lock_guard guard(mutex_);
        jobs_.push_back(std::move(job));
    }
    changed_.notify_all();
    if (!worker_.joinable()) worker_ = std::thread(&FileQueue::Work, this);
}

/// `replaced`: files to remove as soon as a newer one is there.
void FileQueue::Do(const Job& job, std::vector<std::string>& replaced) {
    if (job.kind == Kind::Store) {
        failed_ = !SaveFile(job.path, job.bytes);
        return;
    }
    replaced.push_back(job.path);
    if (failed_ && job.kind == Kind::DeleteOnceStored) return;
    for (const std::string& path : replaced) DeleteFile(path);
    replaced.clear();
}

void FileQueue::Work() {
    std::vector<std::string> replaced;
    std::unique_lock guard(mutex_);
    for (;;) {
        changed_.wait(guard, [this] { return ends_ || !jobs_.empty(); });
        if (jobs_.empty()) return;
        const Job& job = jobs_.front();  // stays where it is while others are added behind it
        guard.unlock();
        Do(job, replaced);
        guard.lock();
        jobs_.pop_front();
        changed_.notify_all();
    }
}

}  // namespace korvane
