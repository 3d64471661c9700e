// The faces of a scene as assimp takes them, whose writers make the files.
#pragma once

#include <assimp/scene.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "export/ExportMaterials.h"

namespace korvane {

/// How one of the ExportMaterials is written.
struct MeshMaterial {
    std::string name;
    std::string map;  ///< path of its picture, or "*2" for the embedded one 2; empty: none
    float shade = 1;  ///< grey of the surface, 0 black to 1 white
    float opacity = 1;
};

/// A picture file within the file.
struct EmbeddedPicture {
    std::string filename;
    std::string kind;  ///< "png" or "jpg"
    std::vector<std::uint8_t> bytes;
};

/// The name with blanks and everything else that ends a name somewhere replaced by underscores,
/// and not longer than a file name can be.
std::string MeshName(const std::string& text);

/// A mesh for each pair of group and material, below a node for the group; what is in no group
/// hangs at the root, which is called `name`. Where thousands of corners meet in one place, a pair
/// has several. `looks` has an entry for each material. Positions and texture coordinates are as in
/// the editor, and finite; normals are of unit length: those of the corners where a face is smooth,
/// else that of the face. Faces without an area are left out.
std::unique_ptr<aiScene> BuildMeshScene(std::span<const ExportMaterial> materials,
                                        std::span<const MeshMaterial> looks,
                                        std::span<const EmbeddedPicture> pictures,
                                        const std::string& name);

}  // namespace korvane
