// The lines of the start-up log: the last ten on screen, all of them in a file. Knows no window.
#pragma once

#include <array>
#include <fstream>
#include <string>

#include "editor/StartUpLog.h"

namespace korvane {

/// A line is written to the file when the next one begins, because until then it may grow. A file
/// that cannot be opened costs the file only, never the start-up.
class StartUpLines final : public StartUpLog {
  public:
    static constexpr int kVisible = 10;

    /// Truncates the log file at `path` (UTF-8).
    explicit StartUpLines(const std::string& path);
    ~StartUpLines() override { Close(); }
    StartUpLines(const StartUpLines&) = delete;
    StartUpLines& operator=(const StartUpLines&) = delete;

    void AddText(const std::string& text) override;
    void AppendText(const std::string& text) override;

    /// Writes the newest line and closes the file.
    void Close();

    /// The visible lines, the oldest first; unused ones are empty.
    const std::array<std::string, kVisible>& Visible() const { return visible_; }

  private:
    void WritePending();

    std::array<std::string, kVisible> visible_;
    int current_ = -1;  ///< index of the newest visible line
    std::string pending_;
    std::ofstream file_;
};

}  // namespace korvane
