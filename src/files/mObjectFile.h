// The object file (.kvobject) in memory: encoding a scene and decoding its brushes.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// The scene as the bytes of an object file. With `withSelection` brushes and faces carry their
/// selection (undo snapshots).
std::vector<std::uint8_t> EncodeObject(const Scene& scene, const TextureLibrary& library,
                                       bool withSelection);

/// The brushes of an object file, with recomputed normals, named for indices from `firstIndex` on.
/// Nothing when the bytes are no valid object file. Textures are found by name, 0 where the library
/// lacks one. Needs no more memory than a few times the size of the file.
std::optional<std::vector<Brush>> DecodeObject(std::span<const std::uint8_t> bytes,
                                               const TextureLibrary& library, bool withSelection,
                                               std::int32_t firstIndex = 0);

/// The same without selection, for programs that pass objects on: a texture name of some face that
/// the library lacks is added to it, in the placeholder's size, instead of being lost.
std::optional<std::vector<Brush>> DecodeObjectAndNames(std::span<const std::uint8_t> bytes,
                                                       TextureLibrary& library,
                                                       std::int32_t firstIndex = 0);

}  // namespace korvane
