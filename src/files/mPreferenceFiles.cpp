#include "files/mPreferenceFiles.h"

namespace korvane {

void WriteColor(FileWriter& file, Color color) {
    file.WriteLong(static_cast<std::int32_t>(color));
}

void ReadColor(FileReader& file, Color& color) {
    constexpr Color kUsed = 0xFFFFFF;
    const std::int32_t value = file.ReadLong();
    if (file.Good()) color = static_cast<Color>(value) & kUsed;
}

void ReadKeyCode(FileReader& file, std::int16_t& code) {
    const std::int32_t value = file.ReadLong();
    if (!file.Good()) return;
    const auto narrow = static_cast<std::int16_t>(value);
    code = narrow == value ? narrow : std::int16_t{0};
}

std::vector<std::uint8_t> EncodeColorScheme(const ColorScheme& scheme) {
    FileWriter file;
    file.WriteTag("KVCS");
    for (const Color color : scheme.colors) WriteColor(file, color);
    return file.TakeBytes();
}

std::optional<ColorScheme> DecodeColorScheme(std::span<const std::uint8_t> bytes,
                                             const ColorScheme& rest) {
    FileReader file(bytes);
    if (file.ReadTag() != "KVCS") return std::nullopt;
    ColorScheme scheme = rest;
    for (Color& color : scheme.colors)
        if (!file.AtEnd()) ReadColor(file, color);
    return file.Good() ? std::optional(scheme) : std::nullopt;
}

std::vector<std::uint8_t> EncodeKeyMap(const KeyMap& map) {
    FileWriter file;
    file.WriteTag("KVKM");
    for (const int slot : KeyDisplayOrder()) file.WriteLong(map.codes[slot]);
    return file.TakeBytes();
}

std::optional<KeyMap> DecodeKeyMap(std::span<const std::uint8_t> bytes, const KeyMap& rest) {
    FileReader file(bytes);
    if (file.ReadTag() != "KVKM") return std::nullopt;
    KeyMap map = rest;
    for (const int slot : KeyDisplayOrder())
        if (!file.AtEnd()) ReadKeyCode(file, map.codes[slot]);
    return file.Good() ? std::optional(map) : std::nullopt;
}

}  // namespace korvane
