// Lines, rectangles and dots in a 32-bit pixel surface, for the 2D views: thousands of short lines
// a repaint, where a general painter spends most of its time on set-up.
//
// One rule for lines: both ends are rounded to pixels (halves to even), the lower end along the
// longer axis comes first, and each step takes the nearer pixel across, halves away from that end.
// Clipping never moves a line: what is seen of it is what an endless surface would show.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// A pixel surface that it does not own: rows of `stride` pixels 0xFFRRGGBB. Everything is clipped
/// to width x height.
struct Raster2D {
    std::uint32_t* pixels = nullptr;
    std::int32_t stride = 0;  ///< pixels from one row to the next
    std::int32_t width = 0;
    std::int32_t height = 0;

    std::uint32_t* Row(std::int32_t y) const {
        return pixels + static_cast<std::ptrdiff_t>(y) * stride;
    }
};

/// A pixel, possibly outside the surface. Coordinates lie within kPixelReach.
struct Pixel {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const Pixel&, const Pixel&) = default;
};

/// Pixel coordinates stay within +-kPixelReach, so that no arithmetic on them overflows.
inline constexpr std::int32_t kPixelReach = 1 << 29;

/// Whether the coordinate can be rounded to a pixel; false for what is not a number.
inline bool InReach(double coordinate) {
    return coordinate >= -kPixelReach && coordinate <= kPixelReach;
}

/// The nearest pixel coordinate, halves to even, for a coordinate in reach.
inline std::int32_t NearestPixel(double coordinate) {
    constexpr double kShift = 6755399441055744.0;  // 1.5 * 2^52: its sums have no fraction left
    return static_cast<std::int32_t>((coordinate + kShift) - kShift);
}

/// Fills x1..x2 by y1..y2, both ends included.
void FillRect(const Raster2D& raster, std::int32_t x1, std::int32_t y1, std::int32_t x2,
              std::int32_t y2, std::uint32_t color);

/// Draws the line from a to b, both included, one pixel thin.
void DrawLine(const Raster2D& raster, Pixel a, Pixel b, std::uint32_t color);

/// As above for two pixels that are known to lie on the surface.
void DrawLineInside(const Raster2D& raster, Pixel a, Pixel b, std::uint32_t color);

/// Draws the line between any two points. Ends out of reach are first cut back along the line, and
/// ends that are not finite draw nothing.
void DrawLine(const Raster2D& raster, double x1, double y1, double x2, double y2,
              std::uint32_t color);

/// A round dot prepared for drawing: the filled pixels of each row, relative to its centre.
struct DotStamp {
    struct Span {
        std::int32_t y, x1, x2;
    };
    std::vector<Span> rows;
    std::int32_t diameter = 0;
    std::int32_t reach = 0;  ///< pixels that it extends from its centre at most
};

/// The dot of a pen of that width, 1 or more. An even width extends one pixel further to the left
/// and top.
DotStamp MakeDotStamp(std::int32_t diameter);

/// Draws the dot.
void DrawDot(const Raster2D& raster, Pixel centre, const DotStamp& stamp, std::uint32_t color);

}  // namespace korvane
