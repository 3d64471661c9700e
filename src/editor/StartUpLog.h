// Where start-up traces what it does: a window and a file in the program, a list in tests.
#pragma once

#include <string>

namespace korvane {

/// The trace. Texts are UTF-8.
class StartUpLog {
  public:
    virtual ~StartUpLog() = default;

    /// Starts a new line.
    virtual void AddText(const std::string& text) = 0;

    /// Completes the newest line.
    virtual void AppendText(const std::string& text) = 0;
};

}  // namespace korvane
