// Vectors and matrices: order of arguments, sense of rotation, layout.
#include <gtest/gtest.h>

#include <cmath>

#include "scene/mVector.h"

namespace korvane {
namespace {

void ExpectNear(const Vec3& actual, const Vec3& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-6);
    EXPECT_NEAR(actual.y, expected.y, 1e-6);
    EXPECT_NEAR(actual.z, expected.z, 1e-6);
}

TEST(VectorTest, DifferenceIsSecondMinusFirst) {
    EXPECT_EQ(Difference({1, 2, 3}, {5, 5, 5}), (Vec3{4, 3, 2}));
    EXPECT_EQ(Absolute({-1, 2, -0.0F}), (Vec3{1, 2, 0}));
    EXPECT_DOUBLE_EQ(Distance({1, 1, 1}, {3, 4, 7}), 7);
    EXPECT_EQ(Midpoint({-1, 0, 2}, {2, 1, 2}), (Vec3{0.5F, 0.5F, 2}));
}

TEST(VectorTest, MidpointOfHugePointsDoesNotOverflow) {
    EXPECT_EQ(Midpoint({-3e38F, 3e38F, 3e38F}, {3e38F, 3e38F, -3e38F}), (Vec3{0, 3e38F, 0}));
}

TEST(VectorTest, ProductAppliesTheRightFactorFirst) {
    const Matrix4 turn = MatrixRotateZ(DegToRad(90));
    const Matrix4 move = MatrixTranslate(10, 20, 30);
    EXPECT_EQ(move[3], 10);
    EXPECT_EQ(move[7], 20);
    EXPECT_EQ(move[11], 30);
    ExpectNear(TransformPoint(MatrixMultiply(move, turn), {1, 0, 0}), {10, 21, 30});
    ExpectNear(TransformPoint(MatrixMultiply(turn, move), {1, 0, 0}), {-20, 11, 30});
    EXPECT_EQ(MatrixMultiply(MatrixIdentity(), move), move);
    EXPECT_EQ(MatrixMultiply(move, MatrixIdentity()), move);
}

}  // namespace
}  // namespace korvane
