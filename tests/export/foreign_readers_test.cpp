// Exported 3DS files as two foreign readers understand them: lib3ds and assimp.
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#include <gtest/gtest.h>
#include <lib3ds/file.h>
#include <lib3ds/material.h>
#include <lib3ds/mesh.h>

#include <array>
#include <assimp/Importer.hpp>
#include <map>
#include <memory>
#include <vector>

#include "export/mExport3DS.h"
#include "support/SceneMaker.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

/// A corner of a triangle in the file's axes, and its texture coordinates.
using Corner = std::array<float, 5>;
using Triangle = std::array<Corner, 3>;

/// Triangles per material, which is told by texture and transparency in percent.
using Mesh = std::map<std::pair<std::string, int>, std::vector<Triangle>>;

/// Boxes, cones and spheres, flat and smooth, with two textures and a transparent one.
SceneMaker MakeScene() {
    SceneMaker maker;
    maker.Create(Box, 4, {-1, 0, -2}, {1, 3, 2.5F});
    maker.library.SelectTexture(2);
    Brush& sphere = maker.Create(Sphere, 12, {3, 0, 0}, {5, 2, 2});
    for (BrushFace& face : sphere.faces) face.smooth = 1;
    for (BrushFace& face : maker.Create(Cone, 7, {0, 5, 0}, {2, 8, 1}).faces)
        face.transparency = 40;
    return maker;
}

Mesh MeshOf(const SceneMaker& maker) {
    Mesh mesh;
    for (const Brush& brush : maker.scene.brushes) {
        for (const BrushFace& face : brush.faces) {
            const std::array<std::int32_t, 3> corners{face.a, face.b, face.c};
            Triangle triangle;
            for (std::size_t i = 0; i < 3; ++i) {
                const Vec3 p = At(brush, corners[i]);
                triangle[i] = {p.x, -p.z, p.y, face.uv[i].u, face.uv[i].v};
            }
            mesh[{maker.library.TextureFilename(face.texture), face.transparency}].push_back(
                triangle);
        }
    }
    return mesh;
}

/// Shared vertices keep the texture coordinates they were added with: those of smooth textures are
/// left out.
void ExpectEqual(const Mesh& found, const Mesh& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (const auto& [material, triangles] : expected) {
        const auto same = found.find(material);
        ASSERT_NE(same, found.end()) << material.first << " " << material.second;
        ASSERT_EQ(same->second.size(), triangles.size()) << material.first;
        const bool shared = material == std::pair<std::string, int>{"sand.tga", 0};
        for (std::size_t t = 0; t < triangles.size(); ++t) {
            for (std::size_t i = 0; i < 3; ++i) {
                for (std::size_t k = 0; k < (shared ? 3U : 5U); ++k) {
                    ASSERT_NEAR(same->second[t][i][k], triangles[t][i][k], 1e-5)
                        << material.first << ", triangle " << t << ", corner " << i << ", " << k;
                }
            }
        }
    }
}

class ForeignReadersTest : public testing::Test {
  protected:
    void SetUp() override {
        std::int32_t parts = 0;
        ASSERT_TRUE(Save3DS(path, maker.scene, maker.library, parts));
    }

    test::TempFolder folder;
    const std::string path = folder.Path("scene.3ds");
    const SceneMaker maker = MakeScene();
};

TEST_F(ForeignReadersTest, Lib3dsReadsWhatTheSceneHolds) {
    const std::unique_ptr<Lib3dsFile, decltype(&lib3ds_file_free)> file(
        lib3ds_file_load(path.c_str()), lib3ds_file_free);
    ASSERT_NE(file, nullptr);
    Mesh found;
    std::vector<std::string> names;
    for (const Lib3dsMesh* mesh = file->meshes; mesh != nullptr; mesh = mesh->next) {
        names.push_back(mesh->name);
        ASSERT_EQ(mesh->texels, mesh->points);
        for (Lib3dsDword f = 0; f < mesh->faces; ++f) {
            const Lib3dsFace& face = mesh->faceL[f];
            const Lib3dsMaterial* material =
                lib3ds_file_material_by_name(file.get(), face.material);
            ASSERT_NE(material, nullptr);
            const bool smooth = std::string(material->texture1_map.name) == "sand.tga" &&
                                material->transparency == 0;
            EXPECT_EQ(face.smoothing, smooth ? 1U : 0U);
            Triangle triangle;
            for (std::size_t i = 0; i < 3; ++i) {
                const auto& pos = mesh->pointL[face.points[i]].pos;
                const auto& uv = mesh->texelL[face.points[i]];
                triangle[i] = {pos[0], pos[1], pos[2], uv[0], uv[1]};
            }
            found[{material->texture1_map.name,
                   static_cast<int>(std::lround(material->transparency * 100))}]
                .push_back(triangle);
        }
    }
    EXPECT_EQ(names, (std::vector<std::string>{"KVEO0000", "KVEO0001", "KVEO0002"}));
    ExpectEqual(found, MeshOf(maker));
}

/// Assimp keeps no object names. That Y is up again stands in the root's transform.
TEST_F(ForeignReadersTest, AssimpReadsWhatTheSceneHolds) {
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(path, 0);
    ASSERT_NE(scene, nullptr) << importer.GetErrorString();
    Mesh found;
    for (unsigned m = 0; m < scene->mNumMeshes; ++m) {
        const aiMesh& mesh = *scene->mMeshes[m];
        const aiMaterial& material = *scene->mMaterials[mesh.mMaterialIndex];
        aiString texture;
        const std::string name = material.GetName().C_Str();
        EXPECT_EQ(name, "MATER00" + std::to_string(m));
        ASSERT_EQ(material.GetTexture(aiTextureType_DIFFUSE, 0, &texture), aiReturn_SUCCESS);
        float opacity = 1;
        material.Get(AI_MATKEY_OPACITY, opacity);
        auto& triangles =
            found[{texture.C_Str(), static_cast<int>(std::lround((1 - opacity) * 100))}];
        for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
            Triangle triangle;
            for (std::size_t i = 0; i < 3; ++i) {
                const unsigned index = mesh.mFaces[f].mIndices[i];
                const aiVector3D& p = mesh.mVertices[index];
                const aiVector3D& uv = mesh.mTextureCoords[0][index];
                triangle[i] = {p.x, p.y, p.z, uv.x, uv.y};
            }
            triangles.push_back(triangle);
        }
    }
    ExpectEqual(found, MeshOf(maker));
}

}  // namespace
}  // namespace korvane
