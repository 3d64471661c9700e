#include "interchange/GlbFile.h"

#include <tiny_gltf.h>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace korvane {
namespace {

/// The grey of the preview for what has no picture, 192/255, in linear light as glTF has it:
/// ((192/255 + 0.055) / 1.055)^2.4.
constexpr double kPlainGrey = 0.527115;

/// The lengths in the file have 32 bits; room for the text about the content.
constexpr std::size_t kMostBytes = std::numeric_limits<std::uint32_t>::max() / 2;

/// A corner by its bits: two that differ in a sign of zero stay two.
using CornerBits = std::array<std::uint32_t, 8>;

struct HashOfBits {
    std::size_t operator()(const CornerBits& bits) const {
        std::uint64_t hash = 0;
        for (const std::uint32_t part : bits)
            hash = std::rotl((hash ^ part) * 0x9E3779B97F4A7C15, 29);
        return hash;
    }
};

/// The corners of a part, each once, and the places of all among them.
struct IndexedCorners {
    std::vector<std::array<float, 3>> positions, normals;
    std::vector<std::array<float, 2>> texCoords;
    std::vector<std::uint32_t> indices;

    explicit IndexedCorners(const std::vector<MeshCorner>& corners) {
        std::unordered_map<CornerBits, std::uint32_t, HashOfBits> known;
        known.reserve(corners.size());
        for (const auto& [p, n, uv] : corners) {
            const std::array<float, 8> numbers = {p.x, p.y, p.z, n.x, n.y, n.z, uv.u, uv.v};
            const auto next = static_cast<std::uint32_t>(positions.size());
            const auto [place, isNew] = known.try_emplace(std::bit_cast<CornerBits>(numbers), next);
            indices.push_back(place->second);
            if (!isNew) continue;
            positions.push_back({p.x, p.y, p.z});
            normals.push_back({n.x, n.y, n.z});
            texCoords.push_back({uv.u, 1 - uv.v});  // textures hang from the top there
        }
    }
};

/// Fills a model whose first buffer holds everything.
class GlbBuilder {
  public:
    GlbBuilder() {
        model_.asset.version = "2.0";
        model_.asset.generator = "Korvane";
        model_.buffers.emplace_back();
    }

    void AddPictures(std::span<const EmbeddedPicture> pictures) {
        for (const EmbeddedPicture& picture : pictures) {
            tinygltf::Image image;
            image.name = picture.filename;
            image.mimeType = picture.mimeType;
            image.bufferView = AddView(picture.bytes.data(), picture.bytes.size(), 0);
            tinygltf::Texture texture;
            texture.source = static_cast<int>(model_.images.size());
            model_.images.push_back(std::move(image));
            model_.textures.push_back(std::move(texture));
        }
    }

    void AddMaterial(const MeshMaterial& look) {
        tinygltf::Material material;
        material.name = look.name;
        auto& surface = material.pbrMetallicRoughness;
        const double shade = look.map.empty() ? kPlainGrey : 1;
        surface.baseColorFactor = {shade, shade, shade, look.opacity};
        surface.metallicFactor = 0;
        if (look.opacity < 1) material.alphaMode = "BLEND";
        if (!look.map.empty()) {
            const auto image = std::ranges::find(model_.images, look.map, &tinygltf::Image::name);
            if (image != model_.images.end())
                surface.baseColorTexture.index = static_cast<int>(image - model_.images.begin());
        }
        model_.materials.push_back(std::move(material));
    }

    /// The root, and the parts of each group below it.
    void AddNodes(std::span<const MeshPart> parts, const std::string& name) {
        model_.nodes.emplace_back();
        model_.nodes[0].name = name;
        for (std::size_t i = 0; i < parts.size();) {
            const std::string& group = parts[i].group;
            tinygltf::Mesh mesh;
            mesh.name = group.empty() ? name : MeshName(group);
            for (; i < parts.size() && parts[i].group == group; ++i)
                mesh.primitives.push_back(PrimitiveOf(parts[i]));
            if (!group.empty()) {
                model_.nodes[0].children.push_back(static_cast<int>(model_.nodes.size()));
                model_.nodes.emplace_back();
                model_.nodes.back().name = mesh.name;
            }
            (group.empty() ? model_.nodes[0] : model_.nodes.back()).mesh =
                static_cast<int>(model_.meshes.size());
            model_.meshes.push_back(std::move(mesh));
        }
        model_.scenes.emplace_back();
        model_.scenes[0].nodes = {0};
        model_.defaultScene = 0;
    }

