// The order in which a frame draws its brushes: from near to far, so that little is painted over,
// without changing what is seen.
//
// Of two faces in the same place the one drawn first shows. So brushes that meet keep the order
// they have in the scene; all others may be drawn in any order, as the depth test sorts them out.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "views/ui/mBoundingBox.h"
#include "views/ui/mOcclusion.h"

namespace korvane {

/// A brush to draw.
struct DrawItem {
    std::uint32_t brush = 0;  ///< place in the scene
    std::int32_t state = 0;   ///< items of one state are best drawn together
    float depth = 0;          ///< of the nearest point of its bounds
    BoundingBox bounds;
    PixelRect shown{};  ///< only there can it be seen
};

/// Sorts items for drawing. Kept from frame to frame for its memory only.
class DrawOrder {
  public:
    /// Puts the items in the order to draw them; brushes whose bounds overlap or nearly touch stay
    /// in scene order. A scene too tangled to look through keeps scene order as a whole.
    void Sort(std::vector<DrawItem>& items);

  private:
    /// Bounds of an item, kept together for the search.
    struct Extent {
        BoundingBox bounds;
        std::uint32_t item;
    };

    bool FindPairs(const std::vector<DrawItem>& items);
    void IndexPairs(std::size_t itemCount);
    void Emit(const std::vector<DrawItem>& items, std::uint32_t item);

    std::vector<Extent> sweep_;
    /// Of the item `first`, the item `second` must be drawn before it.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs_;
    std::vector<std::uint32_t> firstPair_;  ///< by item, and the end
    std::vector<std::uint32_t> nextPair_;   ///< by item: the pair to look at next
    std::vector<std::uint32_t> stack_;
    std::vector<bool> drawn_;
    std::vector<DrawItem> sorted_;
};

}  // namespace korvane
