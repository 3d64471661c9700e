// The raster of the 2D views against a plain walk over every step of an endless surface.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "views/ui/Raster2D.h"

namespace korvane {
namespace {

constexpr std::uint32_t kInk = 0xFF123456;
constexpr int kWidth = 37;
constexpr int kHeight = 23;
constexpr int kBorder = 3;  // pixels around the surface that nothing may touch

/// A surface inside a larger block of memory.
struct Sheet {
    std::vector<std::uint32_t> memory =
        std::vector<std::uint32_t>((kWidth + 2 * kBorder) * (kHeight + 2 * kBorder), 0);
    static constexpr int kStride = kWidth + 2 * kBorder;

    Raster2D Raster() {
        return {memory.data() + kBorder * kStride + kBorder, kStride, kWidth, kHeight};
    }
    std::uint32_t& At(int x, int y) {
        return memory[static_cast<std::size_t>((y + kBorder) * kStride + x + kBorder)];
    }
    long Inked() const { return std::count(memory.begin(), memory.end(), kInk); }
};

__extension__ using Wide = __int128;

/// Sets the visible pixels of the line one step at a time.
void ReferenceLine(Sheet& sheet, Pixel a, Pixel b) {
    const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    if (steep) std::swap(a.x, a.y), std::swap(b.x, b.y);
    if (b.x < a.x) std::swap(a, b);
    const Wide length = b.x - a.x;
    const Wide rise = std::abs(b.y - a.y);
    const int end = steep ? kHeight : kWidth;
    for (int x = std::max(a.x, 0); x <= std::min(b.x, end - 1); ++x) {
        const Wide moved = length == 0 ? 0 : (2 * (Wide{x} - a.x) * rise + length) / (2 * length);
        const Wide across = b.y < a.y ? a.y - moved : a.y + moved;
        const bool visible = across >= 0 && across < (steep ? kWidth : kHeight);
        if (!visible) continue;
        const int y = static_cast<int>(across);
        sheet.At(steep ? y : x, steep ? x : y) = kInk;
    }
}

TEST(Raster2D, ClippedLinesShowThePixelsOfTheUnclippedOnes) {
    std::mt19937 random(7);
    int visible = 0;
    for (const int reach : {20, 60, 400, 100'000, kPixelReach}) {
        std::uniform_int_distribution<int> coordinate(-reach, reach);
        for (int i = 0; i < 4000; ++i) {
            Pixel a{coordinate(random), coordinate(random)};
            Pixel b{coordinate(random), coordinate(random)};
            if (reach > 400) {  // aim the long ones at the surface
                a.x = std::clamp(kWidth / 2 + (kWidth / 2 - b.x) / (1 + i % 7) + i % 9,
                                 -kPixelReach, kPixelReach);
                a.y = kHeight / 2 + (kHeight / 2 - b.y) / (1 + i % 7) + i % 5;
            }
            Sheet drawn, reference;
            i % 2 == 0 ? DrawLine(drawn.Raster(), a, b, kInk)
                       : DrawLine(drawn.Raster(), b, a, kInk);
            ReferenceLine(reference, a, b);
            ASSERT_EQ(drawn.memory, reference.memory)
                << '(' << a.x << ", " << a.y << ") to (" << b.x << ", " << b.y << ')';
            visible += reference.Inked() > 0;
        }
    }
    EXPECT_GT(visible, 5000) << "the lines must meet the surface for this to mean anything";
}

TEST(Raster2D, EndsAreRoundedAndWhatIsFarOrNotANumberIsHarmless) {
    Sheet rounded;
    DrawLine(rounded.Raster(), 2.5, 3.5, 6.49, 3.6, kInk);
    EXPECT_EQ(rounded.Inked(), 5);
    EXPECT_EQ(rounded.At(2, 4), kInk) << "halves go to the even one";
    EXPECT_EQ(rounded.At(6, 4), kInk);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    Sheet sheet;
    for (const double bad : {nan, infinite, -infinite}) {
        DrawLine(sheet.Raster(), bad, 1, 5, 5, kInk);
        DrawLine(sheet.Raster(), 1, 1, 5, bad, kInk);
    }
    DrawLine(sheet.Raster(), 1e12, 1, 1e12, 5, kInk);
    EXPECT_EQ(sheet.Inked(), 0);
    DrawLine(sheet.Raster(), -1e41, 5, 1e41, 5, kInk);
    EXPECT_EQ(sheet.Inked(), kWidth);
    DrawLine(sheet.Raster(), 5, 1e300, 5, -1e300, kInk);
    EXPECT_EQ(sheet.Inked(), kWidth + kHeight - 1);
}

TEST(Raster2D, RectanglesIncludeBothEndsAndAreClipped) {
    Sheet sheet;
    FillRect(sheet.Raster(), 2, 3, 4, 4, kInk);
    EXPECT_EQ(sheet.Inked(), 6);
    EXPECT_EQ(sheet.At(4, 4), kInk);
    FillRect(sheet.Raster(), 5, 5, 4, 9, kInk);
    EXPECT_EQ(sheet.Inked(), 6);
    FillRect(sheet.Raster(), -kPixelReach, -9, kPixelReach, 900, kInk);
    EXPECT_EQ(sheet.Inked(), kWidth * kHeight);
}

TEST(Raster2D, DotsAreRoundAndClipped) {
    const struct {
        int diameter;
        long pixels;
    } cases[] = {{1, 1}, {5, 21}, {8, 52}, {10, 80}};
    for (const auto& [diameter, pixels] : cases) {
        Sheet inside;
        DrawDot(inside.Raster(), {12, 12}, MakeDotStamp(diameter), kInk);
        EXPECT_EQ(inside.Inked(), pixels) << diameter;
    }
    for (const Pixel centre : {Pixel{0, 0}, {kWidth - 1, 5}, {5, kHeight - 1}, {-2, 4}, {4, -99}}) {
        Sheet edge;
        DrawDot(edge.Raster(), centre, MakeDotStamp(5), kInk);
        for (int y = -kBorder; y < kHeight + kBorder; ++y)
            for (int x = -kBorder; x < kWidth + kBorder; ++x) {
                const int dx = std::abs(x - centre.x), dy = std::abs(y - centre.y);
                const bool onDot = std::max(dx, dy) <= 2 && dx + dy < 4;
                const bool onSheet = x >= 0 && x < kWidth && y >= 0 && y < kHeight;
                EXPECT_EQ(edge.At(x, y) == kInk, onDot && onSheet) << x << ' ' << y;
            }
    }
}

}  // namespace
}  // namespace korvane
