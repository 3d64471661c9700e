#include "interchange/mInterchange.h"

#include <algorithm>
#include <assimp/Exporter.hpp>
#include <deque>
#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "base/PathText.h"
#include "base/SingleByteText.h"
#include "files/FileBuffer.h"
#include "interchange/GlbFile.h"
#include "interchange/WavefrontScene.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The name without its last extension.
std::string Stem(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

/// How the object is called, after its file, whose name may be any bytes.
std::string ObjectName(const std::string& path) {
    return MeshName(ValidUtf8(Stem(path.substr(FolderOf(path).size()))));
}

/// Objects of foreign origin may name anything; a texture is a file right in its folder, for a
/// reader on any system: a backslash leads elsewhere on Windows, even to other machines.
bool IsPlainFileName(const std::string& name) {
    return !name.empty() && std::ranges::none_of(name, [](char c) {
        return c == '/' || c == '\\' || static_cast<unsigned char>(c) < ' ';
    });
}

/// Names for materials: that of the texture, and the transparency where there is one ("Glass_40").
class MaterialNames {
  public:
    std::string NameOf(const ExportMaterial& material) {
        std::string name = MeshName(Stem(material.MapFileName));
        if (name.empty()) name = "NO_Material";
        if (material.Transparency != 0) name += "_" + std::to_string(material.Transparency);
        std::string unused = name;
        // Thousands may share a name: counting goes on where it ended.
        for (int& i = lastNumber_.try_emplace(name, 1).first->second; !used_.insert(unused).second;)
            unused = name + "-" + std::to_string(++i);
        return unused;
    }

  private:
    std::set<std::string> used_;
    std::map<std::string, int> lastNumber_;
};

float OpacityOf(const ExportMaterial& material) {
    return 1 - static_cast<float>(std::clamp(material.Transparency, 0, 100)) / 100;
}

/// The looks with their maps by file name.
std::vector<MeshMaterial> LooksOf(std::span<const ExportMaterial> materials) {
    std::vector<MeshMaterial> looks;
    MaterialNames names;
    for (const ExportMaterial& material : materials) {
        const std::string& file = material.MapFileName;
        looks.push_back({.name = names.NameOf(material),
                         .map = IsPlainFileName(file) ? file : "",
                         .opacity = OpacityOf(material)});
    }
    return looks;
}

/// The files that assimp's writer of Wavefront files makes, the chief one first; none where it
/// refuses. Valid as long as the exporter is, and until it is used again.
std::vector<std::span<const std::uint8_t>> Write(Assimp::Exporter& exporter, const aiScene& scene,
                                                 const std::string& name) {
    Assimp::ExportProperties properties;
    properties.SetPropertyString(AI_CONFIG_EXPORT_BLOB_NAME, name);
    std::vector<std::span<const std::uint8_t>> files;
    const auto* blob = exporter.ExportToBlob(&scene, "obj", 0, &properties);
    for (; blob != nullptr; blob = blob->next)
        files.emplace_back(static_cast<const std::uint8_t*>(blob->data), blob->size);
    return files;
}

/// Pictures on their way into files.
struct Pictures {
    std::vector<NewFile> files;
    std::deque<Bytes> bytes;  ///< they stay where they are
};

/// Copies of the textures for the folder, except those whose names are taken there.
Pictures CopiesFor(const std::string& folder, std::span<const MeshMaterial> looks,
                   const std::string& textureFolder) {
    Pictures copies;
    std::set<std::string> seen;
    for (const MeshMaterial& look : looks) {
        if (look.map.empty() || !seen.insert(look.map).second) continue;
        const std::string target = folder + look.map;
        std::error_code ignored;
        const std::u8string name(target.begin(), target.end());
        // A link takes its name wherever it leads, and be it nowhere yet.
        if (std::filesystem::exists(std::filesystem::symlink_status(name, ignored))) continue;
        auto bytes = LoadFile(textureFolder + "/" + look.map);
        if (!bytes) continue;
        copies.files.push_back({target, copies.bytes.emplace_back(std::move(*bytes))});
    }
    return copies;
}

bool StartsWith(const Bytes& bytes, std::initializer_list<int> start) {
    return bytes.size() > start.size() && std::equal(start.begin(), start.end(), bytes.begin());
}

/// glTF takes PNG and JPEG; anything else is made a PNG.
std::optional<EmbeddedPicture> Embed(const std::string& folder, const std::string& filename,
                                     const PngMaker& makePng) {
    const std::string path = folder + "/" + filename;
    auto bytes = LoadFile(path);
    if (!bytes) return std::nullopt;
    if (StartsWith(*bytes, {0x89, 'P', 'N', 'G'}))
        return EmbeddedPicture{filename, "image/png", std::move(*bytes)};
    if (StartsWith(*bytes, {0xFF, 0xD8, 0xFF}))
        return EmbeddedPicture{filename, "image/jpeg", std::move(*bytes)};
    auto png = makePng(path);
    if (!png) return std::nullopt;
    return EmbeddedPicture{filename, "image/png", std::move(*png)};
}

/// The pictures that the looks name, each once; what can't be had is taken out of the looks.
std::vector<EmbeddedPicture> EmbedAll(std::span<MeshMaterial> looks, const std::string& folder,
                                      const PngMaker& makePng) {
    std::vector<EmbeddedPicture> pictures;
    std::map<std::string, bool> known;
    for (MeshMaterial& look : looks) {
        if (look.map.empty()) continue;
        const auto [found, isNew] = known.try_emplace(look.map);
        if (isNew) {
            auto picture = Embed(folder, look.map, makePng);
            found->second = picture.has_value();
            if (picture) pictures.push_back(std::move(*picture));
        }
        if (!found->second) look.map.clear();
    }
    return pictures;
}

}  // namespace

bool SaveOBJ(const std::string& path, const Scene& scene, const TextureLibrary& library,
             const std::string& textureFolder) {
    const auto materials = CollectMaterials(scene, library);
    auto looks = LooksOf(materials);
    Pictures copies = CopiesFor(FolderOf(path), looks, textureFolder);
    for (MeshMaterial& look : looks)
        if (look.map.starts_with('-')) look.map.insert(0, "./");  // no option to the map
    // A file that is itself called .mtl needs another name for its materials.
    const std::string name = ObjectName(path.ends_with(".mtl") ? path + ".obj" : path);
    const auto mesh = BuildWavefrontScene(PartsOf(materials), looks, name);
    Assimp::Exporter exporter;
    const auto written = Write(exporter, *mesh, name);
    if (written.size() != 2) return false;
    copies.files.push_back({FolderOf(path) + name + ".mtl", written[1]});
    copies.files.push_back({path, written[0]});
    return SaveFiles(copies.files);
}

bool SaveGLB(const std::string& path, const Scene& scene, const TextureLibrary& library,
             const std::string& textureFolder, const PngMaker& makePng) {
    const auto materials = CollectMaterials(scene, library);
    auto looks = LooksOf(materials);
    const auto pictures = EmbedAll(looks, textureFolder, makePng);
    const auto glb = GlbBytes(PartsOf(materials), looks, pictures, ObjectName(path));
    return glb && SaveFile(path, {reinterpret_cast<const std::uint8_t*>(glb->data()), glb->size()});
}

}  // namespace korvane
