#include "interchange/MeshScene.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr std::size_t kLongestName = 255;  // bytes

/// assimp compares each corner of a mesh with all others in its place.
constexpr int kMostInOnePlace = 1000;

template <class T>
using Owned = std::vector<std::unique_ptr<T>>;

/// Hands a list over to a record of assimp: an array of pointers and their number.
template <class T>
void HandOver(Owned<T> list, T**& array, unsigned& count) {
    if (list.empty()) return;
    array = new T*[list.size()];
    count = static_cast<unsigned>(list.size());
    std::ranges::transform(list, array, [](auto& item) { return item.release(); });
}

void HandOver(const std::vector<aiVector3D>& list, aiVector3D*& array) {
    array = new aiVector3D[list.size()];
    std::ranges::copy(list, array);
}

void HandOver(const std::vector<unsigned>& list, unsigned*& array, unsigned& count) {
    if (list.empty()) return;
    array = new unsigned[list.size()];
    count = static_cast<unsigned>(list.size());
    std::ranges::copy(list, array);
}

/// The vector with a length of 1; nothing where that has no meaning.
std::optional<aiVector3D> Unit(double x, double y, double z) {
    const double length = std::hypot(x, y, z);
    if (!(length > 0) || !std::isfinite(length)) return std::nullopt;
    return aiVector3D(static_cast<float>(x / length), static_cast<float>(y / length),
                      static_cast<float>(z / length));
}

/// As the face normal of the scene, of the positions that are written.
std::optional<aiVector3D> NormalOf(const std::array<aiVector3D, 3>& p) {
    const double ax = double{p[0].x} - p[2].x, bx = double{p[1].x} - p[2].x;
    const double ay = double{p[0].y} - p[2].y, by = double{p[1].y} - p[2].y;
    const double az = double{p[0].z} - p[2].z, bz = double{p[1].z} - p[2].z;
    return Unit(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx);
}

/// The corners of triangles, three and three.
struct Corners {
    std::vector<aiVector3D> positions;
    std::vector<aiVector3D> normals;
    std::vector<aiVector3D> texCoords;
};

std::array<aiVector3D, 3> PositionsOf(const ExportFace& face) {
    std::array<aiVector3D, 3> positions;
    std::ranges::transform(face.Corners(), positions.begin(), [](const Vec3& p) {
        return aiVector3D(Finite(p.x), Finite(p.y), Finite(p.z));
    });
    return positions;
}

void AddFace(Corners& corners, const BrushFace& face, const std::array<aiVector3D, 3>& positions,
             const aiVector3D& flat) {
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec3& n = face.cornerNormals[i];
        const TexCoord& uv = face.uv[i];
        corners.positions.push_back(positions[i]);
        corners.normals.push_back(face.smooth == 1 ? Unit(n.x, n.y, n.z).value_or(flat) : flat);
        corners.texCoords.emplace_back(Finite(uv.u), Finite(uv.v), 0.0F);
    }
}

/// The corners of the faces that have an area, in as few meshes as may be: one, but for places
/// where thousands meet.
std::vector<Corners> Divide(const std::vector<ExportFace>& faces) {
    const auto hash = [](const aiVector3D& p) {
        const std::hash<float> of;
        return (of(p.x) * 31 + of(p.y)) * 31 + of(p.z);
    };
    const auto same = [](const aiVector3D& p, const aiVector3D& q) {
        return p.x == q.x && p.y == q.y && p.z == q.z;
    };
    std::unordered_map<aiVector3D, int, decltype(hash), decltype(same)> seen(faces.size(), hash,
                                                                             same);
    std::vector<Corners> meshes;
    for (const ExportFace& face : faces) {
        const auto positions = PositionsOf(face);
        const auto flat = NormalOf(positions);
        if (!flat) continue;
        int crowd = 0;
        for (const aiVector3D& p : positions) crowd = std::max(crowd, seen[p]++);
        const auto mesh = static_cast<std::size_t>(crowd / kMostInOnePlace);
        if (mesh >= meshes.size()) meshes.resize(mesh + 1);
        AddFace(meshes[mesh], *face.face, positions, *flat);
    }
    return meshes;
}

std::unique_ptr<aiMesh> MeshOf(const Corners& corners, const std::string& name, unsigned material) {
    auto mesh = std::make_unique<aiMesh>();
    mesh->mName = aiString(name);
    mesh->mMaterialIndex = material;
    mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    mesh->mNumVertices = static_cast<unsigned>(corners.positions.size());
    HandOver(corners.positions, mesh->mVertices);
    HandOver(corners.normals, mesh->mNormals);
    HandOver(corners.texCoords, mesh->mTextureCoords[0]);
    mesh->mNumUVComponents[0] = 2;
    mesh->mFaces = new aiFace[corners.positions.size() / 3];
    mesh->mNumFaces = mesh->mNumVertices / 3;
    for (unsigned i = 0; i < mesh->mNumFaces; ++i) {
        mesh->mFaces[i].mIndices = new unsigned[3]{3 * i, 3 * i + 1, 3 * i + 2};
        mesh->mFaces[i].mNumIndices = 3;
    }
    return mesh;
}

