// Numbers in the text boxes of the dialogs.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// The number in the box. Numbers without use are cut off at a thousand million, so that whatever
/// is computed from them stays finite.
double TypedNumber(std::string_view text);

/// The number in the box rounded to 6 decimals, as the dialogs take it over.
float TypedCoordinate(std::string_view text);

/// A computed number for a box, rounded to 6 decimals, without trailing zeros.
std::string BoxText(double value);

}  // namespace korvane
