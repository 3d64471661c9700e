#include "base/SingleByteText.h"

#include <array>
#include <cstdint>

namespace korvane {
namespace {

/// The code points of bytes 0x80..0x9F; unassigned bytes stand for themselves.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CodePointOf(std::uint8_t byte) {
    return byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80] : byte;
}

/// Whether the code page holds the character; `byte` receives its place.
bool ByteOf(char32_t code, std::uint8_t& byte) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
        byte = static_cast<std::uint8_t>(code);
        return true;
    }
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == code) {
            byte = static_cast<std::uint8_t>(0x80 + i);
            return true;
        }
    }
    return false;
}

void AppendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

/// Whether UTF-8 spells the code in that many bytes; longer spellings and surrogates are malformed.
bool IsSpelledIn(std::size_t length, char32_t code) {
    if (length == 3) return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
    return length < 4 || (code >= 0x10000 && code <= 0x10FFFF);
}

/// Takes the next character off the front of `text`; a malformed byte is taken alone.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<std::uint8_t>(text.front());
    std::size_t length = 1;
    char32_t code = lead;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        code = lead & 0x07;
    }
    if (length > text.size()) length = 0;
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(text[i]);
        if ((next & 0xC0) != 0x80) {
            length = 0;
            break;
        }
        code = (code << 6) | (next & 0x3F);
    }
    if (length == 0 || !IsSpelledIn(length, code)) {  // not UTF-8: the byte stands for itself
        text.remove_prefix(1);
        return lead;
    }
    text.remove_prefix(length);
    return code;
}

std::uint8_t LowerByte(std::uint8_t b) {
    if ((b >= 'A' && b <= 'Z') || (b >= 0xC0 && b <= 0xDE && b != 0xD7)) return b + 0x20;
    if (b == 0x8A || b == 0x8C || b == 0x8E) return b + 0x10;
    return b == 0x9F ? 0xFF : b;
}

std::uint8_t UpperByte(std::uint8_t b) {
    if ((b >= 'a' && b <= 'z') || (b >= 0xE0 && b <= 0xFE && b != 0xF7)) return b - 0x20;
    if (b == 0x9A || b == 0x9C || b == 0x9E) return b - 0x10;
    return b == 0xFF ? 0x9F : b;
}

template <typename ChangeByte>
std::string WithCase(std::string_view utf8, ChangeByte change) {
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t code = TakeCharacter(utf8);
        std::uint8_t byte;
        AppendUtf8(out, ByteOf(code, byte) ? CodePointOf(change(byte)) : code);
    }
    return out;
}

}  // namespace

std::string ToSingleByte(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t code = TakeCharacter(utf8);
        std::uint8_t byte;
        if (!ByteOf(code, byte)) byte = static_cast<std::uint8_t>(code & 0xFF);
        out += static_cast<char>(byte);
    }
    return out;
}

std::string FromSingleByte(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (const char c : bytes) AppendUtf8(out, CodePointOf(static_cast<std::uint8_t>(c)));
    return out;
}

std::string ValidUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) AppendUtf8(out, TakeCharacter(text));
    return out;
}

std::size_t CharacterCount(std::string_view utf8) {
    std::size_t count = 0;
    for (; !utf8.empty(); ++count) TakeCharacter(utf8);
    return count;
}

std::string LowerCase(std::string_view utf8) {
    return WithCase(utf8, LowerByte);
}

std::string UpperCase(std::string_view utf8) {
    return WithCase(utf8, UpperByte);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return a == b || LowerCase(a) == LowerCase(b);
}

}  // namespace korvane
