// The keys that are down, and the clock that turns them into movement.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace korvane {

inline constexpr int kKeyCodes = 256;

/// Milliseconds of a clock that only runs forward.
std::int64_t SteadyMilliseconds();

/// One physical key, or mouse button, that is down.
struct KeySource {
    int id = 0;              ///< which one; never the code, which two keys may share
    int code = 0;            ///< virtual-key code that it stood for when it was pressed
    unsigned pressedAt = 0;  ///< KeyBoard::ticks at the press
};

/// A release that may turn out to be half of the keyboard's own repeat.
struct KeyRelease {
    KeySource source;
    bool held = false;       ///< what the entry of its code was before
    std::uint64_t time = 0;  ///< as the window system dates it; 0 is unknown
};

/// Key-state table and what keeps it true to the keyboard.
struct KeyBoard {
    std::array<bool, kKeyCodes> held{};  ///< by virtual-key code; a command resets its entry
    std::vector<KeySource> sources;
    KeyRelease lastRelease;
    bool viewMoved = false;     ///< the mouse turned the camera since the last tick
    bool running = false;       ///< ticks are due until one finds that no key is held
    unsigned ticks = 0;         ///< run so far, modulo 2^32
    std::int64_t tickTime = 0;  ///< when the last tick was due, in the clock's milliseconds
    std::int64_t (*clock)() = SteadyMilliseconds;
};

}  // namespace korvane
