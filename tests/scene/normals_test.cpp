// Face and shading normals. The fast computation has to equal the plain definition bit for bit,
// whatever shape a brush has been edited into.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <tuple>

#include "scene/mNormals.h"
#include "support/PlainGeometry.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

template <class T>
bool SameBits(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

void ExpectPlainNormals(const Brush& brush, const char* what) {
    Brush fast = brush;
    Brush expected = brush;
    UpdateBrushNormals(fast);
    plain::UpdateBrushNormals(expected);
    for (std::size_t f = 0; f < fast.faces.size(); ++f) {
        ASSERT_TRUE(SameBits(fast.faces[f].normal, expected.faces[f].normal)) << what << f;
        ASSERT_TRUE(SameBits(fast.faces[f].cornerNormals, expected.faces[f].cornerNormals))
            << what << f;
    }
}

TEST(FaceNormalTest, PointsOutOfTheTriangleOrNowhere) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        Vec3 a, b, c, normal;
    } rows[] = {
        {{0, 1, 0}, {0, 1, 1}, {1, 1, 1}, {0, 1, 0}},
        {{1, 1, 1}, {0, 1, 1}, {0, 1, 0}, {0, -1, 0}},
        {{3, 0, 0}, {0, 3, 0}, {0, 0, 3}, {0.57735027F, 0.57735027F, 0.57735027F}},
        {{0, 0, 1e-30F}, {1e-30F, 0, 0}, {0, 0, 0}, {0, 1, 0}},
        {{0, 0, 1e30F}, {1e30F, 0, 0}, {0, 0, 0}, {0, 1, 0}},
        {{1, 2, 3}, {2, 4, 6}, {3, 6, 9}, {0, 0, 0}},
        {{1, 2, 3}, {1, 2, 3}, {7, 5, 1}, {0, 0, 0}},
        {{inf, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}},
        {{nan, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FaceNormal(row.a, row.b, row.c), row.normal) << row.a.x << " " << row.a.z;
    }
}

TEST(BrushNormalsTest, CapsStayFlatAndSidesAverageTheirNeighbours) {
    SceneMaker maker;
    const Brush& box = maker.Create(Box, 4, {0, 0, 0}, {2, 1, 3});
    for (std::size_t f = 0; f < 4; ++f) {
        for (const Vec3& n : box.faces[f].cornerNormals) EXPECT_EQ(n, box.faces[f].normal);
    }
    // Vertex 0 is met by three triangles of two sides: each side counts once, and the average of
    // two unit normals is not of unit length.
    const BrushFace& side = box.faces[4];
    EXPECT_EQ(side.a, 0);
    EXPECT_EQ(side.cornerNormals[0], (Vec3{-0.5F, 0, -0.5F}));
}

TEST(BrushNormalsTest, EqualThePlainDefinitionForEverySideCount) {
    SceneMaker maker;
    for (std::int32_t n = kMinSides; n <= kMaxSides; ++n) {
        for (const BrushShape shape : {Box, Cone}) {
            ExpectPlainNormals(maker.Create(shape, n, {-3, 0.3F, 2}, {17, 4, 12}), "solid");
            ExpectPlainNormals(maker.Create(shape, n, {0, 0, 0}, {2, 1e-4F, 2}), "flat solid");
        }
    }
    for (const std::int32_t n : {64, 24, 16, 11, 8, 5, 4, 3})  // the small after the large
        ExpectPlainNormals(maker.Create(Sphere, n, {-1.5F, 2, 3}, {4, 0, 0}), "sphere");
}

/// Changes of the vertices such as editing makes.
TEST(BrushNormalsTest, EqualThePlainDefinitionAfterDeforming) {
    SceneMaker maker;
    std::mt19937 random(7);
    const std::function<float(float)> deformations[] = {
        [&](float x) { return x + (random() % 1000) * 1e-3F; },  // jitter
        [&](float x) { return x + (random() % 3) * 1e-7F; },     // noise
        [&](float x) { return std::nearbyint(x); },              // snap
        [&](float x) { return random() % 4 == 0 ? -0.0F : x; },  // flatten
        [&](float x) { return x + 900; }};                       // far
    for (const auto& deform : deformations) {
        for (const BrushShape shape : {Box, Cone, Sphere}) {
            for (const std::int32_t n : {4, 7, 13}) {
                Brush brush = maker.Create(shape, n, {-2, -1, -2}, {2, 1, 2});
                for (Vertex& v : brush.vertices) v.MoveTo({deform(v.x), deform(v.y), deform(v.z)});
                const auto which = std::to_string(&deform - deformations);
                ExpectPlainNormals(brush, which.c_str());
            }
        }
    }
}

/// A fan of triangles around vertex 0, in seven polygons.
Brush Fan(int triangles, double slope) {
    Brush brush;
    AddVertex(brush, {0, 1, 0}, false);
    for (int i = 0; i <= triangles; ++i) {
        const double t = 6.0 * i / triangles;
        AddVertex(brush,
                  {static_cast<float>(std::cos(t)), static_cast<float>(1 - slope),
                   static_cast<float>(std::sin(t))},
                  false);
    }
    for (std::int32_t i = 0; i < triangles; ++i) AddFace(brush, 0, i + 2, i + 1, 3 + i % 7);
    return brush;
}

TEST(BrushNormalsTest, FansOfAnySizeAndSlope) {
    // Around 8 and 200 distinct normals the way of adding up changes; at slopes near 0 the small
    // components make the order of summation count.
    for (const int triangles : {2, 7, 8, 9, 10, 40, 199, 200, 201, 400}) {
        for (const double slope : {1.0, 1e-3, 1e-6, 1e-7, 0.0}) {
            ExpectPlainNormals(Fan(triangles, slope), "fan");
        }
    }
}

