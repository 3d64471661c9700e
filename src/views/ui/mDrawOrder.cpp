#include "views/ui/mDrawOrder.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <tuple>

namespace korvane {
namespace {

/// Brushes nearer to each other than this count as touching: more than the depth buffer can tell
/// apart at the far end of the view. World units.
constexpr float kTouching = 0.02F;

/// Comparisons of bounds per item before the search for touching brushes is given up.
constexpr std::size_t kMostTests = 600;

/// Quarters of an octave of the depth: fine enough to paint little twice, coarse enough to find
/// items of one state together.
std::uint32_t DepthStep(float depth) {
    constexpr int kDroppedBits = 21;
    return depth > 0 ? std::bit_cast<std::uint32_t>(depth) >> kDroppedBits : 0;
}

bool Overlap(float min1, float max1, float min2, float max2) {
    return min1 <= max2 + kTouching && min2 <= max1 + kTouching;
}

bool Meet(const BoundingBox& a, const BoundingBox& b) {
    return Overlap(a.min.x, a.max.x, b.min.x, b.max.x) &&
           Overlap(a.min.y, a.max.y, b.min.y, b.max.y) &&
           Overlap(a.min.z, a.max.z, b.min.z, b.max.z);
}

/// The axis along which the items are spread widest.
float Vec3::*WidestAxis(const std::vector<DrawItem>& items) {
    float Vec3::*widest = &Vec3::x;
    float most = -1;
    for (const auto axis : {&Vec3::x, &Vec3::y, &Vec3::z}) {
        const auto [low, high] = std::ranges::minmax(
            items, {}, [&](const DrawItem& item) { return item.bounds.min.*axis; });
        if (high.bounds.min.*axis - low.bounds.min.*axis <= most) continue;
        most = high.bounds.min.*axis - low.bounds.min.*axis;
        widest = axis;
    }
    return widest;
}

}  // namespace

void DrawOrder::Sort(std::vector<DrawItem>& items) {
    if (items.empty()) return;
    std::ranges::sort(items, {}, [](const DrawItem& item) {
        return std::tuple(DepthStep(item.depth), item.state, item.brush);
    });
    if (!FindPairs(items)) {
        std::ranges::sort(items, {}, &DrawItem::brush);
        return;
    }
    if (pairs_.empty()) return;
    IndexPairs(items.size());
    sorted_.clear();
    drawn_.assign(items.size(), false);
    for (std::uint32_t i = 0; i < items.size(); ++i) Emit(items, i);
    items.swap(sorted_);
}

/// Finds which items meet; false when that takes too long.
bool DrawOrder::FindPairs(const std::vector<DrawItem>& items) {
    const auto axis = WidestAxis(items);
    pairs_.clear();
    sweep_.clear();
    for (const DrawItem& item : items) {
        sweep_.push_back({item.bounds, static_cast<std::uint32_t>(sweep_.size())});
    }
    std::ranges::sort(sweep_, {}, [&](const Extent& extent) { return extent.bounds.min.*axis; });
    std::size_t tests = 0;
    for (auto one = sweep_.begin(); one != sweep_.end(); ++one) {
        const float end = one->bounds.max.*axis + kTouching;
        auto other = one + 1;
        for (; other != sweep_.end() && other->bounds.min.*axis <= end; ++other) {
            if (!Meet(one->bounds, other->bounds)) continue;
            const bool oneIsLater = items[one->item].brush > items[other->item].brush;
            pairs_.push_back(oneIsLater ? std::pair(one->item, other->item)
                                        : std::pair(other->item, one->item));
        }
        tests += static_cast<std::size_t>(other - one);
        if (tests > kMostTests * items.size()) return false;
    }
    return true;
}

void DrawOrder::IndexPairs(std::size_t itemCount) {
    std::ranges::sort(pairs_);
    firstPair_.assign(itemCount + 1, 0);
    for (const auto& pair : pairs_) ++firstPair_[pair.first + 1];
    std::partial_sum(firstPair_.begin(), firstPair_.end(), firstPair_.begin());
    nextPair_ = firstPair_;
}

/// Draws the item after all that must come before it.
void DrawOrder::Emit(const std::vector<DrawItem>& items, std::uint32_t item) {
    stack_.assign(1, item);
    while (!stack_.empty()) {
        const std::uint32_t top = stack_.back();
        if (drawn_[top]) {
            stack_.pop_back();
        } else if (nextPair_[top] < firstPair_[top + 1]) {
            const std::uint32_t before = pairs_[nextPair_[top]++].second;
            if (!drawn_[before]) stack_.push_back(before);
        } else {
            drawn_[top] = true;
            sorted_.push_back(items[top]);
            stack_.pop_back();
        }
    }
}

}  // namespace korvane
