#include "views/ui/Raster2D.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace korvane {
namespace {

/// A line seen along its longer ("major") axis, which it climbs.
struct Slope {
    bool steep;                 ///< the major axis is y
    std::int32_t major, minor;  ///< coordinates of the first pixel
    std::int32_t length, rise;  ///< 0 <= rise <= length
    std::int32_t direction;     ///< of the minor axis: +1 or -1
};

/// Lines go every way, so that a branch here would be guessed wrong every other time: everything is
/// chosen by conditional moves.
inline Slope SlopeOf(Pixel a, Pixel b) {
    const std::int32_t dx = b.x - a.x;
    const std::int32_t dy = b.y - a.y;
    const bool steep = std::abs(dy) > std::abs(dx);
    const std::int32_t along = steep ? dy : dx;
    const std::int32_t across = steep ? dx : dy;
    const std::int32_t startX = along < 0 ? b.x : a.x;
    const std::int32_t startY = along < 0 ? b.y : a.y;
    const std::int32_t climb = along < 0 ? -across : across;
    return {steep,           steep ? startY : startX, steep ? startX : startY,
            std::abs(along), std::abs(climb),         climb < 0 ? -1 : 1};
}

void FillRow(const Raster2D& raster, std::int32_t y, std::int32_t x1, std::int32_t x2,
             std::uint32_t color) {
    std::fill_n(raster.Row(y) + x1, x2 - x1 + 1, color);
}

/// Draws steps first..last of the line; all of them lie on the surface. After i steps the minor
/// axis has moved floor((2 i rise + length) / (2 length)) pixels.
inline void DrawSteps(const Raster2D& raster, const Slope& s, std::int32_t first, std::int32_t last,
                      std::uint32_t color) {
    std::int64_t moved = 0;
    std::int64_t rest = s.length;
    if (first > 0) {
        const std::int64_t scaled = 2 * std::int64_t{first} * s.rise + s.length;
        moved = scaled / (2 * std::int64_t{s.length});
        rest = scaled % (2 * std::int64_t{s.length});
    }
    const std::int32_t major = s.major + first;
    const auto minor = static_cast<std::int32_t>(s.minor + s.direction * moved);
    const std::int32_t x = s.steep ? minor : major;
    const std::int32_t y = s.steep ? major : minor;
    std::uint32_t* pixel = raster.Row(y) + x;
    const std::ptrdiff_t alongStep = s.steep ? raster.stride : 1;
    const std::ptrdiff_t acrossStep = s.direction * (s.steep ? 1 : std::ptrdiff_t{raster.stride});
    const std::int64_t full = 2 * std::int64_t{s.length};
    const std::int64_t rise = 2 * std::int64_t{s.rise};
    rest -= full;  // reaches 0 where the minor axis moves
    for (std::int32_t i = first; i <= last; ++i) {
        *pixel = color;
        rest += rise;
        const std::int64_t moves = ~(rest >> 63);  // -1 or 0: a branch would be guessed wrong often
        rest -= full & moves;
        pixel += alongStep + (acrossStep & moves);
    }
}

/// Draws the whole line, all of which lies on the surface. The same pixels as DrawSteps, but the
/// minor axis is followed in fixed point, so that no step waits for the one before it. The slope is
/// rounded up by less than 2 units; up to length L that stays below the 2^kFraction / (2 L) units
/// that the exact value keeps away from the next pixel, as long as 4 L^2 < 2^kFraction.
inline void DrawAllSteps(const Raster2D& raster, const Slope& s, std::uint32_t color) {
    constexpr int kFraction = 40;
    constexpr auto kOne = static_cast<double>(std::int64_t{1} << kFraction);
    const std::int64_t slope = static_cast<std::int64_t>(s.rise * kOne / s.length) + 1;
    std::int64_t moved = std::int64_t{1} << (kFraction - 1);
    std::uint32_t* pixel = raster.Row(s.steep ? s.major : s.minor) + (s.steep ? s.minor : s.major);
    const std::ptrdiff_t along = s.steep ? raster.stride : 1;
    const std::ptrdiff_t across = s.direction * (s.steep ? 1 : std::ptrdiff_t{raster.stride});
    for (std::int32_t i = 0; i <= s.length; ++i) {
        pixel[(moved >> kFraction) * across] = color;
        moved += slope;
        pixel += along;
    }
}

/// The smallest step i >= 0 at which the minor axis has moved at least k pixels; k > 0, rise > 0.
std::int64_t FirstStepMoved(const Slope& s, std::int64_t k) {
    const std::int64_t rise = 2 * std::int64_t{s.rise};
    const std::int64_t needed = (2 * k - 1) * s.length;
    return (needed + rise - 1) / rise;
}

/// Cuts the line to the steps that lie on the surface.
void DrawVisibleSteps(const Raster2D& raster, const Slope& s, std::uint32_t color) {
    const std::int32_t majorEnd = (s.steep ? raster.height : raster.width) - 1;
    const std::int32_t minorEnd = (s.steep ? raster.width : raster.height) - 1;
    std::int64_t first = std::max(0, -s.major);
    std::int64_t last = std::min(s.length, majorEnd - s.major);
    // Movement of the minor axis at which the line enters and has not yet left the surface.
    const std::int32_t enter = s.direction > 0 ? -s.minor : s.minor - minorEnd;
    const std::int32_t leave = s.direction > 0 ? minorEnd - s.minor : s.minor;
    if (leave < 0 || enter > s.rise) return;
    if (enter > 0) first = std::max(first, FirstStepMoved(s, enter));
    if (leave < s.rise) last = std::min(last, FirstStepMoved(s, std::int64_t{leave} + 1) - 1);
    if (first > last) return;
    DrawSteps(raster, s, static_cast<std::int32_t>(first), static_cast<std::int32_t>(last), color);
}

bool Contains(const Raster2D& raster, Pixel p) {
    return p.x >= 0 && p.x < raster.width && p.y >= 0 && p.y < raster.height;
}

/// Moves (x, y) along the line to (toX, toY) until x is within reach.
void CutBack(double& x, double& y, double toX, double toY) {
    if (InReach(x)) return;
    const double edge = std::copysign(double{kPixelReach}, x);
    y += (edge - x) / (toX - x) * (toY - y);
    x = edge;
}

}  // namespace

