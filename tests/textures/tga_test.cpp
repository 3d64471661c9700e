// The TGA decoder: what it reads, what it refuses and why, and what it makes of damaged files.
#include <gtest/gtest.h>

#include "textures/core/mTGA.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Header {
    int type = 2;
    int width = 2;
    int height = 2;
    int depth = 24;
    int descriptor = 0;
    int idLength = 0;
};

Bytes Tga(const Header& h, const Bytes& data) {
    Bytes file(18);
    const auto set = [&file](std::size_t at, int value) {
        file[at] = static_cast<std::uint8_t>(value & 0xFF);
    };
    set(0, h.idLength);
    set(2, h.type);
    set(12, h.width);
    set(13, h.width >> 8);
    set(14, h.height);
    set(15, h.height >> 8);
    set(16, h.depth);
    set(17, h.descriptor);
    file.insert(file.end(), std::size_t(h.idLength), 0xEE);
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

struct Case {
    const char* what;
    Bytes file;
    Bytes pixels;  ///< expected, bottom row first
    int width = 2, height = 2;
};

TEST(TgaTest, ReadsPixels) {
    const Bytes four = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const Bytes turned = {7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6};
    const Bytes withAlpha = {1, 2, 3, 99, 4, 5, 6, 98, 7, 8, 9, 97, 10, 11, 12, 96};
    const Bytes run = {1, 2, 3, 1, 2, 3, 1, 2, 3, 7, 8, 9};
    const Case cases[] = {
        {"24 bits", Tga({}, four), four},
        {"32 bits lose their alpha", Tga({.depth = 32}, withAlpha), four},
        {"top row first", Tga({.descriptor = 0x20}, four), turned},
        {"an odd number of rows, top row first",
         Tga({.width = 1, .height = 3, .descriptor = 0x20}, {1, 1, 1, 2, 2, 2, 3, 3, 3}),
         {3, 3, 3, 2, 2, 2, 1, 1, 1},
         1,
         3},
        {"other descriptor bits mean nothing", Tga({.descriptor = 0xDF}, four), four},
        {"image ID is skipped", Tga({.idLength = 255}, four), four},
        {"bytes behind the pixels", Tga({}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}), four},
        {"plain file cut short", Tga({}, {1, 2, 3, 4}), {1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"plain file without pixels", Tga({}, {}), Bytes(12)},
        {"packets: a run, a literal", Tga({.type = 10}, {0x82, 1, 2, 3, 0x00, 7, 8, 9}), run},
        {"a run crosses rows and is cut",
         Tga({.type = 10}, {0xFF, 1, 2, 3}),
         {1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3}},
        {"literals are cut",
         Tga({.type = 10}, {0x05, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}),
         four},
        {"packets longer than the plain image",
         Tga({.type = 10}, {0, 1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12}), four},
        {"32 bits in packets",
         Tga({.type = 10, .depth = 32}, {0x81, 1, 2, 3, 99, 0x01, 4, 5, 6, 98, 7, 8, 9, 97}),
         {1, 2, 3, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
        {"packets, top row first",
         Tga({.type = 10, .descriptor = 0x20}, {0x03, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
         turned},
        {"packets end early",
         Tga({.type = 10}, {0x00, 1, 2, 3}),
         {1, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"a packet ends inside a pixel",
         Tga({.type = 10}, {0x83, 9}),
         {9, 0, 0, 9, 0, 0, 9, 0, 0, 9, 0, 0}},
        {"large, of full runs",
         Tga({.type = 10, .width = 2048, .height = 2048}, Bytes(2048 * 2048 / 128 * 4, 0xFF)),
         Bytes(2048 * 2048 * 3, 0xFF), 2048, 2048},
    };
    for (const Case& c : cases) {
        cDIBSection image;
        EXPECT_EQ(DecodeTGA(c.file, image), ImageLoaded) << c.what;
        EXPECT_EQ(image.width, c.width) << c.what;
        EXPECT_EQ(image.height, c.height) << c.what;
        EXPECT_EQ(image.pixels, c.pixels) << c.what;
    }
}

TEST(TgaTest, RefusesInTheOrderOfItsTests) {
    struct Refused {
        const char* what;
        Bytes file;
        ImageCode code;
    };
    const Bytes data(64);
    const Refused cases[] = {
        {"an empty file", {}, ImageDepthTooLow},
        {"half a header", Bytes(9, 2), ImageDepthTooLow},
        {"16 bits", Tga({.depth = 16}, data), ImageDepthTooLow},
        {"a colour map of 8 bits: depth comes first", Tga({.type = 1, .depth = 8}, data),
         ImageDepthTooLow},
        {"a colour map of 24 bits", Tga({.type = 1}, data), ImageTypeUnknown},
        {"a colour map of 32 bits and no size", Tga({.type = 1, .width = 0, .depth = 32}, data),
         ImageTypeUnknown},
        {"grey", Tga({.type = 3}, data), ImageTypeUnknown},
        {"no image", Tga({.type = 0}, data), ImageTypeUnknown},
        {"25 bits", Tga({.depth = 25}, data), ImageNotCreated},
        {"48 bits", Tga({.depth = 48}, data), ImageNotCreated},
        {"no width", Tga({.width = 0}, data), ImageNotCreated},
        {"no height", Tga({.height = 0}, data), ImageNotCreated},
        {"negative width", Tga({.width = -2}, data), ImageNotCreated},
        {"negative height", Tga({.height = -32768}, data), ImageNotCreated},
        {"claims much, holds little", Tga({.width = 32767, .height = 32767}, data),
         ImageNotCreated},
        {"less than full runs can be", Tga({.type = 10, .width = 2048, .height = 2048}, data),
         ImageNotCreated},
    };
    for (const Refused& c : cases) {
        cDIBSection image{7, 7, {1}};
        EXPECT_EQ(DecodeTGA(c.file, image), c.code) << c.what;
        EXPECT_EQ(image.width, 7) << c.what << ": the image is left alone";
    }
}

}  // namespace
}  // namespace korvane
