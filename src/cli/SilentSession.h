// An editing session that nobody watches: what it asks of its outside comes to nothing.
#pragma once

#include <functional>

#include "editor/Editor.h"

namespace korvane {

class SilentHost final : public EditorHost {
  public:
    void RequestRedraw(unsigned) override {}
    void ShowCommandStates() override {}
    void RefreshPropertyPanel() override {}
    void LayoutPanes() override {}
    void ApplyColorScheme() override {}
    WindowPlace PlaceOfWindow() const override { return {}; }
    void ShowStatus(int, const std::string&) override {}
    void OpenForm(Form) override {}
    void CloseForms() override {}
    void OpenDocument(const std::string&) override {}
    void FocusViews() override {}
    void WhenIdle(std::function<void()>) override {}
    void RunKeyBoardTimer() override {}
    std::optional<std::vector<std::uint8_t>> PngOf(const std::string&) override {
        return std::nullopt;
    }
    void CloseWindow() override {}
};

class SilentPrompts final : public Prompts {
  public:
    Answer ShowMessage(const Message&) override { return Answer::No; }
    std::optional<std::string> AskOpenPath(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> AskSavePath(const FileDialog&) override { return std::nullopt; }
    std::optional<Color> AskColor(Color) override { return std::nullopt; }
};

/// The session with its outside.
struct SilentSession {
    SilentHost host;
    SilentPrompts prompts;
    Editor editor{host, prompts};
};

}  // namespace korvane
