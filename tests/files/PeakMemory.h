// How much memory a piece of code holds at most.
#pragma once

#include <cstddef>

namespace korvane::test {

/// Forgets the peak so far and returns the bytes allocated now.
std::size_t StartPeak();

/// The most bytes that were allocated at one time since StartPeak.
std::size_t PeakBytes();

}  // namespace korvane::test
