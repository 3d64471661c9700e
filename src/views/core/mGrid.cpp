#include "views/core/mGrid.h"

#include <algorithm>

#include "base/Rounding.h"

namespace korvane {

GridRange GridRangeOf(std::int32_t origin, std::int32_t size, std::int32_t zoom) {
    const double z = std::max(zoom, std::int32_t{1});
    const double half = Int(size * 0.5);
    const double centre = Round((origin - half) / z);
    GridRange range;
    range.last = Round(half / z + centre);
    range.first = Int(range.last - size / z);
    // Rounding may leave up to a unit open at either edge of the surface.
    while (origin - z * range.last > 0) range.last += 1;
    while (origin - z * range.first < size) range.first -= 1;
    return range;
}

GridColors::GridColors(const GridRange& range)
    : major_((Int(range.first / 10) + 1) * 10), minor_(range.first + 0.5) {
}

GridLine GridColors::Next(double u) {
    if (u == 0) {
        major_ += 10;
        return GridLine::Center;
    }
    if (u == major_) {
        major_ += 10;
        return GridLine::Major;
    }
    if (u == minor_) {
        minor_ += 1;
        return GridLine::Minor;
    }
    return GridLine::Normal;
}

bool RulerLabels(double u, std::int32_t zoom) {
    if (zoom >= 80) return true;
    if (zoom >= 40) return u == Int(u);
    const double step = zoom >= 20 ? 2 : 5;
    return u == Int(u / step) * step;
}

}  // namespace korvane
