#include "export/ExportMaterials.h"

#include <map>
#include <utility>

#include "base/SingleByteText.h"

namespace korvane {
namespace {

/// Sorts faces by material, in one pass.
class MaterialSorter {
  public:
    explicit MaterialSorter(const TextureLibrary& library) : library_(library) {}

    void Add(const Brush& brush, const BrushFace& face) {
        MaterialOf(face).faces.push_back({&brush, &face});
    }

    std::vector<ExportMaterial> Take() { return std::move(materials_); }

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

}  // namespace

std::array<Vec3, 3> ExportFace::Corners() const {
    const auto corner = [this](std::int32_t index) {
        return brush->vertices[static_cast<std::size_t>(index)].Position();
    };
    return {corner(face->a), corner(face->b), corner(face->c)};
}

std::vector<ExportMaterial> CollectMaterials(const Scene& scene, const TextureLibrary& library) {
    MaterialSorter sorter(library);
    for (const Brush& brush : scene.brushes) {
        for (const BrushFace& face : brush.faces) {
            if (!face.invisible) sorter.Add(brush, face);
        }
    }
    return sorter.Take();
}

}  // namespace korvane
