// Numbers as the user reads and types them: always with a point, whatever the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// value with at least `minDecimals` and at most `maxDecimals` decimal places and at least one
/// digit before the point: (1, 1) is the format "##0.0", (2, 2) "##0.00", (1, 2) "####0.0#". A
/// result that shows only zeros carries no minus sign.
std::string FormatFixed(double value, int minDecimals, int maxDecimals);

/// value in decimal, padded with zeros to at least `digits` digits and never cut ("0000").
std::string FormatPadded(std::int64_t value, int digits);

/// value with a comma between every three digits ("###,###,##0").
std::string FormatGrouped(std::int64_t value);

/// value in the shortest general form that reads back to the same 32-bit float.
std::string FormatGeneral(float value);

/// Appends value rounded to 6 decimal places, halves to even, in the shortest form without an
/// exponent: "1", "0.5", "-0.123457". Zero carries no minus sign. What is no number is as Finite
/// (Rounding.h) gives it.
void AppendRounded(std::string& out, float value);

/// The number that `text` starts with (leading blanks skipped, "." as decimal separator, an
/// exponent allowed); 0 when it starts with none.
double NumericValue(std::string_view text);

}  // namespace korvane
