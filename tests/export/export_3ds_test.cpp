// The 3DS export: the file to the byte, the sharing of vertices and the numbering of objects.
#include <gmock/gmock.h>
#include <lib3ds/file.h>
#include <lib3ds/material.h>
#include <lib3ds/mesh.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <sstream>

#include "base/Rounding.h"
#include "base/SingleByteText.h"
#include "export/mExport3DS.h"
#include "files/LittleEndian.h"
#include "support/PlainMeshBuilder.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;

BrushFace Face(std::array<std::int32_t, 3> corners, std::array<TexCoord, 3> uv, bool smooth,
               std::int32_t texture = 1, std::int32_t transparency = 0) {
    BrushFace face;
    face.a = corners[0];
    face.b = corners[1];
    face.c = corners[2];
    face.uv = uv;
    face.smooth = smooth ? 1 : 0;
    face.texture = texture;
    face.transparency = transparency;
    return face;
}

constexpr std::array<TexCoord, 3> kCorners{{{0, 0}, {1, 0}, {0, 1}}};

/// The scene that tests/golden/make_golden_3ds.py writes down.
Scene GoldenScene() {
    Scene scene;
    Brush first;
    for (const Vec3& point :
         {Vec3{0, 0, 0}, Vec3{1, 0, 0.5F}, Vec3{0, 1, 0}, Vec3{0.1234567F, -2.5F, 3.0000004F}})
        first.vertices.push_back({false, point.x, point.y, point.z});
    first.faces = {Face({0, 1, 2}, kCorners, false),
                   Face({0, 1, 2}, {{{9, 9}, {9, 9}, {9, 9}}}, true),
                   Face({1, 3, 0}, {{{0.25F, 0}, {0.5F, 0.5F}, {0.75F, 1}}}, false),
                   Face({1, 0, 2}, kCorners, true, 3),  // the same texture under another index
                   Face({3, 3, 2}, kCorners, true),
                   Face({3, 2, 1}, kCorners, false),
                   Face({0, 1, 2}, kCorners, false, 2, 40),
                   Face({0, 1, 2}, kCorners, true, 0)};
    first.faces[5].invisible = true;
    Brush second;
    second.vertices = {{false, 5, 5, 5}, {false, 6, 5, 5}};
    second.faces = {Face({0, 0, 1}, kCorners, true), Face({0, 1, 0}, kCorners, true)};
    scene.brushes = {first, second};
    return scene;
}

TextureLibrary GoldenLibrary() {
    TextureLibrary library;
    for (const char* name : {"Wood.jpg", "Füße €.bmp", "WOOD.JPG"})
        library.AddTexture(name, 64, 64);
    return library;
}

TEST(Export3DSTest, FileEqualsTheOnePackedByHand) {
    std::int32_t parts = 7;
    const Bytes golden = test::FileBytes(KORVANE_GOLDEN_DIR "/scene.3ds");
    EXPECT_EQ(Encode3DS(GoldenScene(), GoldenLibrary(), parts), golden);
    EXPECT_EQ(parts, 10);
}

/// Where our idea of the format is wrong, another reader finds something else in the same file.
TEST(Export3DSTest, AForeignReaderFindsWhatTheSceneHolds) {
    const std::unique_ptr<Lib3dsFile, decltype(&lib3ds_file_free)> file(
        lib3ds_file_load(KORVANE_GOLDEN_DIR "/scene.3ds"), lib3ds_file_free);
    ASSERT_NE(file, nullptr);
    std::vector<std::string> found;  // name, triangles, vertices, texture, per cent, smooth ones
    for (Lib3dsMesh* mesh = file->meshes; mesh != nullptr; mesh = mesh->next) {
        ASSERT_TRUE(mesh->faces > 0 && mesh->texels == mesh->points) << mesh->name;
        const Lib3dsMaterial* material =
            lib3ds_file_material_by_name(file.get(), mesh->faceL[0].material);
        ASSERT_NE(material, nullptr) << mesh->name;
        const auto smooth = std::count_if(mesh->faceL, mesh->faceL + mesh->faces,
                                          [](const Lib3dsFace& face) { return face.smoothing; });
        std::ostringstream line;
        line << mesh->name << ' ' << mesh->faces << ' ' << mesh->points << ' '
             << material->texture1_map.name << ' ' << std::lround(material->transparency * 100)
             << ' ' << smooth;
        found.push_back(line.str());
    }
    EXPECT_THAT(found, testing::ElementsAre("KVEO0007 7 9 Wood.jpg 0 5",
                                            ToSingleByte("KVEO0008 1 3 Füße €.bmp 40 0"),
                                            "KVEO0009 1 3  0 1"));
    // Face 2 of the first brush: Y is depth there, Z up.
    const Lib3dsMesh& first = *file->meshes;
    const auto& corner = first.faceL[2].points[1];
    EXPECT_THAT(first.pointL[corner].pos, testing::ElementsAre(0.123457F, -3, -2.5F));
    EXPECT_THAT(first.texelL[corner], testing::ElementsAre(0.5F, 0.5F));
}

