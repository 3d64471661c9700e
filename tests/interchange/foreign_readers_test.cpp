// Exported OBJ and GLB files as two foreign readers understand them: tinyobjloader and assimp.
#include <assimp/GltfMaterial.h>
#include <assimp/scene.h>
#include <gtest/gtest.h>
#include <tiny_obj_loader.h>

#include <array>
#include <assimp/Importer.hpp>
#include <cfloat>
#include <cmath>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <span>

#include "files/LittleEndian.h"
#include "interchange/mInterchange.h"
#include "scene/mNormals.h"
#include "scene/mTextureCoords.h"
#include "support/FileSizeLimit.h"
#include "support/SceneMaker.h"
#include "support/TempFolder.h"
#include "textures/ui/mImageFile.h"

namespace korvane::test {
namespace {

constexpr const char* kTextures = KORVANE_SOURCE_DIR "/examples/ObjTextures";

/// A corner of a triangle: position, normal, texture coordinates.
using Corner = std::array<float, 8>;
using Triangle = std::array<Corner, 3>;

/// What a material looks like.
struct Look {
    std::string texture;
    float opacity = 1;
    float red = 1;
    auto operator<=>(const Look&) const = default;
};

/// Triangles by group and look.
using Mesh = std::map<std::pair<std::string, Look>, std::vector<Triangle>>;

/// Flat and smooth faces, textures as JPEG, TGA and BMP, one of them see-through, and none; in and
/// out of groups; one face is hidden.
SceneMaker MakeScene() {
    SceneMaker maker;
    const std::int32_t brick = maker.library.AddTexture("Brick.jpg", 256, 256);
    const std::int32_t window = maker.library.AddTexture("Window.tga", 64, 64);
    const std::int32_t plaster = maker.library.AddTexture("Plaster.bmp", 128, 128);
    const auto add = [&](BrushShape shape, int sides, Vec3 at, std::int32_t texture,
                         const char* group) -> Brush& {
        maker.library.SelectTexture(texture);
        Brush& brush = maker.Create(shape, sides, at, {at.x + 2, at.y + 3, at.z + 1.5F});
        brush.group = group;
        return brush;
    };
    add(Box, 4, {-1, 0, -2}, brick, "Main hall").faces[3].invisible = true;
    for (BrushFace& face : add(Sphere, 12, {3, 0, 0}, window, "").faces) face.smooth = 1;
    for (BrushFace& face : add(Cone, 7, {0, 5, 0}, plaster, "Main hall").faces)
        face.transparency = 40;
    add(Box, 5, {9, 0, 0}, brick, "T\u00FCr");
    add(Box, 3, {9, 5, 0}, 0, "");
    for (Brush& brush : maker.scene.brushes) {
        UpdateBrushNormals(brush);
        UpdateTextureCoords(brush, maker.Space());
    }
    return maker;
}

std::string NameInFile(const std::string& group) {
    std::string name = group.empty() ? "big_house" : group;
    std::ranges::replace(name, ' ', '_');
    return name;
}

/// With the red of what has no texture.
Mesh MeshOf(const SceneMaker& maker, float plainGrey = 192.0F / 255) {
    Mesh mesh;
    for (const Brush& brush : maker.scene.brushes) {
        for (const BrushFace& face : brush.faces) {
            if (face.invisible || IsLine(face)) continue;
            const std::array<std::int32_t, 3> corners{face.a, face.b, face.c};
            Triangle triangle;
            for (std::size_t i = 0; i < 3; ++i) {
                const Vec3 p = At(brush, corners[i]);
                const Vec3& n = face.smooth == 1 ? face.cornerNormals[i] : face.normal;
                const float l = std::hypot(n.x, n.y, n.z);  // those of corners are no units
                triangle[i] = {p.x,     p.y,     p.z,          n.x / l,
                               n.y / l, n.z / l, face.uv[i].u, face.uv[i].v};
            }
            const std::string& texture = maker.library.TextureFilename(face.texture);
            const Look look{texture, 1 - static_cast<float>(face.transparency) / 100,
                            texture.empty() ? plainGrey : 1};
            mesh[{NameInFile(brush.group), look}].push_back(triangle);
        }
    }
    return mesh;
}

void ExpectEqual(const Mesh& found, const Mesh& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (auto it = found.begin(); const auto& [key, triangles] : expected) {
        SCOPED_TRACE(key.first + " " + key.second.texture);
        ASSERT_EQ(it->first.first, key.first);
        ASSERT_EQ(it->first.second.texture, key.second.texture);
        ASSERT_NEAR(it->first.second.opacity, key.second.opacity, 1e-6);
        ASSERT_NEAR(it->first.second.red, key.second.red, 1e-4);
        ASSERT_EQ(it->second.size(), triangles.size());
        for (std::size_t t = 0; t < triangles.size(); ++t) {
            for (std::size_t k = 0; k < 24; ++k)
                ASSERT_NEAR(it->second[t][k / 8][k % 8], triangles[t][k / 8][k % 8], 1e-4)
                    << "triangle " << t << ", corner " << k / 8 << ", number " << k % 8;
        }
        ++it;
    }
}

Mesh ReadOBJ(const std::string& path) {
    tinyobj::ObjReader reader;
    EXPECT_TRUE(reader.ParseFromFile(path)) << reader.Error();
    EXPECT_EQ(reader.Warning(), "");
    const tinyobj::attrib_t& all = reader.GetAttrib();
    Mesh mesh;
    for (const tinyobj::shape_t& shape : reader.GetShapes()) {
        for (std::size_t f = 0; f < shape.mesh.material_ids.size(); ++f) {
            const auto& material =
                reader.GetMaterials().at(static_cast<std::size_t>(shape.mesh.material_ids[f]));
            Triangle triangle;
            for (std::size_t i = 0; i < 3; ++i) {
                const tinyobj::index_t& at = shape.mesh.indices.at(3 * f + i);
                std::copy_n(&all.vertices.at(std::size_t(at.vertex_index) * 3), 3, &triangle[i][0]);
                std::copy_n(&all.normals.at(std::size_t(at.normal_index) * 3), 3, &triangle[i][3]);
                std::copy_n(&all.texcoords.at(std::size_t(at.texcoord_index) * 2), 2,
                            &triangle[i][6]);
            }
            mesh[{shape.name, {material.diffuse_texname, material.dissolve, material.diffuse[0]}}]
                .push_back(triangle);
        }
    }
    return mesh;
}

/// Empty where assimp finds fault with the file.
const aiScene* LoadGLB(Assimp::Importer& importer, const std::string& path) {
    const aiScene* scene = importer.ReadFile(path, 0);
    EXPECT_NE(scene, nullptr) << importer.GetErrorString();
    return scene;
}

Look LookOf(const aiScene& scene, const aiMaterial& material) {
    aiColor4D color;
    EXPECT_EQ(material.Get(AI_MATKEY_BASE_COLOR, color), aiReturn_SUCCESS);
    EXPECT_EQ(color.r, color.b);
    float metallic = 1;
    EXPECT_EQ(material.Get(AI_MATKEY_METALLIC_FACTOR, metallic), aiReturn_SUCCESS);
    EXPECT_EQ(metallic, 0);
    bool twoSided = true;
    EXPECT_EQ(material.Get(AI_MATKEY_TWOSIDED, twoSided), aiReturn_SUCCESS);
    EXPECT_FALSE(twoSided);
    aiString mode, map;
    EXPECT_EQ(material.Get(AI_MATKEY_GLTF_ALPHAMODE, mode), aiReturn_SUCCESS);
    EXPECT_STREQ(mode.C_Str(), color.a < 1 ? "BLEND" : "OPAQUE");
    if (material.GetTexture(aiTextureType_BASE_COLOR, 0, &map) != aiReturn_SUCCESS)
        return {"", color.a, color.r};
    return {scene.GetEmbeddedTexture(map.C_Str())->mFilename.C_Str(), color.a, color.r};
}

void AddMesh(Mesh& all, const std::string& node, const aiScene& scene, const aiMesh& mesh) {
    auto& triangles = all[{node, LookOf(scene, *scene.mMaterials[mesh.mMaterialIndex])}];
    for (const aiFace& face : std::span(mesh.mFaces, mesh.mNumFaces)) {
        ASSERT_EQ(face.mNumIndices, 3U);
        Triangle& triangle = triangles.emplace_back();
        for (std::size_t i = 0; i < 3; ++i) {
            const unsigned at = face.mIndices[i];
            const aiVector3D p = mesh.mVertices[at], n = mesh.mNormals[at],
                             uv = mesh.mTextureCoords[0][at];
            triangle[i] = {p.x, p.y, p.z, n.x, n.y, n.z, uv.x, uv.y};
        }
    }
}

void AddNode(Mesh& all, const aiScene& scene, const aiNode& node) {
    EXPECT_TRUE(node.mTransformation.IsIdentity());
    for (const unsigned mesh : std::span(node.mMeshes, node.mNumMeshes))
        AddMesh(all, node.mName.C_Str(), scene, *scene.mMeshes[mesh]);
    for (const aiNode* child : std::span(node.mChildren, node.mNumChildren))
        AddNode(all, scene, *child);
}

Mesh ReadGLB(const std::string& path) {
    Assimp::Importer importer;
    Mesh mesh;
    if (const aiScene* scene = LoadGLB(importer, path)) AddNode(mesh, *scene, *scene->mRootNode);
    return mesh;
}

struct InterchangeTest : testing::Test {
    bool SaveBoth(const SceneMaker& maker, const std::string& textures = kTextures) {
        return SaveOBJ(obj, maker.scene, maker.library, textures) &&
               SaveGLB(glb, maker.scene, maker.library, textures, PngOf);
    }

