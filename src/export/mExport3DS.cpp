#include "export/mExport3DS.h"

#include <algorithm>
#include <limits>

#include "export/ExportMaterials.h"
#include "export/MeshBuilder.h"

namespace korvane {
namespace {

constexpr Color3DS kAmbient{128, 128, 128};
constexpr Color3DS kDiffuse{192, 192, 192};
constexpr Color3DS kSpecular{255, 255, 255};
constexpr std::int16_t kShininess = 25;
constexpr std::int16_t kShininessStrength = 5;

std::int16_t Level(std::int32_t transparency) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<std::int32_t>(transparency, Limits::min(), Limits::max()));
}

void AddFace(MeshBuilder& builder, const ExportFace& exported) {
    const auto [a, b, c] = exported.Corners();
    const auto& uv = exported.face->uv;
    builder.AddTriangle(a, b, c, uv[0], uv[1], uv[2], exported.face->smooth);
}

}  // namespace

Model3DS Build3DS(const Scene& scene, const TextureLibrary& library, std::int32_t& partCounter) {
    Model3DS model;
    MeshBuilder builder(model, partCounter);
    for (const ExportMaterial& material : CollectMaterials(scene, library)) {
        const std::int32_t index =
            AddMaterial(model, kAmbient, kDiffuse, kSpecular, kShininess, kShininessStrength,
                        Level(material.Transparency), material.MapFileName);
        builder.BeginObject("KVEO", index, true, true, material.faces.size());
        for (const ExportFace& face : material.faces) AddFace(builder, face);
        builder.EndObject();
    }
    return model;
}

std::vector<std::uint8_t> Encode3DS(const Scene& scene, const TextureLibrary& library,
                                    std::int32_t& partCounter) {
    return EncodeModel(Build3DS(scene, library, partCounter));
}

bool Save3DS(const std::string& path, const Scene& scene, const TextureLibrary& library,
             std::int32_t& partCounter) {
    return WriteModel(Build3DS(scene, library, partCounter), path);
}

}  // namespace korvane
