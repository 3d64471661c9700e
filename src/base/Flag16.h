// The 16-bit boolean of the scene records and settings: -1 is true, every other value is false.
#pragma once

#include <cstdint>

namespace korvane {

/// A 16-bit boolean. True is stored as -1 and only -1 reads as true, so a stray 1 is false.
struct Flag16 {
    std::int16_t raw = 0;

    constexpr Flag16() = default;
    constexpr Flag16(bool value) : raw(value ? -1 : 0) {}
    constexpr operator bool() const { return raw == -1; }

    /// A flag with the given bit pattern, as a record of foreign origin may hold it.
    static constexpr Flag16 FromRaw(std::int16_t raw) {
        Flag16 flag;
        flag.raw = raw;
        return flag;
    }
};

}  // namespace korvane
