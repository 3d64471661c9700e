// Held keys as continuous movement and one-shot commands. A timer of 10 ms drives them; when it
// comes late, the ticks it missed are made up, so that the speed does not depend on the frame rate.
#pragma once

#include <string_view>

#include "editor/Editor.h"

namespace korvane {

inline constexpr int kKeyBoardTick = 10;  // milliseconds

/// A key or button goes down or up. `source` tells physical keys apart, so that of two that share a
/// code one may be released while the other holds it; the code of the release is that of the press.
/// A key that no tick has seen yet gets one before it goes up: a short tap is not lost.
/// Codes outside 1..255 are no key.
///
/// `time` is the window system's date of the event in milliseconds, 0 if it is not known. X11 tells
/// a held key again and again as released and pressed in the same millisecond: such a press only
/// takes the release back.
void PressKey(Editor& editor, int source, int code, std::uint64_t time = 0);
void ReleaseKey(Editor& editor, int source, std::uint64_t time = 0);

/// Whether a key that is a shortcut of the desktop as well goes to the keyboard map: pressed
/// without Ctrl and the like (`alone`) it has a function there, it is held already and only
/// repeats, or the camera flies, where Ctrl may be the key for slowly.
bool TakesShortcut(const Editor& editor, int source, int code, bool alone, std::uint64_t time);

/// The function of a key that runs a command, as that command's object name; empty for others.
std::string_view CommandOfKey(const KeyMap& map, int code);

/// No key is held any more: the keyboard went to someone else, who gets the releases.
void ReleaseAllKeys(Editor& editor);

/// One tick: moves and turns the camera by the held keys, or else runs the commands of held keys.
void KeyBoardTick(Editor& editor);

/// The timer's handler: runs the ticks that are due by the clock, at most a quarter of a second of
/// them, so that a stall does not become a leap. The timer runs on while `keyBoard.running`.
void AdvanceKeyBoard(Editor& editor);

}  // namespace korvane
