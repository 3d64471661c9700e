#include "export/mExport3DS.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "base/SingleByteText.h"
#include "export/MeshBuilder.h"

namespace korvane {
namespace {

constexpr Color3DS kAmbient{128, 128, 128};
constexpr Color3DS kDiffuse{192, 192, 192};
constexpr Color3DS kSpecular{255, 255, 255};
constexpr std::int16_t kShininess = 25;
constexpr std::int16_t kShininessStrength = 5;

/// A visible face with the brush that holds its vertices.
struct ExportFace {
    const Brush* brush;
    const BrushFace* face;
};

/// One distinct pair of texture name and transparency level, with its faces in scene order.
struct ExportMaterial {
    std::string MapFileName;
    std::int32_t Transparency = 0;
    std::vector<ExportFace> faces;
};

/// Sorts the visible faces of a scene by material, in one pass.
class ExportMaterials {
  public:
    ExportMaterials(const Scene& scene, const TextureLibrary& library) : library_(library) {
        for (const Brush& brush : scene.brushes) {
            for (const BrushFace& face : brush.faces) {
                if (!face.invisible) MaterialOf(face).faces.push_back({&brush, &face});
            }
        }
    }

    const std::vector<ExportMaterial>& All() const { return materials_; }

  private:
    using Look = std::pair<std::int32_t, std::int32_t>;  ///< texture index, transparency level

    /// Neighbouring faces mostly look alike.
    ExportMaterial& MaterialOf(const BrushFace& face) {
        const Look look{face.texture, face.transparency};
        if (materials_.empty() || look != lastLook_) {
            lastIndex_ = Register(look);
            lastLook_ = look;
        }
        return materials_[lastIndex_];
    }

    /// The material of a look; two textures of one name share theirs.
    std::size_t Register(const Look& look) {
        const auto [known, isNewLook] = byLook_.try_emplace(look, 0);
        if (!isNewLook) return known->second;
        const std::string& name = library_.TextureFilename(look.first);
        const auto [found, isNew] =
            byName_.try_emplace({LowerCase(name), look.second}, materials_.size());
        if (isNew) materials_.push_back({name, look.second, {}});
        return known->second = found->second;
    }

    const TextureLibrary& library_;
    std::vector<ExportMaterial> materials_;
    std::map<Look, std::size_t> byLook_;
    std::map<std::pair<std::string, std::int32_t>, std::size_t> byName_;
    Look lastLook_;
    std::size_t lastIndex_ = 0;
};

std::int16_t Level(std::int32_t transparency) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<std::int32_t>(transparency, Limits::min(), Limits::max()));
}

void AddFace(MeshBuilder& builder, const ExportFace& exported) {
    const BrushFace& face = *exported.face;
    const auto corner = [&](std::int32_t index) {
        return exported.brush->vertices[static_cast<std::size_t>(index)].Position();
    };
    builder.AddTriangle(corner(face.a), corner(face.b), corner(face.c), face.uv[0], face.uv[1],
                        face.uv[2], face.smooth);
}

}  // namespace

Model3DS Build3DS(const Scene& scene, const TextureLibrary& library, std::int32_t& partCounter) {
    const ExportMaterials materials(scene, library);
    Model3DS model;
    MeshBuilder builder(model, partCounter);
    for (const ExportMaterial& material : materials.All()) {
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
