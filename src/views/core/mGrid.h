// The grid behind the 2D views and the depth gauge: which lines there are, in which colour, and
// which of them the rulers label.
//
// A grid coordinate u is a world coordinate counted against the screen: the line of u lies at
// origin - zoom * u, so u falls from left to right and from top to bottom.
#pragma once

#include <cstdint>

namespace korvane {

enum class GridLine { Normal, Minor, Major, Center };

/// The pass over one axis: lines at first, first + 0.5, ... last, both whole numbers.
struct GridRange {
    double first = 0;
    double last = 0;
};

/// The range that covers an axis of `size` pixels.
GridRange GridRangeOf(std::int32_t origin, std::int32_t size, std::int32_t zoom);

/// Tells the lines of one pass apart. The next major and minor value advance only when they are
/// hit, so a multiple of 10 that opens the pass is Normal.
class GridColors {
  public:
    explicit GridColors(const GridRange& range);
    /// The kind of line u; to be asked for every u of the range in order.
    GridLine Next(double u);

  private:
    double major_;
    double minor_;
};

/// Calls visit(u, GridLine) for every line of the range.
template <class Visit>
void WalkGrid(const GridRange& range, Visit visit) {
    GridColors colors(range);
    for (double u = range.first; u <= range.last; u += 0.5) visit(u, colors.Next(u));
}

/// Whether the rulers label the line of u at this zoom.
bool RulerLabels(double u, std::int32_t zoom);

}  // namespace korvane
