// The outside of a session for tests: prepared answers in, recorded requests out.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "editor/EditorHost.h"
#include "editor/Prompts.h"

namespace korvane::test {

/// Records what the session asks of its window.
struct RecordingHost : EditorHost {
    unsigned redraws = 0;  ///< union of all requests since the last reset
    int redrawRequests = 0;
    int commandStateRefreshes = 0;
    int panelRefreshes = 0;
    int layouts = 0;
    int closes = 0;
    int formCloses = 0;
    int focusReturns = 0;
    int timerStarts = 0;
    int schemes = 0;
    WindowPlace place;
    std::map<int, std::string> status;
    std::vector<Form> forms;
    std::vector<std::string> documents;
    std::vector<std::string> madePng;
    bool busy = false;  ///< work for an idle turn is dropped, as when the program ends before

    void RequestRedraw(unsigned set) override {
        redraws |= set;
        ++redrawRequests;
    }
    void ShowCommandStates() override { ++commandStateRefreshes; }
    void RefreshPropertyPanel() override { ++panelRefreshes; }
    void LayoutPanes() override { ++layouts; }
    void ApplyColorScheme() override { ++schemes; }
    WindowPlace PlaceOfWindow() const override { return place; }
    void ShowStatus(int panel, const std::string& text) override { status[panel] = text; }
    void OpenForm(Form form) override { forms.push_back(form); }
    void CloseForms() override { ++formCloses; }
    void OpenDocument(const std::string& path) override { documents.push_back(path); }
    void FocusViews() override { ++focusReturns; }
    void WhenIdle(std::function<void()> work) override {
        if (!busy) work();
    }
    void RunKeyBoardTimer() override { ++timerStarts; }
    std::optional<std::vector<std::uint8_t>> PngOf(const std::string& path) override {
        madePng.push_back(path);
        return std::nullopt;
    }
    void CloseWindow() override { ++closes; }
};

/// Answers prompts from queues and keeps what was asked. An unexpected question gets the answer a
/// user gives by closing the box.
struct ScriptedPrompts : Prompts {
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> paths;
    std::vector<Message> messages;
    std::deque<std::optional<Color>> colors;
    std::vector<Color> askedColors;
    std::function<void()> whenAsked = [] {};  ///< what happens while a message is shown
    std::vector<FileDialog> openDialogs;
    std::vector<FileDialog> saveDialogs;

    /// The texts of the messages since the last call.
    std::vector<std::string> Told() {
        std::vector<std::string> texts;
        for (const Message& message : messages) texts.push_back(message.text);
        messages.clear();
        return texts;
    }

    Answer ShowMessage(const Message& message) override {
        messages.push_back(message);
        whenAsked();
        if (answers.empty()) {
            switch (message.buttons) {
                case MessageButtons::Ok:
                    return Answer::Ok;
                case MessageButtons::YesNo:
                    return Answer::No;
                case MessageButtons::YesNoCancel:
                    return Answer::Cancel;
            }
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> AskOpenPath(const FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        return Next(paths);
    }
    std::optional<std::string> AskSavePath(const FileDialog& dialog) override {
        saveDialogs.push_back(dialog);
        return Next(paths);
    }
    std::optional<Color> AskColor(Color color) override {
        askedColors.push_back(color);
        return Next(colors);
    }

  private:
    template <class T>
    static std::optional<T> Next(std::deque<std::optional<T>>& prepared) {
        if (prepared.empty()) return std::nullopt;
        auto next = prepared.front();
        prepared.pop_front();
        return next;
    }
};

}  // namespace korvane::test
