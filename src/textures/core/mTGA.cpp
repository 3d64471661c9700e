#include "textures/core/mTGA.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr std::size_t kHeaderSize = 18;
constexpr std::uint8_t kPlain = 2;
constexpr std::uint8_t kRunLength = 10;
constexpr std::uint8_t kTopRowFirst = 0x20;
constexpr std::int64_t kAlwaysAffordable = 1024 * 1024 * 3;
/// A run of 128 pixels takes at least 4 bytes in the file and 384 in the image.
constexpr std::int64_t kMostExpansion = 96;

/// The file as an endless run of bytes: zeros follow its end.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint8_t Byte() { return bytes_.empty() ? std::uint8_t{0} : Take(); }

    /// Copies the first three of `size` bytes and passes over them all.
    void Pixel(std::uint8_t* bgr, std::size_t size) {
        if (bytes_.size() >= size) {
            std::copy_n(bytes_.data(), 3, bgr);
            bytes_ = bytes_.subspan(size);
            return;
        }
        for (std::size_t i = 0; i < size; ++i) {
            const std::uint8_t byte = Byte();
            if (i < 3) bgr[i] = byte;
        }
    }

    void Skip(std::size_t count) { bytes_ = bytes_.subspan(std::min(count, bytes_.size())); }
    std::size_t Remaining() const { return bytes_.size(); }

  private:
    std::uint8_t Take() {
        const std::uint8_t byte = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return byte;
    }

    std::span<const std::uint8_t> bytes_;
};

struct Header {
    std::uint8_t idLength = 0;
    std::uint8_t type = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint8_t depth = 0;
    std::uint8_t descriptor = 0;
};

Header ReadHeader(ByteReader& reader) {
    std::uint8_t raw[kHeaderSize];
    for (std::uint8_t& byte : raw) byte = reader.Byte();
    const auto signed16 = [&](std::size_t at) {
        return static_cast<std::int16_t>(raw[at] | (raw[at + 1] << 8));
    };
    return {raw[0], raw[2], signed16(12), signed16(14), raw[16], raw[17]};
}

ImageCode Check(const Header& header) {
    if (header.depth < 24) return ImageDepthTooLow;
    if (header.type != kPlain && header.type != kRunLength) return ImageTypeUnknown;
    if (header.depth != 24 && header.depth != 32) return ImageNotCreated;
    if (header.width <= 0 || header.height <= 0) return ImageNotCreated;
    return ImageLoaded;
}

bool IsAffordable(std::int64_t imageBytes, std::size_t fileBytes) {
    const std::int64_t fromFile = static_cast<std::int64_t>(fileBytes) * kMostExpansion;
    return imageBytes <= std::max(kAlwaysAffordable, std::min(kMaxImageBytes, fromFile));
}

void DecodePlain(ByteReader& reader, std::size_t pixelSize, std::vector<std::uint8_t>& pixels) {
    for (std::size_t at = 0; at < pixels.size() && reader.Remaining() > 0; at += 3) {
        reader.Pixel(&pixels[at], pixelSize);
    }
}

/// The last packet is cut at the end of the image.
void DecodeRunLength(ByteReader& reader, std::size_t pixelSize, std::vector<std::uint8_t>& pixels) {
    std::size_t at = 0;
    while (at < pixels.size() && reader.Remaining() > 0) {
        const std::uint8_t packet = reader.Byte();
        const bool repeats = packet >= 128;
        const std::size_t count = repeats ? packet - 127U : packet + 1U;
        const std::size_t end = std::min(pixels.size(), at + count * 3);
        const std::size_t start = at;
        for (; at < end; at += 3) {
            if (repeats && at > start) {
                std::copy_n(&pixels[start], 3, &pixels[at]);
            } else {
                reader.Pixel(&pixels[at], pixelSize);
            }
        }
    }
}

void ReverseRows(cDIBSection& image) {
    const std::ptrdiff_t row = std::ptrdiff_t{image.width} * 3;
    auto low = image.pixels.begin();
    auto high = image.pixels.end() - row;
    for (; low < high; low += row, high -= row) std::swap_ranges(low, low + row, high);
}

}  // namespace

ImageCode DecodeTGA(std::span<const std::uint8_t> file, cDIBSection& image) {
    ByteReader reader(file);
    const Header header = ReadHeader(reader);
    if (const ImageCode code = Check(header); code != ImageLoaded) return code;
    reader.Skip(header.idLength);
    const std::int64_t bytes = std::int64_t{header.width} * header.height * 3;
    if (!IsAffordable(bytes, reader.Remaining())) return ImageNotCreated;

    cDIBSection decoded{header.width, header.height, {}};
    decoded.pixels.resize(static_cast<std::size_t>(bytes));
    const std::size_t pixelSize = header.depth / 8U;
    if (header.type == kRunLength) {
        DecodeRunLength(reader, pixelSize, decoded.pixels);
    } else {
        DecodePlain(reader, pixelSize, decoded.pixels);
    }
    if ((header.descriptor & kTopRowFirst) != 0) ReverseRows(decoded);
    image = std::move(decoded);
    return ImageLoaded;
}

}  // namespace korvane
