#include "base/Rounding.h"

#include <array>
#include <cmath>
#include <limits>

namespace korvane {
namespace {

std::int32_t Clamped(double whole) {
    constexpr double kMin = std::numeric_limits<std::int32_t>::min();
    constexpr double kMax = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(whole)) return 0;
    if (whole <= kMin) return std::numeric_limits<std::int32_t>::min();
    if (whole >= kMax) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(whole);
}

}  // namespace

double Int(double x) {
    return std::floor(x);
}

double Round(double x) {
    return std::nearbyint(x);  // the default rounding mode: to nearest, ties to even
}

double Round(double x, int digits) {
    static constexpr std::array<double, 16> kPowersOfTen = {
        1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double scale = kPowersOfTen[static_cast<std::size_t>(digits)];
    return std::nearbyint(x * scale) / scale;
}

std::int32_t RoundToInt(double x) {
    return Clamped(Round(x));
}

std::int32_t FloorToInt(double x) {
    return Clamped(Int(x));
}

}  // namespace korvane
