// Projection of textures: which plane a face takes, the signs on each of its six sides, and the
// settings applied afterwards.
#include <gtest/gtest.h>

#include <cmath>

#include "scene/mNormals.h"
#include "scene/mTextureCoords.h"
#include "support/SceneMaker.h"

namespace korvane {
namespace {

/// One face with corners at (2, 3, 4), (6, 5, 12) and (2, 3, 12), so that the bounds are 4 x 2 x 8,
/// with the normal set by hand.
Brush OneFace(const Vec3& normal) {
    Brush brush;
    for (const Vec3& p : {Vec3{2, 3, 4}, Vec3{6, 5, 12}, Vec3{2, 3, 12}})
        AddVertex(brush, p, false);
    AddFace(brush, 0, 1, 2, 3);
    brush.faces[0].normal = normal;
    brush.faces[0].texture = 1;
    return brush;
}

TexCoord SecondCorner(Brush brush) {
    const SceneMaker maker;
    UpdateTextureCoords(brush, maker.Space());
    return brush.faces[0].uv[1];
}

struct Side {
    Vec3 normal;
    TexCoord world;  ///< of (6, 5, 12) with tiles of 2 x 1 units
    TexCoord local;  ///< of the corner of the bounds, repeat (3, 5), offset (0.5, 0.25)
};

const Side kSides[] = {
    {{0, 0, 1}, {3, 5}, {3.5F, 5.25F}},
    {{0, 0, -1}, {-3, 5}, {-2.5F, 5.25F}},
    {{1, 0, 0}, {-6, 5}, {-2.5F, 5.25F}},
    {{-1, 0, 0}, {6, 5}, {3.5F, 5.25F}},
    {{0, 1, 0}, {3, -12}, {3.5F, -4.75F}},
    {{0, -1, 0}, {3, 12}, {3.5F, 5.25F}},
    {{0.6F, 0.6F, 0}, {-6, 5}, {-2.5F, 5.25F}},  // X before Y
    {{0, 0.6F, 0.6F}, {3, 5}, {3.5F, 5.25F}},    // Z before Y
    {{0.6F, 0, 0.6F}, {3, 5}, {3.5F, 5.25F}},    // Z before X
    {{-0.6F, 0.6F, -0.6F}, {-3, 5}, {-2.5F, 5.25F}},
    {{-0.6F, -0.61F, 0.6F}, {3, 12}, {3.5F, 5.25F}},
    {{0, 0, 0}, {3, 5}, {3.5F, 5.25F}},  // a face without direction
};

TEST(TextureCoordsTest, SixSidesAndTheirTies) {
    for (const Side& side : kSides) {
        Brush brush = OneFace(side.normal);
        SCOPED_TRACE(testing::Message() << side.normal.x << side.normal.y << side.normal.z);
        EXPECT_EQ(SecondCorner(brush), side.world);
        BrushFace& face = brush.faces[0];
        face.localCoords = true;
        face.repeatX = 3, face.repeatY = 5;
        face.offsetX = 0.5F, face.offsetY = 0.25F;
        EXPECT_EQ(SecondCorner(brush), side.local);
    }
}

TEST(TextureCoordsTest, TilesFollowTextureSizeAndScale) {
    SceneMaker maker;
    Brush brush = OneFace({0, 0, 1});
    brush.vertices[1].MoveTo({3, 1.5F, 0});
    brush.faces[0].repeatX = 9;  // world mapping takes no notice of repeat and offset
    brush.faces[0].offsetX = 9;
    const struct {
        std::int32_t texture;
        float scale;
        TexCoord expected;
    } rows[] = {
        {1, 4, {1.5F, 1.5F}}, {2, 4, {0.75F, 0.375F}}, {2, 8, {0.375F, 0.1875F}}, {2, 0, {}}};
    for (const auto& row : rows) {
        brush.faces[0].texture = row.texture;
        maker.TextureScale = row.scale;
        UpdateTextureCoords(brush, maker.Space());
        EXPECT_EQ(brush.faces[0].uv[1], row.expected) << row.texture << " " << row.scale;
    }
}

TEST(TextureCoordsTest, FlipAndMirrorBeforeRotation) {
    struct Row {
        bool flipped, mirrored;
        std::int32_t rotation;
        double u, v;
    };
    const double cos30 = std::sqrt(0.75);
    for (const Row& row :
         {Row{true, false, 0, 3, -5}, Row{false, true, 0, -3, 5}, Row{true, true, 0, -3, -5},
          Row{false, false, 90, -5, 3}, Row{true, false, 90, 5, 3}, Row{false, false, -90, 3, 5},
          Row{false, true, 30, -3 * cos30 - 2.5, -1.5 + 5 * cos30},
          Row{false, false, 450, -5, 3}}) {
        Brush brush = OneFace({0, 0, 1});
        brush.faces[0].flipped = row.flipped;
        brush.faces[0].mirrored = row.mirrored;
        brush.faces[0].rotation = row.rotation;
        const TexCoord actual = SecondCorner(brush);
        EXPECT_NEAR(actual.u, row.u, 1e-6) << row.flipped << row.mirrored << row.rotation;
        EXPECT_NEAR(actual.v, row.v, 1e-6) << row.flipped << row.mirrored << row.rotation;
    }
}

TEST(TextureCoordsTest, LocalMappingWithoutExtentGivesTheOffset) {
    Brush brush = OneFace({0, 0, 1});
    for (Vertex& v : brush.vertices) v.x = 2;
    BrushFace& face = brush.faces[0];
    face.localCoords = true;
    face.repeatX = 3;
    face.offsetX = 0.75F;
    EXPECT_EQ(SecondCorner(brush), (TexCoord{0.75F, 1}));
}

}  // namespace
}  // namespace korvane
