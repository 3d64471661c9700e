// The TGA decoder, over bytes in memory so that it needs neither a file nor a toolkit, and the
// image record that every decoder fills.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// An image as OpenGL takes it: rows without padding, bottom row first, three bytes per pixel in
/// the order blue, green, red.
struct cDIBSection {
    std::int32_t width = 0;   ///< pixels
    std::int32_t height = 0;  ///< pixels
    std::vector<std::uint8_t> pixels;
};

/// Results of the image decoders.
enum ImageCode : std::int16_t {
    ImageLoaded = 0,
    ImageDepthTooLow = -1,    ///< TGA of less than 24 bits per pixel
    ImageTypeUnknown = -2,    ///< TGA neither plain nor run-length true colour
    ImageNotCreated = -3,     ///< no image of that size and depth can be made
    ImageFileMissing = -4,    ///< no such file
    ImageIsFolder = -5,       ///< the path names a folder
    ImageFormatRefused = -6,  ///< the picture loader could not read the file
};

/// No decoder makes an image of more bytes than this.
inline constexpr std::int64_t kMaxImageBytes = std::int64_t{128} << 20;

/// Decodes a TGA file of type 2 (plain) or 10 (run-length) with 24 or 32 bits per pixel; alpha is
/// dropped. Bytes past the end of the file read as 0. Memory is taken only for images up to
/// 1024 x 1024 or of a size that a file of this length can hold; others give ImageNotCreated.
/// `image` is changed on success only.
ImageCode DecodeTGA(std::span<const std::uint8_t> file, cDIBSection& image);

}  // namespace korvane