std::unique_ptr<aiMaterial> MaterialOf(const MeshMaterial& look) {
    auto material = std::make_unique<aiMaterial>();
    const aiString name(look.name);
    const aiString map(look.map);
    const aiColor3D color(look.shade, look.shade, look.shade);
    material->AddProperty(&name, AI_MATKEY_NAME);
    material->AddProperty(&color, 1, AI_MATKEY_COLOR_DIFFUSE);
    material->AddProperty(&look.opacity, 1, AI_MATKEY_OPACITY);
    if (map.length > 0) material->AddProperty(&map, AI_MATKEY_TEXTURE_DIFFUSE(0));
    return material;
}

/// What is no array of pixels has no height, and its length for its width.
std::unique_ptr<aiTexture> TextureOf(const EmbeddedPicture& picture) {
    auto texture = std::make_unique<aiTexture>();
    const std::size_t length = picture.bytes.size();
    texture->mFilename = aiString(picture.filename);
    picture.kind.copy(texture->achFormatHint, sizeof texture->achFormatHint - 1);
    texture->pcData = new aiTexel[length / sizeof(aiTexel) + 1];
    std::memcpy(static_cast<void*>(texture->pcData), picture.bytes.data(), length);
    texture->mWidth = static_cast<unsigned>(length);
    return texture;
}

using Groups = std::map<std::string, std::vector<ExportFace>>;

Groups ByGroup(const std::vector<ExportFace>& faces) {
    Groups groups;
    const Brush* last = nullptr;
    std::vector<ExportFace>* group = nullptr;
    for (const ExportFace& face : faces) {
        if (std::exchange(last, face.brush) != face.brush) group = &groups[face.brush->group];
        group->push_back(face);
    }
    return groups;
}

/// Takes the meshes of each group.
std::unique_ptr<aiNode> NodesOf(const std::map<std::string, std::vector<unsigned>>& meshes,
                                const std::string& name) {
    auto root = std::make_unique<aiNode>(name);
    Owned<aiNode> groups;
    for (const auto& [group, indices] : meshes) {
        aiNode* node = root.get();
        if (!group.empty()) {
            node = groups.emplace_back(std::make_unique<aiNode>(MeshName(group))).get();
            node->mParent = root.get();
        }
        HandOver(indices, node->mMeshes, node->mNumMeshes);
    }
    HandOver(std::move(groups), root->mChildren, root->mNumChildren);
    return root;
}

}  // namespace

std::string MeshName(const std::string& text) {
    constexpr std::string_view kUnfit = " \"#\\/\x7F";
    std::string name = text;
    for (char& c : name) {
        const bool control = static_cast<unsigned char>(c) < ' ';
        if (control || kUnfit.find(c) != std::string_view::npos) c = '_';
    }
    // Not within a character of several bytes.
    std::size_t length = std::min(name.size(), kLongestName);
    while (length > 0 && length < name.size() && (name[length] & 0xC0) == 0x80) --length;
    name.resize(length);
    return name;
}

std::unique_ptr<aiScene> BuildMeshScene(std::span<const ExportMaterial> materials,
                                        std::span<const MeshMaterial> looks,
                                        std::span<const EmbeddedPicture> pictures,
                                        const std::string& name) {
    auto scene = std::make_unique<aiScene>();
    Owned<aiMesh> meshes;
    std::map<std::string, std::vector<unsigned>> ofGroup;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        for (const auto& [group, faces] : ByGroup(materials[i].faces)) {
            const std::string meshName = group.empty() ? name : MeshName(group);
            for (const Corners& corners : Divide(faces)) {
                ofGroup[group].push_back(static_cast<unsigned>(meshes.size()));
                meshes.push_back(MeshOf(corners, meshName, static_cast<unsigned>(i)));
            }
        }
    }
    scene->mRootNode = NodesOf(ofGroup, name).release();
    HandOver(std::move(meshes), scene->mMeshes, scene->mNumMeshes);
    Owned<aiMaterial> written;
    for (const MeshMaterial& look : looks) written.push_back(MaterialOf(look));
    HandOver(std::move(written), scene->mMaterials, scene->mNumMaterials);
    Owned<aiTexture> textures;
    for (const EmbeddedPicture& picture : pictures) textures.push_back(TextureOf(picture));
    HandOver(std::move(textures), scene->mTextures, scene->mNumTextures);
    return scene;
}

}  // namespace korvane
