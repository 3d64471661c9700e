// Which texts of the arbitrary-size dialog become a side count.
#include <gtest/gtest.h>

#include "editor/mArbitrarySize.h"

namespace korvane {
namespace {

TEST(ArbitrarySizeTest, TakesTheIntegerPartFrom3To64) {
    struct Row {
        const char* text;
        std::int16_t sides;  // 0: refused
    };
    for (const Row& row : {Row{"3", 3}, Row{"64", 64}, Row{"12", 12}, Row{"64.9", 64}, Row{"2", 0},
                           Row{"2.9", 0}, Row{"65", 0}, Row{"99999", 0}, Row{"65539", 0},
                           Row{"1e300", 0}, Row{"", 0}, Row{"-4", 0}}) {
        Scene scene;
        EXPECT_EQ(SetArbitrarySides(scene, row.text), row.sides != 0) << row.text;
        EXPECT_EQ(scene.sideCount, row.sides != 0 ? row.sides : 4) << row.text;
        EXPECT_EQ(scene.arbitrarySideCount, row.sides != 0 ? row.sides : 9) << row.text;
    }
}

}  // namespace
}  // namespace korvane
