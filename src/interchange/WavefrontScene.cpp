#include "interchange/WavefrontScene.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane {
namespace {

constexpr float kPlainGrey = 192.0F / 255;  // what has no picture, as in the preview

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

std::unique_ptr<aiMesh> MeshOf(const MeshPart& part, const std::string& name) {
    auto mesh = std::make_unique<aiMesh>();
    const std::size_t count = part.corners.size();
    mesh->mName = aiString(name);
    mesh->mMaterialIndex = static_cast<unsigned>(part.material);
    mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    mesh->mNumVertices = static_cast<unsigned>(count);
    mesh->mVertices = new aiVector3D[count];
    mesh->mNormals = new aiVector3D[count];
    mesh->mTextureCoords[0] = new aiVector3D[count];
    mesh->mNumUVComponents[0] = 2;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& [p, n, uv] = part.corners[i];
        mesh->mVertices[i] = {p.x, p.y, p.z};
        mesh->mNormals[i] = {n.x, n.y, n.z};
        mesh->mTextureCoords[0][i] = {uv.u, uv.v, 0};
    }
    mesh->mNumFaces = mesh->mNumVertices / 3;
    mesh->mFaces = new aiFace[mesh->mNumFaces];
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
    const float shade = look.map.empty() ? kPlainGrey : 1;
    const aiColor3D color(shade, shade, shade);
    material->AddProperty(&name, AI_MATKEY_NAME);
    material->AddProperty(&color, 1, AI_MATKEY_COLOR_DIFFUSE);
    material->AddProperty(&look.opacity, 1, AI_MATKEY_OPACITY);
    if (map.length > 0) material->AddProperty(&map, AI_MATKEY_TEXTURE_DIFFUSE(0));
    return material;
}

/// A node with the meshes of neighbouring parts.
std::unique_ptr<aiNode> NodeOf(const std::string& name, std::size_t first, std::size_t count) {
    auto node = std::make_unique<aiNode>(name);
    node->mMeshes = new unsigned[count];
    node->mNumMeshes = static_cast<unsigned>(count);
    for (std::size_t i = 0; i < count; ++i) node->mMeshes[i] = static_cast<unsigned>(first + i);
    return node;
}

/// Takes the mesh of each part.
std::unique_ptr<aiNode> NodesOf(std::span<const MeshPart> parts, const std::string& name) {
    std::unique_ptr<aiNode> root;
    Owned<aiNode> children;
    for (std::size_t i = 0; i < parts.size();) {
        const std::string& group = parts[i].group;
        const std::size_t first = i;
        while (i < parts.size() && parts[i].group == group) ++i;
        if (group.empty()) {
            root = NodeOf(name, first, i - first);
        } else {
            children.push_back(NodeOf(MeshName(group), first, i - first));
        }
    }
    if (!root) root = std::make_unique<aiNode>(name);
    for (auto& child : children) child->mParent = root.get();
    HandOver(std::move(children), root->mChildren, root->mNumChildren);
    return root;
}

}  // namespace

std::unique_ptr<aiScene> BuildWavefrontScene(std::span<const MeshPart> parts,
                                             std::span<const MeshMaterial> materials,
                                             const std::string& name) {
    auto scene = std::make_unique<aiScene>();
    scene->mRootNode = NodesOf(parts, name).release();
    Owned<aiMesh> meshes;
    for (const MeshPart& part : parts)
        meshes.push_back(MeshOf(part, part.group.empty() ? name : MeshName(part.group)));
    HandOver(std::move(meshes), scene->mMeshes, scene->mNumMeshes);
    Owned<aiMaterial> written;
    for (const MeshMaterial& look : materials) written.push_back(MaterialOf(look));
    HandOver(std::move(written), scene->mMaterials, scene->mNumMaterials);
    return scene;
}

}  // namespace korvane
