// The visible faces of a scene sorted by what they look like: the materials of an exported mesh.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// A visible face with the brush that holds its vertices.
struct ExportFace {
    const Brush* brush;
    const BrushFace* face;

    /// The positions of its corners a, b and c.
    std::array<Vec3, 3> Corners() const;
};

/// One distinct pair of texture name and transparency level, with its faces in scene order.
struct ExportMaterial {
    std::string MapFileName;  ///< UTF-8, spelled as the library has it; empty: no texture
    std::int32_t Transparency = 0;
    std::vector<ExportFace> faces;
};

/// The materials of the visible faces in the order of first use; textures whose names are equal
/// ignoring letter case share theirs. Scene and library must outlive the result.
std::vector<ExportMaterial> CollectMaterials(const Scene& scene, const TextureLibrary& library);

}  // namespace korvane
