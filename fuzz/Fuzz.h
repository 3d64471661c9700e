// What the fuzz targets share: the checks, one a reader, and the means to state what has to hold.
//
// A check takes the bytes of a file from anywhere. It goes on where the reader refuses them, and
// ends the program where a property does not hold. fuzzer.cpp makes a libFuzzer program of each
// check; replay.cpp runs all of them over the seeds and over what was once found.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "scene/Scene.h"

namespace korvane::fuzz {

using Bytes = std::vector<std::uint8_t>;
using Input = std::span<const std::uint8_t>;

void CheckObject(Input input);
void CheckSnapshot(Input input);
void CheckSettings(Input input);
void CheckColorScheme(Input input);
void CheckKeyMap(Input input);
void CheckTemplate(Input input);
void CheckTga(Input input);
void CheckRecord(Input input);

/// A check and the name of its program, dictionary, seeds and findings.
struct Target {
    const char* name;
    void (*check)(Input);
};
inline constexpr Target kTargets[] = {{"object", CheckObject},     {"snapshot", CheckSnapshot},
                                      {"settings", CheckSettings}, {"scheme", CheckColorScheme},
                                      {"keymap", CheckKeyMap},     {"template", CheckTemplate},
                                      {"tga", CheckTga},           {"record", CheckRecord}};

/// Prints the property and aborts when it does not hold.
void Require(bool holds, const char* property);

/// Measures the memory taken from its making on.
class HeapMeter {
  public:
    HeapMeter();
    ~HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    /// Requires that no more bytes than these were held at one time.
    void RequireWithin(std::size_t bytes) const;
};

/// What a reader may hold for an input that it makes `times` as much of, and for small things.
constexpr std::size_t Allowance(Input input, std::size_t times) {
    return times * input.size() + 16384;
}

/// Whether two lists of numbers are equal bit by bit, so that NaN equals itself.
inline bool SameBits(std::span<const float> a, std::span<const float> b) {
    return std::ranges::equal(a, b, [](float x, float y) {
        return std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y);
    });
}

/// A file to start from.
struct Seed {
    std::string target;
    std::string name;
    Bytes bytes;
};

/// Varied files of every format, made by the program's own writers.
std::vector<Seed> Seeds();

/// What a TGA file holds beside its pixels.
struct TgaShape {
    int width = 0;
    int height = 0;
    int type = 2;        ///< 2 plain, 10 run-length
    int depth = 24;      ///< bits a pixel
    int descriptor = 0;  ///< 0x20: top row first
};

/// A TGA file of the data given.
Bytes MakeTga(const TgaShape& shape, Input data);

}  // namespace korvane::fuzz
