// The two roundings of the system. They differ: Int is the floor, Round goes to the nearest value
// with halves to even.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvane {

/// The largest whole number not above x.
double Int(double x);

/// The whole number nearest to x; a half goes to the even neighbour.
double Round(double x);

/// x rounded to `digits` decimal places (0..15), halves to even.
double Round(double x, int digits);

/// Round(x) as a 32-bit integer. Values outside its range, and NaN, give the nearest bound or 0.
std::int32_t RoundToInt(double x);

/// x, or what an exported file holds in its place where x is no finite number: the nearest one, and
/// 0 for NaN.
inline float Finite(float x) {
    constexpr float kMost = std::numeric_limits<float>::max();
    return x != x ? 0 : std::clamp(x, -kMost, kMost);
}

/// Int(x) as a 32-bit integer, with the same treatment of values outside the range.
std::int32_t FloorToInt(double x);

}  // namespace korvane