void FillRect(const Raster2D& raster, std::int32_t x1, std::int32_t y1, std::int32_t x2,
              std::int32_t y2, std::uint32_t color) {
    x1 = std::max(x1, 0);
    x2 = std::min(x2, raster.width - 1);
    if (x1 > x2) return;
    for (std::int32_t y = std::max(y1, 0); y <= std::min(y2, raster.height - 1); ++y)
        FillRow(raster, y, x1, x2, color);
}

void DrawLineInside(const Raster2D& raster, Pixel a, Pixel b, std::uint32_t color) {
    if (a.y == b.y) {
        FillRow(raster, a.y, std::min(a.x, b.x), std::max(a.x, b.x), color);
        return;
    }
    DrawAllSteps(raster, SlopeOf(a, b), color);
}

void DrawLine(const Raster2D& raster, Pixel a, Pixel b, std::uint32_t color) {
    if (Contains(raster, a) && Contains(raster, b)) {
        DrawLineInside(raster, a, b, color);
        return;
    }
    const bool beside = std::max(a.x, b.x) < 0 || std::min(a.x, b.x) >= raster.width ||
                        std::max(a.y, b.y) < 0 || std::min(a.y, b.y) >= raster.height;
    if (!beside) DrawVisibleSteps(raster, SlopeOf(a, b), color);
}

void DrawLine(const Raster2D& raster, double x1, double y1, double x2, double y2,
              std::uint32_t color) {
    const bool finite =
        std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) && std::isfinite(y2);
    if (!finite) return;
    const bool beside =
        (x1 < -kPixelReach && x2 < -kPixelReach) || (x1 > kPixelReach && x2 > kPixelReach) ||
        (y1 < -kPixelReach && y2 < -kPixelReach) || (y1 > kPixelReach && y2 > kPixelReach);
    if (beside) return;
    CutBack(x1, y1, x2, y2);
    CutBack(x2, y2, x1, y1);
    CutBack(y1, x1, y2, x2);
    CutBack(y2, x2, y1, x1);
    if (!InReach(x1) || !InReach(y1) || !InReach(x2) || !InReach(y2)) return;
    DrawLine(raster, Pixel{NearestPixel(x1), NearestPixel(y1)},
             Pixel{NearestPixel(x2), NearestPixel(y2)}, color);
}

DotStamp MakeDotStamp(std::int32_t diameter) {
    DotStamp stamp;
    const double radius = diameter / 2.0;
    const std::int32_t low = -(diameter / 2);
    const double middle = low + (diameter - 1) / 2.0;
    for (std::int32_t y = low; y < low + diameter; ++y) {
        DotStamp::Span span{y, 0, -1};
        for (std::int32_t x = low; x < low + diameter; ++x) {
            const double dx = x - middle;
            const double dy = y - middle;
            if (dx * dx + dy * dy > radius * radius) continue;
            if (span.x1 > span.x2) span.x1 = x;
            span.x2 = x;
        }
        if (span.x1 <= span.x2) stamp.rows.push_back(span);
    }
    stamp.diameter = diameter;
    stamp.reach = -low;
    return stamp;
}

void DrawDot(const Raster2D& raster, Pixel centre, const DotStamp& stamp, std::uint32_t color) {
    const bool inside = centre.x >= stamp.reach && centre.x < raster.width - stamp.reach &&
                        centre.y >= stamp.reach && centre.y < raster.height - stamp.reach;
    if (!inside) {
        for (const auto& [y, x1, x2] : stamp.rows)
            FillRect(raster, centre.x + x1, centre.y + y, centre.x + x2, centre.y + y, color);
        return;
    }
    std::uint32_t* const origin = raster.Row(centre.y) + centre.x;
    for (const auto& [y, x1, x2] : stamp.rows) {
        std::uint32_t* pixel = origin + static_cast<std::ptrdiff_t>(y) * raster.stride + x1;
        for (std::uint32_t* const end = pixel + (x2 - x1); pixel <= end; ++pixel) *pixel = color;
    }
}

}  // namespace korvane
