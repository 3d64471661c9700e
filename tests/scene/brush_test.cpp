// Every solid of every side count is closed, faces outward and lists its parts in the agreed order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <tuple>

#include "scene/mBrush.h"
#include "scene/mMerge.h"
#include "scene/mNormals.h"
#include "support/PlainGeometry.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

using Triangle = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

std::vector<Triangle> Triangles(const Brush& brush, std::size_t first, std::size_t count) {
    std::vector<Triangle> triangles;
    for (std::size_t f = first; f < first + count; ++f) {
        const BrushFace& face = brush.faces.at(f);
        triangles.emplace_back(face.a, face.b, face.c);
    }
    return triangles;
}

TEST(TriangulateCapTest, SmallRings) {
    const std::map<std::size_t, std::vector<Triangle>> expected = {
        {3, {{0, 1, 2}}},
        {4, {{0, 1, 2}, {2, 3, 0}}},
        {5, {{0, 1, 2}, {2, 3, 4}, {4, 0, 2}}},
        {6, {{0, 1, 2}, {2, 3, 4}, {4, 5, 0}, {0, 2, 4}}},
        {9, {{0, 1, 2}, {2, 3, 4}, {4, 5, 6}, {6, 7, 8}, {0, 2, 4}, {4, 6, 8}, {8, 0, 4}}},
    };
    for (const auto& [n, triangles] : expected) {
        for (const BrushShape shape : {Box, Cone}) {
            Brush brush;
            brush.shape = shape;
            brush.vertices.resize(shape == Box ? 2 * n : n);
            TriangulateCap(brush, 9);
            EXPECT_EQ(Triangles(brush, 0, brush.faces.size()), triangles) << n;
        }
    }
}

void ExpectBox(SceneMaker& maker, std::int32_t n) {
    const auto sides = static_cast<std::size_t>(n);
    // Both orders in which X and Z agree, the second with the height turned over.
    for (const auto& [p1, p2] :
         {std::pair{Vec3{-3, 1, 2}, Vec3{17, 4, 12}}, std::pair{Vec3{17, 4, 12}, Vec3{-3, 1, 2}}}) {
        const Brush& brush = maker.Create(Box, n, p1, p2);
        ASSERT_EQ(brush.vertices.size(), 2 * sides);
        ASSERT_EQ(brush.faces.size(), 4 * sides - 4);
        for (std::int32_t i = 0; i < n; ++i) {
            ASSERT_EQ(At(brush, i).y, 4);
            ASSERT_EQ(At(brush, i + n), (Vec3{At(brush, i).x, 1, At(brush, i).z}));
        }
        ASSERT_TRUE(IsClosed(brush));
        ASSERT_TRUE(AllPoint(brush, +1));
        for (std::size_t f = 0; f < brush.faces.size(); ++f) {
            const std::int32_t side = 3 + (static_cast<std::int32_t>(f) - 2 * n + 4) / 2;
            const std::int32_t cap = f < sides - 2 ? 1 : 2;
            ASSERT_EQ(brush.faces[f].polygonId, f < 2 * sides - 4 ? cap : side) << f;
            ASSERT_EQ(brush.faces[f].texture, 1);
        }
    }
}

void ExpectCone(SceneMaker& maker, std::int32_t n) {
    const auto sides = static_cast<std::size_t>(n);
    const Brush& brush = maker.Create(Cone, n, {-3, 1, 2}, {17, 6, 12});
    ASSERT_EQ(brush.shape, Cone);
    ASSERT_EQ(brush.vertices.size(), sides + 1);
    ASSERT_EQ(brush.faces.size(), 2 * sides - 2);
    EXPECT_EQ(At(brush, n), (Vec3{7, 6, 7}));
    EXPECT_EQ(At(brush, 0).y, 1);
    ASSERT_TRUE(IsClosed(brush));
    ASSERT_TRUE(AllPoint(brush, +1));
    for (std::size_t f = 0; f < brush.faces.size(); ++f) {
        const BrushFace& face = brush.faces[f];
        const std::int32_t side = static_cast<std::int32_t>(f) - (n - 2);
        ASSERT_EQ(face.polygonId, side < 0 ? 2 : 3 + side);
        if (side < 0) {
            ASSERT_EQ(face.normal, (Vec3{0, -1, 0}));
        } else {
            ASSERT_EQ(Triangles(brush, f, 1)[0], Triangle(side, (side + 1) % n, n));
        }
    }
}