    TempFolder folder;
    const std::string obj = folder.Path("big house.obj");
    const std::string mtl = folder.Path("big_house.mtl");
    const std::string glb = folder.Path("big house.glb");
};

TEST_F(InterchangeTest, TinyobjloaderReadsWhatTheSceneHolds) {
    const SceneMaker maker = MakeScene();
    const Bytes mine{1, 2, 3};
    WriteFileBytes(folder.Path("Window.tga"), mine);
    ASSERT_TRUE(SaveBoth(maker));
    ExpectEqual(ReadOBJ(obj), MeshOf(maker));
    EXPECT_EQ(folder.EntryCount(), 6);
    EXPECT_EQ(FileBytes(folder.Path("Brick.jpg")),
              FileBytes(kTextures + std::string("/Brick.jpg")));
    EXPECT_EQ(FileBytes(folder.Path("Window.tga")), mine) << "a picture of the user's stays";
}

TEST_F(InterchangeTest, AssimpReadsWhatTheSceneHolds) {
    const SceneMaker maker = MakeScene();
    ASSERT_TRUE(SaveBoth(maker));
    ExpectEqual(ReadGLB(glb), MeshOf(maker, 0.5271F));  // linear
    Assimp::Importer importer;
    const aiScene* scene = LoadGLB(importer, glb);
    ASSERT_EQ(scene->mNumTextures, 3U) << "the file is complete";
    for (const aiTexture* texture : std::span(scene->mTextures, scene->mNumTextures)) {
        const std::string name = texture->mFilename.C_Str();
        EXPECT_STREQ(texture->achFormatHint, name == "Brick.jpg" ? "jpg" : "png");
        cDIBSection original;
        ASSERT_EQ(LoadImageFile(kTextures + ("/" + name), original), ImageLoaded);
        const QImage picture = PictureOf(original).convertToFormat(QImage::Format_RGB32);
        const auto* bytes = reinterpret_cast<const uchar*>(texture->pcData);
        const QImage found = QImage::fromData(bytes, int(texture->mWidth));
        EXPECT_EQ(found.convertToFormat(QImage::Format_RGB32), picture) << name;
    }
}

/// What readers rely on, and assimp does not look at.
TEST_F(InterchangeTest, NumbersLieInTheGlbFileAsItsTextSays) {
    ASSERT_TRUE(SaveBoth(MakeScene()));
    const Bytes file = FileBytes(glb);
    const auto length = static_cast<std::size_t>(FetchLong(&file[12]));
    const auto json = nlohmann::json::parse(&file[20], &file[20] + length);
    const std::span<const std::uint8_t> numbers = std::span(file).subspan(28 + length);
    EXPECT_EQ(json["buffers"].at(0)["byteLength"], numbers.size());
    int primitives = 0;
    for (const auto& mesh : json["meshes"]) {
        for (const auto& primitive : mesh["primitives"]) {
            ++primitives;
            const auto viewOf = [&](const nlohmann::json& place, int target) {
                const auto& view =
                    json["bufferViews"].at(json["accessors"]
                                               .at(place.get<std::size_t>())["bufferView"]
                                               .get<std::size_t>());
                EXPECT_EQ(view["target"], target);
                const auto offset = view.value("byteOffset", std::size_t{0});
                EXPECT_EQ(offset % 4, 0U);
                return numbers.subspan(offset, view["byteLength"]);
            };
            viewOf(primitive["indices"], 34963);
            const auto& place = primitive["attributes"]["POSITION"];
            const auto& positions = json["accessors"].at(place.get<std::size_t>());
            const auto bytes = viewOf(place, 34962);
            ASSERT_EQ(bytes.size(), positions["count"].get<std::size_t>() * 12);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                float least = FLT_MAX, most = -FLT_MAX;
                for (std::size_t at = axis * 4; at < bytes.size(); at += 12) {
                    least = std::min(least, FetchSingle(&bytes[at]));
                    most = std::max(most, FetchSingle(&bytes[at]));
                }
                EXPECT_EQ(positions["min"].at(axis), least);
                EXPECT_EQ(positions["max"].at(axis), most);
            }
        }
    }
    EXPECT_EQ(primitives, 5);
}

TEST_F(InterchangeTest, ScenesWithoutAFaceToShowGiveFilesThatCanBeRead) {
    SceneMaker hidden = MakeScene();
    for (Brush& brush : hidden.scene.brushes)
        for (BrushFace& face : brush.faces) face.invisible = true;
    SceneMaker flat;
    for (Vertex& vertex : flat.Create(Box, 4, {0, 0, 0}, {1, 1, 1}).vertices) vertex.MoveTo({});
    for (const SceneMaker& maker : {SceneMaker(), hidden, flat}) {
        ASSERT_TRUE(SaveBoth(maker));
        EXPECT_TRUE(ReadOBJ(obj).empty());
        EXPECT_TRUE(ReadGLB(glb).empty());
    }
}

TEST_F(InterchangeTest, WhatIsNoNumberBecomesTheNearest) {
    SceneMaker maker = MakeScene();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    maker.scene.brushes[0].vertices[0].x = std::nanf("");
    maker.scene.brushes[0].vertices[1].y = -kInfinity;
    maker.scene.brushes[1].faces[20].uv[1] = {kInfinity, std::nanf("")};
    maker.scene.brushes[1].faces[21].cornerNormals[2] = {std::nanf(""), 0, 0};
    ASSERT_TRUE(SaveBoth(maker));
    for (const Mesh& mesh : {ReadOBJ(obj), ReadGLB(glb)}) {
        ASSERT_EQ(mesh.size(), 5U);
        for (const auto& [key, triangles] : mesh) {
            for (const Triangle& triangle : triangles) {
                for (const Corner& corner : triangle) {
                    for (const float number : corner) ASSERT_TRUE(std::isfinite(number));
                    ASSERT_NEAR(std::hypot(corner[3], corner[4], corner[5]), 1, 1e-4);
                }
            }
        }
    }
}

/// An object of foreign origin can name any texture. What its name reaches outside the folder of
/// textures stays there, and no name breaks a line of the file.
TEST_F(InterchangeTest, ForeignTextureNamesDoNoHarm) {
    std::filesystem::create_directories(folder.Path("textures"));
    std::filesystem::create_directories(folder.Path("out"));
    const std::string secret = "\x89PNG secret";
    WriteFileBytes(folder.Path("secret.png"), Bytes(secret.begin(), secret.end()));
    WriteFileBytes(folder.Path("textures/text.bmp"), Bytes(secret.begin() + 5, secret.end()));
    for (const char* name :
         {"../secret.png", "lost.jpg", "a\nmap_Kd b.jpg", "..", "text.bmp", "\\\\host\\b.jpg"}) {
        SceneMaker maker;
        maker.library.SelectTexture(maker.library.AddTexture(name, 32, 32));
        maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
        const std::string at = folder.Path("out/x");
        ASSERT_TRUE(SaveOBJ(at + ".obj", maker.scene, maker.library, folder.Path("textures")));
        const Mesh mesh = ReadOBJ(at + ".obj");
        ASSERT_EQ(mesh.size(), 1U);
        EXPECT_EQ(mesh.begin()->first.second.texture.find("b.jpg"), std::string::npos);
        ASSERT_TRUE(
            SaveGLB(at + ".glb", maker.scene, maker.library, folder.Path("textures"), PngOf));
        Assimp::Importer importer;
        EXPECT_FALSE(LoadGLB(importer, at + ".glb")->HasTextures()) << name;
        EXPECT_FALSE(std::filesystem::exists(folder.Path("out/secret.png")));
    }
}

TEST_F(InterchangeTest, NamesThatMeanSomethingElseToTheFormatDoNoHarm) {
    SceneMaker maker;
    maker.library.SelectTexture(maker.library.AddTexture("-s 1.jpg", 32, 32));
    maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    const std::string path = folder.Path("gr\xFCn \"1\"");
    ASSERT_TRUE(SaveOBJ(path + ".obj", maker.scene, maker.library, "no folder"));
    ASSERT_TRUE(SaveGLB(path + ".glb", maker.scene, maker.library, "no folder", PngOf));
    EXPECT_EQ(ReadOBJ(path + ".obj").begin()->first.second.texture, "./-s 1.jpg");
    EXPECT_EQ(ReadGLB(path + ".glb").begin()->first.first, "gr\u00FCn__1_");
}

TEST_F(InterchangeTest, MaterialsOfLikeNamesStayApart) {
    SceneMaker maker;
    for (const char* name : {"old wall.jpg", "old_wall.jpg", "old wall.tga"}) {
        maker.library.SelectTexture(maker.library.AddTexture(name, 32, 32));
        maker.Create(Box, 4, {0, 0, 0}, {1, 1, 1});
    }
    ASSERT_TRUE(SaveBoth(maker));
    EXPECT_EQ(ReadOBJ(obj).size(), 3U);
}

/// The mesh does not fit on the disk, its materials would.
TEST_F(InterchangeTest, NeitherFileIsReplacedAlone) {
    const Bytes old{'o', 'l', 'd'};
    for (const std::string& path : {obj, mtl, glb}) WriteFileBytes(path, old);
    const SceneMaker maker = MakeScene();
    {
        const FileSizeLimit full(900);
        EXPECT_FALSE(SaveOBJ(obj, maker.scene, maker.library, "no folder"));
        EXPECT_FALSE(SaveGLB(glb, maker.scene, maker.library, "no folder", PngOf));
    }
    for (const std::string& path : {obj, mtl, glb}) EXPECT_EQ(FileBytes(path), old) << path;
    EXPECT_EQ(folder.EntryCount(), 3);
    ASSERT_TRUE(SaveBoth(maker));
    EXPECT_GT(FileBytes(obj).size(), 900U);
    EXPECT_LT(FileBytes(mtl).size(), 900U);
}

}  // namespace
}  // namespace korvane::test
