#include "Fuzz.h"
#include "textures/core/mTGA.h"

namespace korvane::fuzz {
namespace {

/// Whether the header claims a picture that is mostly the zeros behind the end of a short file:
/// much time for the same code. One in 16 of them will do.
bool IsTedious(Input input) {
    constexpr std::size_t kHeader = 18;
    constexpr std::int64_t kLarge = 1 << 16;
    if (input.size() < kHeader) return false;
    const auto side = [&](std::size_t at) { return std::int64_t{input[at] | input[at + 1] << 8}; };
    return side(12) * side(14) > kLarge && input.back() % 16 != 0;
}

}  // namespace

void CheckTga(Input input) {
    if (IsTedious(input)) return;
    constexpr std::size_t kAnyFile =
        1024 * 1024 * 3;  // what may be taken however short the file is
    constexpr std::size_t kMostExpansion = 96;
    constexpr std::size_t kMostCompared = 1 << 18;

    cDIBSection image;
    {
        const HeapMeter meter;
        const ImageCode code = DecodeTGA(input, image);
        meter.RequireWithin(kAnyFile + Allowance(input, kMostExpansion));
        if (code != ImageLoaded) {
            Require(image.width == 0 && image.height == 0 && image.pixels.empty(),
                    "a refused file leaves the image alone");
            return;
        }
    }
    Require(image.width > 0 && image.height > 0, "an image has a size");
    Require(image.pixels.size() == 3 * std::size_t(image.width) * std::size_t(image.height),
            "an image has all its pixels");
    if (image.pixels.size() > kMostCompared) return;
    cDIBSection again;
    const Bytes plain = MakeTga({image.width, image.height}, image.pixels);
    Require(DecodeTGA(plain, again) == ImageLoaded && again.pixels == image.pixels &&
                again.width == image.width,
            "an image stored plainly comes back");
}

}  // namespace korvane::fuzz
