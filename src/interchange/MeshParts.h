// The faces of a scene as exchange formats take them: corners by group and material.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "export/ExportMaterials.h"

namespace korvane {

/// A corner of a triangle as it is written; every number is finite.
struct MeshCorner {
    Vec3 position;
    Vec3 normal;  ///< unit length
    TexCoord uv;  ///< v grows upwards, as in the editor
};

/// The triangles of one group and material: three corners each, in scene order.
struct MeshPart {
    std::string group;         ///< as in the scene; empty: in no group
    std::size_t material = 0;  ///< place among the ExportMaterials
    std::vector<MeshCorner> corners;
};

/// How one of the ExportMaterials is written.
struct MeshMaterial {
    std::string name;
    std::string map;  ///< name of its picture; empty: none
    float opacity = 1;
};

/// The name with blanks and everything else that ends a name somewhere replaced by underscores,
/// and not longer than a file name can be.
std::string MeshName(const std::string& text);

/// The parts that hold triangles, by group and then by material. Normals are those of the corners
/// where a face is smooth, else that of the face. Faces without an area are left out.
std::vector<MeshPart> PartsOf(std::span<const ExportMaterial> materials);

}  // namespace korvane
