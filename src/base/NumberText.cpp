#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/Rounding.h"

namespace korvane {
namespace {

/// Cuts trailing zeros behind the point down to `minDecimals` places.
void TrimDecimals(std::string& text, int minDecimals) {
    const auto point = text.find('.');
    if (point == std::string::npos) return;
    const std::size_t shortest = point + 1 + static_cast<std::size_t>(minDecimals);
    while (text.size() > shortest && text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
}

/// Whether a number too large or too small for a double is one too small.
bool IsTiny(std::string_view number) {
    const auto exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) return number[exponent + 1] == '-';
    return number.find_first_of("123456789") > number.find('.');
}

bool ShowsOnlyZeros(std::string_view text) {
    return text.find_first_of("123456789in") == std::string_view::npos;
}

}  // namespace

std::string FormatFixed(double value, int minDecimals, int maxDecimals) {
    std::array<char, 400> buffer;  // the longest double has 309 digits before the point
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, maxDecimals)
                         .ptr;
    std::string text(buffer.data(), end);
    TrimDecimals(text, minDecimals);
    if (text.front() == '-' && ShowsOnlyZeros(text)) text.erase(0, 1);
    return text;
}

std::string FormatPadded(std::int64_t value, int digits) {
    std::string text = std::to_string(value < 0 ? -value : value);
    if (static_cast<int>(text.size()) < digits) text.insert(0, digits - text.size(), '0');
    return value < 0 ? "-" + text : text;
}

std::string FormatGrouped(std::int64_t value) {
    std::string text = std::to_string(value);
    const std::ptrdiff_t firstDigit = value < 0 ? 1 : 0;
    for (std::ptrdiff_t at = std::ssize(text) - 3; at > firstDigit; at -= 3) {
        text.insert(static_cast<std::size_t>(at), 1, ',');
    }
    return text;
}

std::string FormatGeneral(float value) {
    if (value == 0) return "0";
    std::array<char, 64> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return std::string(buffer.data(), end);
}

void AppendRounded(std::string& out, float value) {
    constexpr std::int64_t kScale = 1'000'000;
    const double scaled = Round(double{value} * kScale);  // exact before it is rounded
    if (!(std::abs(scaled) < 1e15)) {
        out += FormatFixed(Finite(value), 0, 6);
        return;
    }
    const auto units = static_cast<std::int64_t>(std::abs(scaled));
    if (scaled < 0) out += '-';
    std::array<char, 24> buffer;
    char* end = std::to_chars(buffer.data(), buffer.data() + 16, units / kScale).ptr;
    if (std::int64_t decimals = units % kScale; decimals != 0) {
        *end++ = '.';
        for (std::int64_t place = kScale / 10; decimals != 0; decimals %= place, place /= 10)
            *end++ = static_cast<char>('0' + decimals / place);
    }
    out.append(buffer.data(), end);
}

double NumericValue(std::string_view text) {
    const auto start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    const bool plus = text.front() == '+';
    if (plus) text.remove_prefix(1);
    // from_chars would also read "inf" and "nan", which are letters here.
    const auto first = plus ? 0 : text.find_first_not_of('-');
    if (first >= text.size() || first > 1) return 0;
    if (text[first] != '.' && (text[first] < '0' || text[first] > '9')) return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (IsTiny(text.substr(0, static_cast<std::size_t>(result.ptr - text.data())))) return 0;
        return text.front() == '-' ? -HUGE_VAL : HUGE_VAL;
    }
    return result.ec == std::errc() ? value : 0;
}

}  // namespace korvane
