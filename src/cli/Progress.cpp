#include "cli/Progress.h"

#include <unistd.h>

#include <iostream>

namespace korvane {
namespace {

constexpr std::chrono::milliseconds kPatience(500);
constexpr std::chrono::milliseconds kStep(100);
constexpr const char* kEraseLine = "\r\033[K";

}  // namespace

Progress::Progress(std::size_t total)
    : total_(total), terminal_(isatty(STDERR_FILENO) == 1), due_(Clock::now() + kPatience) {
}

Progress::~Progress() {
    Clear();
}

void Progress::Next(const std::string& name) {
    ++begun_;
    Show(name + " (" + std::to_string(begun_) + " of " + std::to_string(total_) + ")");
}

void Progress::Show(const std::string& text) {
    if (!terminal_ || Clock::now() < due_) return;
    std::cerr << kEraseLine << text << std::flush;
    shown_ = true;
    due_ = Clock::now() + kStep;
}

void Progress::Clear() {
    if (shown_) std::cerr << kEraseLine << std::flush;
    shown_ = false;
}

}  // namespace korvane