/// The vertex list is the first chunk of an object with 16 bits of count.
TEST(Export3DSTest, CoordinatesAreRoundedLikeEveryNumberOfTheSystem) {
    std::mt19937 random(3);
    Object3DS object;
    const auto exponent = [&] { return static_cast<int>(random() % 60) - 30; };
    for (int i = 0; i < 20000; ++i) {
        const auto any = [&] {
            return std::ldexp(static_cast<float>(random()) - 2e9F, exponent() - 31);
        };
        object.vertices.push_back({any(), any(), any()});
    }
    object.vertices[0] = {0.0078125F, -0.0F, 0.0F};
    Model3DS model;
    AddMaterial(model, {}, {}, {}, 0, 0, 0, "");
    AddModelObject(model, object);
    const Bytes file = EncodeModel(model);
    const Bytes head = {0x10, 0x41};
    auto at = std::search(file.begin(), file.end(), head.begin(), head.end()) + 8;
    for (const Vec3& p : object.vertices) {
        for (const float value : {p.x, -p.z, p.y}) {
            const auto expected = static_cast<float>(Round(double{value}, 6));
            ASSERT_EQ(FetchLong(&*at), std::bit_cast<std::int32_t>(expected)) << value;
            at += 4;
        }
    }
}

TEST(Export3DSTest, LargeMaterialIsSplitAndTheNumbersRunOn) {
    Scene scene = GoldenScene();
    scene.brushes[0].faces.assign(25000, Face({0, 1, 2}, kCorners, false));
    scene.brushes[1].faces.assign(1, Face({0, 1, 0}, kCorners, false, 99, 70000));
    std::int32_t parts = 0;
    const auto listOf = [&] {
        std::string list;
        for (const Object3DS& object : Build3DS(scene, GoldenLibrary(), parts).objects)
            list += object.name + ":" + std::to_string(object.faces.size()) + " ";
        return list;
    };
    EXPECT_EQ(listOf(), "KVEO0000:10000 KVEO0001:10000 KVEO0002:5000 KVEO0003:1 ");
    EXPECT_EQ(listOf(), "KVEO0004:10000 KVEO0005:10000 KVEO0006:5000 KVEO0007:1 ");
    const Model3DS model = Build3DS(scene, GoldenLibrary(), parts);
    EXPECT_EQ(model.materials[1].transparency, 32767);  // what 16 bits hold
    EXPECT_EQ(model.materials[1].textureName, "");
    for (Brush& brush : scene.brushes)
        for (BrushFace& face : brush.faces) face.invisible = true;
    EXPECT_EQ(Encode3DS(scene, GoldenLibrary(), parts).size(), 42U) << "only the head is left";
    EXPECT_EQ(parts, 12);
}

/// A few hundred positions, so that most triangles meet others; -0 and NaN among them.
TEST(MeshBuilderTest, SharesTheVerticesThatThePlainSearchFinds) {
    std::mt19937 random(5);
    for (const int places : {3, 9}) {
        Model3DS model;
        Model3DS expected;
        std::int32_t parts = 0;
        MeshBuilder builder(model, parts);
        plain::MeshBuilder reference(expected);
        builder.BeginObject("KVEO", 0, true, true);
        const auto coordinate = [&] {
            const auto value = static_cast<float>(static_cast<int>(random() % places)) - 1;
            return value == 0 && random() % 2 == 0 ? -0.0F : value;
        };
        for (int i = 0; i < 13000; ++i) {
            std::array<Vec3, 3> p;
            for (Vec3& point : p) point = {coordinate(), coordinate(), coordinate()};
            if (i % 50 == 0) p[1].y = std::numeric_limits<float>::quiet_NaN();
            const TexCoord uv{static_cast<float>(i), 0};
            // Long runs of one kind, as brushes have them, and mixed ones.
            const bool smooth = i % 3000 > 1500 || (i > 3000 && random() % 2 == 0);
            builder.AddTriangle(p[0], p[1], p[2], uv, uv, uv, smooth);
            reference.AddTriangle(p[0], p[1], p[2], uv, uv, uv, smooth);
        }
        builder.EndObject();
        reference.EndObject();
        ASSERT_EQ(model.objects.size(), 2U);
        for (std::size_t part = 0; part < 2; ++part) {
            ASSERT_EQ(model.objects[part].vertices.size(), expected.objects[part].vertices.size());
            EXPECT_EQ(model.objects[part].texCoords, expected.objects[part].texCoords);
            for (std::size_t i = 0; i < expected.objects[part].faces.size(); ++i) {
                ASSERT_EQ(model.objects[part].faces[i].corners,
                          expected.objects[part].faces[i].corners)
                    << part << " " << i;
            }
        }
    }
}

TEST(MeshBuilderTest, NamesHaveEightCharactersAndLongOnesNoNumber) {
    Model3DS model;
    std::int32_t parts = 99;
    MeshBuilder builder(model, parts);
    for (const auto& [name, keep] : {std::pair{"AB", true}, {"EightChr", true}, {"KVEO", false}}) {
        builder.BeginObject(name, 0, true, keep);
        builder.EndObject();  // empty: no object, no number
        builder.AddTriangle({}, {}, {}, {}, {}, {}, 0);
        builder.EndObject();
    }
    std::vector<std::string> names;
    for (const Object3DS& object : model.objects) names.push_back(object.name);
    EXPECT_THAT(names, testing::ElementsAre("AB000099", "EightChr", "KVEO0000"));
}

}  // namespace
}  // namespace korvane
