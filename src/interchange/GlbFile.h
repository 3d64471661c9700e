// Meshes and pictures as one file of binary glTF 2.0.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "interchange/MeshParts.h"

namespace korvane {

/// A picture file within the file.
struct EmbeddedPicture {
    std::string filename;
    std::string mimeType;  ///< "image/png" or "image/jpeg"
    std::vector<std::uint8_t> bytes;
};

/// The file: a node for each group, below the root, which is called `name` and has the faces that
/// are in no group. A part names one of `materials`, whose map is the name of one of the pictures
/// or empty. Nothing where the content is more than 2 GB, or memory ran out.
std::optional<std::string> GlbBytes(std::span<const MeshPart> parts,
                                    std::span<const MeshMaterial> materials,
                                    std::span<const EmbeddedPicture> pictures,
                                    const std::string& name);

}  // namespace korvane