/// Vertices that some face uses.
std::set<std::int32_t> UsedVertices(const Brush& brush) {
    std::set<std::int32_t> used;
    for (const BrushFace& face : brush.faces) used.insert({face.a, face.b, face.c});
    return used;
}

void ExpectSphere(SceneMaker& maker, std::int32_t n) {
    const auto sides = static_cast<std::size_t>(n);
    for (const Vec3& centre : {Vec3{0, 0, 0}, Vec3{0, -2.5F, 8}, Vec3{1.5F, 0, 0}, Vec3{5, 6, 7}}) {
        // The radius comes from X alone, whichever way that runs.
        const float half = n % 2 == 0 ? 3 : -3;
        const Vec3 p1{centre.x - half, centre.y - 9, centre.z + 1};
        const Vec3 p2{centre.x + half, centre.y + 9, centre.z - 1};
        const Brush& brush = maker.Create(Sphere, n, p1, p2);
        ASSERT_EQ(brush.vertices.size(), 6 * sides * sides);
        ASSERT_EQ(brush.faces.size(), 2 * sides * sides);
        const std::set<std::int32_t> used = UsedVertices(brush);
        EXPECT_EQ(used.size(), sides * (sides - 1) + 2);
        for (const std::int32_t v : used) {
            ASSERT_NEAR(Distance(At(brush, v), centre), 3, 1e-5);
        }
        ASSERT_TRUE(IsClosed(brush));
        ASSERT_TRUE(AllPoint(brush, +1));
    }
}

TEST(SolidTest, EverySideCount) {
    for (std::int32_t n = kMinSides; n <= kMaxSides; ++n) {
        SCOPED_TRACE(n);
        SceneMaker maker;
        ExpectBox(maker, n);
        ExpectCone(maker, n);
        ExpectSphere(maker, n);
    }
}

TEST(RingTest, PointsLieWhereTheRulesSay) {
    constexpr Vec3 kTen{10, 1, 20};
    // The middle of this ring lies on a tie in both directions. At 0 degrees the tie goes to the
    // even neighbour; at the other quarters the written pi leaves a trace of noise that decides it.
    constexpr Vec3 kTie{0.25F, 1, 0.75F};
    const struct {
        std::int32_t sides;
        Vec3 size;
        std::size_t vertex;
        float x, z;
    } rows[] = {
        {5, kTen, 0, 5, 0},
        {5, kTen, 1, 0, 10},
        {5, kTen, 2, 2.5F, 20},
        {5, kTen, 3, 7.5F, 20},
        {5, kTen, 4, 10, 10},
        {6, kTen, 0, 3, 0},
        {6, kTen, 3, 7, 20},
        {7, {2, 1, 2}, 0, 1.71F, 1.71F},  // from here on rounded to two decimals
        {7, {2, 1, 2}, 1, 1.99F, 0.89F},
        {8, {4, 1, 2}, 1, 4, 1},
        {8, {4, 1, 2}, 2, 3.41F, 0.29F},
        {8, kTie, 1, 0.25F, 0.38F},  // 0 degrees
        {8, kTie, 3, 0.12F, 0},      // 270 degrees, cosine below 0
        {8, kTie, 5, 0, 0.38F},      // 180 degrees, sine above 0
        {8, kTie, 7, 0.13F, 0.75F},  // 90 degrees, cosine above 0
        // 56 sides do not divide the turn evenly: stepped, this angle is a trace below 0, not 0.
        {56, kTie, 7, 0.25F, 0.37F},
    };
    for (const auto& row : rows) {
        SceneMaker maker;
        const Vertex& v = maker.Create(Box, row.sides, {0, 0, 0}, row.size).vertices[row.vertex];
        EXPECT_EQ(v.x, row.x) << row.sides << " sides, point " << row.vertex;
        EXPECT_EQ(v.z, row.z) << row.sides << " sides, point " << row.vertex;
    }
}

