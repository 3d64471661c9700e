// The files that the preferences dialog stores: colour schemes (.kvcs) and keyboard maps (.kvkm).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "files/FileBuffer.h"
#include "files/Settings.h"

namespace korvane {

/// The scheme as the bytes of a colour-scheme file.
std::vector<std::uint8_t> EncodeColorScheme(const ColorScheme& scheme);

/// The scheme of a colour-scheme file, or nothing when the bytes are none. Items that a shorter
/// file lacks are those of `rest`.
std::optional<ColorScheme> DecodeColorScheme(std::span<const std::uint8_t> bytes,
                                             const ColorScheme& rest);

/// The map as the bytes of a keyboard-map file, whose order is the display order.
std::vector<std::uint8_t> EncodeKeyMap(const KeyMap& map);

/// The map of a keyboard-map file, or nothing when the bytes are none. Functions that a shorter
/// file lacks keep their keys of `rest`.
std::optional<KeyMap> DecodeKeyMap(std::span<const std::uint8_t> bytes, const KeyMap& rest);

/// A colour as a Long of any of the files; reading ignores its unused byte, and leaves the colour
/// alone beyond the end.
void WriteColor(FileWriter& file, Color color);
void ReadColor(FileReader& file, Color& color);

/// A key code from a Long of any of the files, left alone beyond the end. One of more than 16 bits
/// reads as no key.
void ReadKeyCode(FileReader& file, std::int16_t& code);

}  // namespace korvane
