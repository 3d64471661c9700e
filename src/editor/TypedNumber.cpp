#include "editor/TypedNumber.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr int kDecimals = 6;

}  // namespace

double TypedNumber(std::string_view text) {
    constexpr double kLargest = 1e9;
    return std::clamp(NumericValue(text), -kLargest, kLargest);
}

float TypedCoordinate(std::string_view text) {
    return static_cast<float>(Round(TypedNumber(text), kDecimals));
}

std::string BoxText(double value) {
    return FormatFixed(Round(value, kDecimals), 0, kDecimals);
}

}  // namespace korvane