TEST(RingTest, OutlinesMeetTheDrawnEdgesExactly) {
    SceneMaker maker;
    const Brush& brush = maker.Create(Box, 4, {-999, 0, 1e-20F}, {1e-20F, 1, 999});
    const Vec3 ring[] = {{-999, 1, 1e-20F}, {-999, 1, 999}, {1e-20F, 1, 999}, {1e-20F, 1, 1e-20F}};
    for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(At(brush, i), ring[i]);
    EXPECT_EQ(
        Triangles(brush, 0, 6),
        (std::vector<Triangle>{{0, 1, 2}, {2, 3, 0}, {4, 7, 6}, {6, 5, 4}, {0, 4, 5}, {5, 1, 0}}));
}

TEST(SphereTest, OrderOfPartsAndPolygons) {
    SceneMaker maker;
    const Brush& brush = maker.Create(Sphere, 4, {-1, 0, 5}, {1, 3, 8});
    const float h = std::sqrt(0.5F), y = 1.5F, z = 6.5F;
    // Quad 2 of band 1: upper and lower at longitude 180, then at 90.
    const std::size_t f = 2 * (1 * 4 + 2);
    const Vec3 expected[] = {{-1, y, z},        {-h, y - h, z}, {0, y, z + 1},
                             {0, y - h, z + h}, {0, y, z + 1},  {-h, y - h, z}};
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_LT(Distance(brush.vertices[3 * f + i].Position(), expected[i]), 1e-6) << i;
    EXPECT_EQ(brush.faces[f].polygonId, 1 * 10 + 2 * 2 + 2);
    EXPECT_EQ(brush.faces[f + 1].polygonId, 16);
    EXPECT_EQ(brush.faces[0].polygonId, 2);
    EXPECT_EQ(brush.faces.back().polygonId, 3 * 10 + 2 * 3 + 2);
}

TEST(CreateBrushTest, BuildsNothing) {
    SceneMaker maker;
    const struct {
        std::int16_t shape;
        float width;
        std::int32_t sides;
    } rows[] = {{Sphere, 0, 8}, {Sphere, 5, 2}, {Box, 5, 2}, {Cone, 5, 65}, {3, 5, 4}, {-1, 5, 4}};
    for (const auto& row : rows) {
        maker.scene.createShape = row.shape;
        EXPECT_EQ(CreateBrush(maker.scene, {}, {row.width, 5, 5}, row.sides, maker.Space()), -1);
    }
    EXPECT_EQ(maker.scene.brushCount(), 0);
}

TEST(MergeTest, EqualsThePlainDefinition) {
    SceneMaker maker;
    for (const std::int32_t n : {3, 4, 9, 16, 25}) {
        // Far from the origin a tiny sphere has neighbours that fall together.
        for (const Vec3& centre : {Vec3{0, 0, 0}, Vec3{900, -900, 900}}) {
            const Vec3 p2{centre.x + 0.02F, centre.y, centre.z};
            const Brush& fast = maker.Create(Sphere, n, centre, p2);
            Brush plain = fast;
            plain::UnmergeSphere(plain);
            plain::MergeEqualVertices(plain);
            const std::size_t count = fast.faces.size();
            ASSERT_EQ(Triangles(fast, 0, count), Triangles(plain, 0, count)) << n;
        }
    }
}

TEST(MergeTest, ZerosOfBothSignsAreOnePlace) {
    Brush brush;
    for (const Vec3& p : {Vec3{-0.0F, 0, 1}, Vec3{0, -0.0F, 1}, Vec3{0, 0, -1}, Vec3{0, 0, 1}}) {
        AddVertex(brush, p, false);
    }
    AddFace(brush, 1, 2, 3, 3);
    MergeEqualVertices(brush);
    EXPECT_EQ(Triangles(brush, 0, 1)[0], Triangle(0, 2, 0));
    EXPECT_EQ(brush.vertices.size(), 4U);
}

}  // namespace
}  // namespace korvane