/// Walls at vertex 0 whose normals cancel out pairwise along X, and `level` nearly level faces
/// whose small X component the sum of the walls swallows bits of, unless it comes after them. In
/// random order.
Brush OpposedWalls(int pairs, int level, float slope, std::uint32_t seed) {
    Brush brush;
    AddVertex(brush, {0, 0, 0}, false);
    const std::int32_t z = AddVertex(brush, {0, 0, 1}, false);
    for (int i = 1; i <= pairs; ++i) {
        const float s = 0.5F * static_cast<float>(i) / static_cast<float>(pairs);
        AddFace(brush, 0, AddVertex(brush, {s, 1, 0}, false), z, 3);
        AddFace(brush, 0, z, AddVertex(brush, {-s, 1, 0}, false), 4);
    }
    for (int i = 1; i <= level; ++i) {
        const float t = slope * (1 + 0.1F * static_cast<float>(i));
        AddFace(brush, 0, z, AddVertex(brush, {1, -t, 0}, false), 5);
    }
    std::shuffle(brush.faces.begin(), brush.faces.end(), std::mt19937(seed));
    return brush;
}

bool FacesDisagreeAtVertex0(const Brush& brush) {
    return std::any_of(brush.faces.begin(), brush.faces.end(), [&](const BrushFace& face) {
        return !(face.cornerNormals[0] == brush.faces[0].cornerNormals[0]);
    });
}

TEST(BrushNormalsTest, TheOrderOfSummationIsKept) {
    for (const auto& [pairs, level, slope] :
         {std::tuple(1, 1, 1e-12F), {3, 2, 1e-12F}, {30, 3, 1e-11F}, {110, 2, 1e-11F}}) {
        bool disagreed = false;
        for (std::uint32_t seed = 0; seed < 6; ++seed) {
            Brush brush = OpposedWalls(pairs, level, slope, seed);
            ExpectPlainNormals(brush, "walls");
            UpdateBrushNormals(brush);
            disagreed = disagreed || FacesDisagreeAtVertex0(brush);
        }
        EXPECT_TRUE(disagreed) << "with this row the order should matter";
    }
}

TEST(BrushNormalsTest, AVertexOfVeryManySidesHasOneSum) {
    // With a sum of its own for every face, a file could keep the program busy for many minutes.
    Brush brush = OpposedWalls(260, 60, 1e-11F, 1);
    Brush expected = brush;
    UpdateBrushNormals(brush);
    plain::UpdateBrushNormals(expected);
    EXPECT_TRUE(FacesDisagreeAtVertex0(expected));
    EXPECT_FALSE(FacesDisagreeAtVertex0(brush));
    EXPECT_EQ(brush.faces[0].cornerNormals[0], expected.faces[0].cornerNormals[0]);
    for (const BrushFace& face : expected.faces) {
        EXPECT_LT(Distance(face.cornerNormals[0], brush.faces[0].cornerNormals[0]), 1e-12);
    }
}

TEST(BrushNormalsTest, FacesUsingAVertexTwice) {
    Brush brush = Fan(5, 0.5);
    AddFace(brush, 0, 0, 3, 5);
    AddFace(brush, 4, 0, 4, 6);
    AddFace(brush, 0, 2, 1, 2);
    AddFace(brush, 2, 2, 2, 9);
    ExpectPlainNormals(brush, "repeated vertices");
    brush = {};
    UpdateBrushNormals(brush);
    EXPECT_TRUE(brush.faces.empty());
}

TEST(BrushNormalsTest, OnlySelectedBrushesAreUpdated) {
    SceneMaker maker;
    for (int i = 0; i < 2; ++i) maker.SelectedBox({0, 0, 0}, {1, 1, 1}).faces[0].normal = {};
    maker.scene.brushes[0].selected = false;
    const std::uint64_t revision = maker.scene.brushes[1].revision;
    UpdateSelectedNormals(maker.scene);
    EXPECT_EQ(maker.scene.brushes[0].faces[0].normal, (Vec3{0, 0, 0}));
    EXPECT_EQ(maker.scene.brushes[1].faces[0].normal, (Vec3{0, 1, 0}));
    EXPECT_NE(maker.scene.brushes[1].revision, revision);
}

TEST(BoundsTest, OfABrushAndOfTheSelection) {
    SceneMaker maker;
    EXPECT_EQ(SelectionBounds(maker.scene), Bounds{});
    EXPECT_EQ(BrushBounds(Brush{}), Bounds{});
    Brush& brush = maker.SelectedBox({-1, 2, 3}, {5, 7, 9});
    EXPECT_EQ(BrushBounds(brush), (Bounds{{-1, 2, 3}, {5, 7, 9}}));
    maker.Create(Box, 4, {-50, -50, -50}, {50, 50, 50});
    maker.SelectedBox({4, 0, 3}, {6, 1, 4});
    EXPECT_EQ(SelectionBounds(maker.scene), (Bounds{{-1, 0, 3}, {6, 7, 9}}));
    for (Vertex& v : maker.scene.brushes[0].vertices) v.x += 2000;  // beyond where one can draw
    EXPECT_EQ(BrushBounds(maker.scene.brushes[0]), (Bounds{{999, 2, 3}, {2005, 7, 9}}));
}

}  // namespace
}  // namespace korvane
