#include "editor/mKeyBoard.h"

#include <algorithm>
#include <chrono>

#include "editor/mCommands.h"
#include "editor/mViews.h"

namespace korvane {
namespace {

constexpr float kSpeed = 0.25F;  // world units a tick
constexpr float kFastSpeed = 0.5F;
constexpr float kSlowSpeed = 0.1F;
constexpr float kTurn = 5;                // degrees at a speed of 1
constexpr std::int64_t kMostTicks = 25;   // made up at once
constexpr std::int64_t kTimerJitter = 1;  // milliseconds that a timer may be early

struct Motion {
    KeyFunction function;
    Vec3 direction;
};

constexpr Motion kMotions[] = {
    {KeyFunction::MoveForward, {0, 0, -1}},    {KeyFunction::MoveBackward, {0, 0, 1}},
    {KeyFunction::MoveStrafeLeft, {-1, 0, 0}}, {KeyFunction::MoveStrafeRight, {1, 0, 0}},
    {KeyFunction::MoveUpwards, {0, 1, 0}},     {KeyFunction::MoveDownwards, {0, -1, 0}},
};

struct Turning {
    KeyFunction function;
    void (*turn)(Camera&, float);
};

constexpr Turning kTurnings[] = {
    {KeyFunction::TurnLeft, TurnLeft},
    {KeyFunction::TurnRight, TurnRight},
    {KeyFunction::TurnLookUp, LookUp},
    {KeyFunction::TurnLookDown, LookDown},
};

struct KeyCommand {
    KeyFunction function;
    const char* command;
};

/// In the order in which they are run when several are held.
constexpr KeyCommand kKeyCommands[] = {
    {KeyFunction::ModeBrush, "mnuModeBrush"},
    {KeyFunction::ModeFace, "mnuModeFace"},
    {KeyFunction::ModeEdge, "mnuModeEdge"},
    {KeyFunction::ModeVertex, "mnuModeVertex"},
    {KeyFunction::SelectSelect, "mnuSelect"},
    {KeyFunction::SelectUnselectAll, "mnuUnSelect"},
    {KeyFunction::EditCopy, "mnuCopy"},
    {KeyFunction::EditPaste, "mnuPaste"},
    {KeyFunction::ModifyFreeRotate, "mnuFreeRotate"},
    {KeyFunction::ModifyMultiply, "mnuMultiply"},
    {KeyFunction::ModifyDelete, "mnuDelete"},
    {KeyFunction::FileSave, "mnuSave"},
    {KeyFunction::FileSaveAs, "mnuSaveAs"},
    {KeyFunction::Size3, "mnuSize3"},
    {KeyFunction::Size4, "mnuSize4"},
    {KeyFunction::Size5, "mnuSize5"},
    {KeyFunction::Size6, "mnuSize6"},
    {KeyFunction::Size7, "mnuSize7"},
    {KeyFunction::Size8, "mnuSize8"},
    {KeyFunction::SizeArbitrary, "mnuSizeArbitrary"},
    {KeyFunction::View4Way, "mnuView4Way"},
    {KeyFunction::ViewTop, "mnuViewTop"},
    {KeyFunction::ViewLeft, "mnuViewLeft"},
    {KeyFunction::ViewFront, "mnuViewFront"},
    {KeyFunction::View3D, "mnuView3D"},
    {KeyFunction::ViewResetAll, "mnuResetAllViews"},
};

/// The entry of the function's key; null for a function without a key.
bool* EntryOf(Editor& editor, KeyFunction function) {
    const int code = editor.settings.keyMap[function];
    const bool bound = code > 0 && code < kKeyCodes;
    return bound ? &editor.keyBoard.held[static_cast<std::size_t>(code)] : nullptr;
}

bool IsHeld(Editor& editor, KeyFunction function) {
    const bool* entry = EntryOf(editor, function);
    return entry != nullptr && *entry;
}

/// Whether it is held; a command that runs is not held any more, so that it runs once a press.
bool TakePress(Editor& editor, KeyFunction function) {
    const bool held = IsHeld(editor, function);
    if (held) *EntryOf(editor, function) = false;
    return held;
}

/// Whether keys or the mouse move the camera.
bool IsFlying(const Editor& editor) {
    const auto held = [&editor](const auto& row) {
        const int code = editor.settings.keyMap[row.function];
        return code > 0 && std::ranges::count(editor.keyBoard.sources, code, &KeySource::code) > 0;
    };
    return editor.mouseLook.state != LookOff || std::ranges::any_of(kMotions, held) ||
           std::ranges::any_of(kTurnings, held);
}

float Speed(Editor& editor) {
    if (IsHeld(editor, KeyFunction::MoveFaster)) return kFastSpeed;
    return IsHeld(editor, KeyFunction::MoveSlower) ? kSlowSpeed : kSpeed;
}

bool MoveByKeys(Editor& editor) {
    const float speed = Speed(editor);
    bool moved = false;
    for (const auto& [function, direction] : kMotions) {
        if (!IsHeld(editor, function)) continue;
        MoveCamera(editor.camera, {direction.x * speed, direction.y * speed, direction.z * speed});
        moved = true;
    }
    for (const auto& [function, turn] : kTurnings) {
        if (!IsHeld(editor, function)) continue;
        turn(editor.camera, speed * kTurn);
        moved = true;
    }
    return moved;
}

void RunKeyCommands(Editor& editor) {
    for (const auto& [function, name] : kKeyCommands) {
        if (!TakePress(editor, function)) continue;
        RunCommand(editor, *FindCommand(name));
    }
    if (IsHeld(editor, KeyFunction::ZoomIn)) ZoomIn(editor);
    if (IsHeld(editor, KeyFunction::ZoomOut)) ZoomOut(editor);
    if (TakePress(editor, KeyFunction::ZoomReset)) ResetZoom(editor);
}

KeySource* Find(KeyBoard& keys, int id) {
    const auto found = std::ranges::find(keys.sources, id, &KeySource::id);
    return found == keys.sources.end() ? nullptr : &*found;
}

void Drop(KeyBoard& keys, int id) {
    const KeySource* source = Find(keys, id);
    if (source == nullptr) return;
    const int code = source->code;
    std::erase_if(keys.sources, [=](const KeySource& key) { return key.id == id; });
    if (std::ranges::find(keys.sources, code, &KeySource::code) == keys.sources.end())
        keys.held[static_cast<std::size_t>(code)] = false;
}

void Run(Editor& editor) {
    KeyBoard& keys = editor.keyBoard;
    if (keys.running) return;
    keys.running = true;
    keys.tickTime = keys.clock();
    editor.host.RunKeyBoardTimer();
}

/// A command that the key has run does not run again.
void TakeReleaseBack(Editor& editor) {
    KeyBoard& keys = editor.keyBoard;
    const auto& [source, held, time] = keys.lastRelease;
    keys.sources.push_back(source);
    if (!held) return;
    keys.held[static_cast<std::size_t>(source.code)] = true;
    Run(editor);
}

}  // namespace

std::int64_t SteadyMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void PressKey(Editor& editor, int source, int code, std::uint64_t time) {
    if (code <= 0 || code >= kKeyCodes) return;
    KeyBoard& keys = editor.keyBoard;
    if (time != 0 && time == keys.lastRelease.time && source == keys.lastRelease.source.id)
        return TakeReleaseBack(editor);
    Drop(keys, source);  // a press without a release before it: that one was lost
    keys.sources.push_back({source, code, 0});
    AdvanceKeyBoard(editor);  // the time before the press is not this key's
    KeySource* pressed = Find(keys, source);
    if (pressed == nullptr) return;  // a command opened a window, where the key went up
    pressed->pressedAt = keys.ticks;
    keys.held[static_cast<std::size_t>(code)] = true;
    Run(editor);
}

void ReleaseKey(Editor& editor, int source, std::uint64_t time) {
    KeyBoard& keys = editor.keyBoard;
    if (Find(keys, source) == nullptr) return;
    AdvanceKeyBoard(editor);
    const KeySource* released = Find(keys, source);
    if (released != nullptr && released->pressedAt == keys.ticks) {
        keys.tickTime += kKeyBoardTick;
        KeyBoardTick(editor);
    }
    released = Find(keys, source);
    if (released == nullptr) return;  // a command took the keyboard away
    keys.lastRelease = {*released, keys.held[static_cast<std::size_t>(released->code)], time};
    Drop(keys, source);
}

bool TakesShortcut(const Editor& editor, int source, int code, bool alone, std::uint64_t time) {
    const KeyBoard& keys = editor.keyBoard;
    const KeyRelease& last = keys.lastRelease;
    const bool repeats = std::ranges::count(keys.sources, source, &KeySource::id) > 0 ||
                         (time != 0 && time == last.time && source == last.source.id);
    return repeats || (alone && IsBound(editor.settings.keyMap, code)) || IsFlying(editor);
}

std::string_view CommandOfKey(const KeyMap& map, int code) {
    const auto row = std::ranges::find_if(
        kKeyCommands, [&](const KeyCommand& key) { return map[key.function] == code; });
    return row == std::end(kKeyCommands) ? std::string_view() : row->command;
}

void ReleaseAllKeys(Editor& editor) {
    editor.keyBoard.sources.clear();
    editor.keyBoard.lastRelease = {};
    editor.keyBoard.held.fill(false);
}

void KeyBoardTick(Editor& editor) {
    KeyBoard& keys = editor.keyBoard;
    ++keys.ticks;
    if (MoveByKeys(editor) || keys.viewMoved) {
        editor.host.RequestRedraw(RedrawPreview);
    } else {
        RunKeyCommands(editor);
    }
    keys.viewMoved = false;
    keys.running = std::ranges::find(keys.held, true) != keys.held.end();
}

void AdvanceKeyBoard(Editor& editor) {
    KeyBoard& keys = editor.keyBoard;
    const std::int64_t now = keys.clock();
    const std::int64_t missed = (now - keys.tickTime + kTimerJitter) / kKeyBoardTick;
    const std::int64_t due = std::clamp<std::int64_t>(missed, 0, kMostTicks);
    keys.tickTime = missed > kMostTicks ? now : keys.tickTime + due * kKeyBoardTick;
    for (std::int64_t i = 0; i < due && keys.running; ++i) KeyBoardTick(editor);
}

}  // namespace korvane
