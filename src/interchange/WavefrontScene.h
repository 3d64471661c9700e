// A mesh as assimp takes it, whose writer makes the Wavefront files.
#pragma once

#include <assimp/scene.h>

#include <memory>
#include <span>
#include <string>

#include "interchange/MeshParts.h"

namespace korvane {

/// A mesh for each part, called after its group, below a node for the group; what is in no group
/// hangs at the root, which is called `name`. A part names one of `materials`.
std::unique_ptr<aiScene> BuildWavefrontScene(std::span<const MeshPart> parts,
                                             std::span<const MeshMaterial> materials,
                                             const std::string& name);

}  // namespace korvane
