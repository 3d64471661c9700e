#include "app/mStartUpLog.h"

#include <algorithm>
#include <filesystem>

#include "base/SingleByteText.h"

namespace korvane {

StartUpLines::StartUpLines(const std::string& path)
    : file_(std::filesystem::path(std::u8string(path.begin(), path.end())),
            std::ios::binary | std::ios::trunc) {
}

void StartUpLines::AddText(const std::string& text) {
    if (++current_ >= kVisible) {
        std::shift_left(visible_.begin(), visible_.end(), 1);
        current_ = kVisible - 1;
    }
    visible_[current_] = text;
    WritePending();
    pending_ = text;
}

void StartUpLines::AppendText(const std::string& text) {
    if (current_ >= 0) visible_[current_] += text;
    pending_ += text;
}

void StartUpLines::Close() {
    WritePending();
    pending_.clear();
    file_.close();
}

void StartUpLines::WritePending() {
    // Flushed line by line: after a crash in a driver the file tells how far start-up came.
    if (!pending_.empty()) file_ << ToSingleByte(pending_) << "\r\n" << std::flush;
}

}  // namespace korvane
