// The order in which brushes are drawn: near ones first, but never past one they meet.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "views/ui/mDrawOrder.h"

namespace korvane {
namespace {

DrawItem Item(std::uint32_t brush, std::int32_t state, float depth, const Vec3& min,
              const Vec3& max) {
    return {brush, state, depth, {min, max}, {}};
}

/// A unit cube at a distance along Z.
DrawItem Cube(std::uint32_t brush, std::int32_t state, float z) {
    return Item(brush, state, z, {0, 0, z}, {1, 1, z + 1});
}

std::vector<std::uint32_t> Sorted(std::vector<DrawItem> items) {
    DrawOrder().Sort(items);
    std::vector<std::uint32_t> brushes;
    for (const DrawItem& item : items) brushes.push_back(item.brush);
    return brushes;
}

using Order = std::vector<std::uint32_t>;

TEST(DrawOrderTest, NearOnesFirstAndStatesTogether) {
    EXPECT_EQ(Sorted({}), Order{});
    EXPECT_EQ(Sorted({Cube(0, 1, 30), Cube(1, 1, 3), Cube(2, 1, 9)}), (Order{1, 2, 0}));
    // At about the same distance the states count.
    EXPECT_EQ(Sorted({Cube(0, 1, 40), Cube(1, 2, 41.5F), Cube(2, 1, 43), Cube(3, 2, 44.5F)}),
              (Order{0, 2, 1, 3}));
    const DrawItem room = Item(9, 1, -50, {-90, -90, -90}, {90, 90, 90});
    EXPECT_EQ(Sorted({room, Cube(1, 1, 30), Cube(2, 1, 3)}), (Order{2, 1, 9})) << "it meets both";
}

TEST(DrawOrderTest, HoldsForScenesAtRandom) {
    std::mt19937 random(7);
    const auto number = [&](float most) {
        return std::uniform_real_distribution<float>(0, most)(random);
    };
    for (const float spread : {4.0F, 20.0F, 60.0F, 0.5F}) {
        std::vector<DrawItem> items;
        for (std::uint32_t i = 0; i < 2000; ++i) {
            const Vec3 at{number(spread), number(spread), number(spread)};
            const Vec3 end{at.x + number(2), at.y + number(2), at.z + number(2)};
            items.push_back(Item(i, std::int32_t(number(4)), at.z, at, end));
        }
        std::ranges::shuffle(items, random);
        std::vector<DrawItem> sorted = items;
        DrawOrder().Sort(sorted);
        ASSERT_EQ(sorted.size(), items.size());
        const auto over = [](float min1, float max1, float min2, float max2) {
            return min1 <= max2 && min2 <= max1;
        };
        int wrong = 0;
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            for (std::size_t k = i + 1; k < sorted.size(); ++k) {
                const BoundingBox &a = sorted[i].bounds, &b = sorted[k].bounds;
                wrong += sorted[i].brush >= sorted[k].brush &&
                         over(a.min.x, a.max.x, b.min.x, b.max.x) &&
                         over(a.min.y, a.max.y, b.min.y, b.max.y) &&
                         over(a.min.z, a.max.z, b.min.z, b.max.z);
            }
        }
        EXPECT_EQ(wrong, 0) << spread;
        std::ranges::sort(sorted, {}, &DrawItem::brush);
        EXPECT_EQ(std::ranges::adjacent_find(sorted, {}, &DrawItem::brush), sorted.end());
    }
}

}  // namespace
}  // namespace korvane
