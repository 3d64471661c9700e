// The multi-byte field kinds as bytes: little-endian on every host.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

namespace korvane {

static_assert(sizeof(float) == 4 && std::numeric_limits<float>::is_iec559,
              "files hold IEEE 754 binary32");

/// value with its bytes in file order; its own inverse.
constexpr std::uint32_t FileOrder(std::uint32_t value) {
    if constexpr (std::endian::native == std::endian::little) return value;
    return (value << 24) | ((value & 0xFF00) << 8) | ((value >> 8) & 0xFF00) | (value >> 24);
}

/// Stores 2 bytes at `to` and returns the place behind them.
inline std::uint8_t* StoreShort(std::uint8_t* to, std::uint16_t value) {
    to[0] = static_cast<std::uint8_t>(value & 0xFF);
    to[1] = static_cast<std::uint8_t>(value >> 8);
    return to + 2;
}

/// Stores 4 bytes at `to` and returns the place behind them.
inline std::uint8_t* StoreLong(std::uint8_t* to, std::int32_t value) {
    const std::uint32_t bits = FileOrder(static_cast<std::uint32_t>(value));
    std::memcpy(to, &bits, sizeof bits);
    return to + sizeof bits;
}
inline std::uint8_t* StoreSingle(std::uint8_t* to, float value) {
    return StoreLong(to, std::bit_cast<std::int32_t>(value));
}

/// The field of 4 bytes at `from`.
inline std::int32_t FetchLong(const std::uint8_t* from) {
    std::uint32_t bits;
    std::memcpy(&bits, from, sizeof bits);
    return static_cast<std::int32_t>(FileOrder(bits));
}
inline float FetchSingle(const std::uint8_t* from) {
    return std::bit_cast<float>(FetchLong(from));
}

}  // namespace korvane
