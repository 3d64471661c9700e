// A line on standard error that tells how far a long run has come.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace korvane {

/// Shows one line that is taken away at the end. Silent where standard error is no terminal, and
/// for the first half second.
class Progress {
  public:
    /// `total` is how many Next counts to.
    explicit Progress(std::size_t total = 0);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// Work on the next of them begins: "name (3 of 200)".
    void Next(const std::string& name);

    /// Shows the text, at most ten times a second.
    void Show(const std::string& text);

    /// Takes the line away for now, so that a message can stand in its place.
    void Clear();

  private:
    using Clock = std::chrono::steady_clock;

    std::size_t total_;
    std::size_t begun_ = 0;
    bool terminal_;
    bool shown_ = false;
    Clock::time_point due_;  ///< of the next line
};

}  // namespace korvane
