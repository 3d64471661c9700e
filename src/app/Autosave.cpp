#include "app/Autosave.h"

#include <chrono>

#include "editor/Editor.h"
#include "editor/mRecovery.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 3s;
constexpr auto kLongest = 15s;

}  // namespace

Autosave::Autosave(Editor& editor) : editor_(editor) {
    pause_.setInterval(kPause);
    longest_.setInterval(kLongest);
    for (QTimer* timer : {&pause_, &longest_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &Autosave::Store);
    }
}

void Autosave::NoteActivity() {
    pause_.start();
    if (!longest_.isActive()) longest_.start();
}

void Autosave::Store() {
    if (editor_.gesture.dragging) {
        pause_.start();
        return;
    }
    pause_.stop();
    longest_.stop();
    if (StoreRecovery(editor_)) longest_.start();  // whether or not the user goes on
}

}  // namespace korvane