    std::optional<std::string> Bytes() {
        const std::size_t size = model_.buffers[0].data.size();
        if (size > kMostBytes) return std::nullopt;
        if (size == 0) model_.buffers.clear();  // one without bytes is no valid one
        std::ostringstream out;
        // Its answer is always true; a stream that had no memory left says so itself.
        tinygltf::TinyGLTF().WriteGltfSceneToStream(&model_, out, false, true);
        if (!out) return std::nullopt;
        return std::move(out).str();
    }

  private:
    int AddView(const void* from, std::size_t bytes, int target) {
        std::vector<unsigned char>& data = model_.buffers[0].data;
        tinygltf::BufferView view;
        view.buffer = 0;
        view.byteOffset = data.size();
        view.byteLength = bytes;
        view.target = target;
        const auto* first = static_cast<const unsigned char*>(from);
        data.insert(data.end(), first, first + bytes);
        data.resize((data.size() + 3) / 4 * 4);  // the next starts where a number may
        model_.bufferViews.push_back(std::move(view));
        return static_cast<int>(model_.bufferViews.size() - 1);
    }

    template <class Item>
    int AddAccessor(const std::vector<Item>& items, int target, int componentType, int type) {
        tinygltf::Accessor accessor;
        accessor.bufferView = AddView(items.data(), items.size() * sizeof(Item), target);
        accessor.componentType = componentType;
        accessor.type = type;
        accessor.count = items.size();
        model_.accessors.push_back(std::move(accessor));
        return static_cast<int>(model_.accessors.size() - 1);
    }

    template <std::size_t N>
    int AddAttribute(const std::vector<std::array<float, N>>& items) {
        return AddAccessor(items, TINYGLTF_TARGET_ARRAY_BUFFER, TINYGLTF_COMPONENT_TYPE_FLOAT,
                           N == 2 ? TINYGLTF_TYPE_VEC2 : TINYGLTF_TYPE_VEC3);
    }

    tinygltf::Primitive PrimitiveOf(const MeshPart& part) {
        const IndexedCorners corners(part.corners);
        tinygltf::Primitive primitive;
        primitive.mode = TINYGLTF_MODE_TRIANGLES;
        primitive.material = static_cast<int>(part.material);
        primitive.indices = AddAccessor(corners.indices, TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER,
                                        TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT, TINYGLTF_TYPE_SCALAR);
        primitive.attributes["POSITION"] = AddAttribute(corners.positions);
        for (int axis = 0; axis < 3; ++axis) {
            const auto [least, most] = std::ranges::minmax(
                corners.positions, {}, [&](const auto& position) { return position[axis]; });
            model_.accessors.back().minValues.push_back(least[axis]);
            model_.accessors.back().maxValues.push_back(most[axis]);
        }
        primitive.attributes["NORMAL"] = AddAttribute(corners.normals);
        primitive.attributes["TEXCOORD_0"] = AddAttribute(corners.texCoords);
        return primitive;
    }

    tinygltf::Model model_;
};

}  // namespace

static_assert(std::endian::native == std::endian::little, "glTF holds numbers as they lie here");

std::optional<std::string> GlbBytes(std::span<const MeshPart> parts,
                                    std::span<const MeshMaterial> materials,
                                    std::span<const EmbeddedPicture> pictures,
                                    const std::string& name) {
    GlbBuilder builder;
    builder.AddPictures(pictures);
    for (const MeshMaterial& material : materials) builder.AddMaterial(material);
    builder.AddNodes(parts, name);
    return builder.Bytes();
}

}  // namespace korvane
