// The visible faces of a scene in formats that other programs exchange: Wavefront OBJ and binary
// glTF 2.0.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// A picture file (UTF-8 path) as the bytes of a PNG file; nothing where it is none.
using PngMaker = std::function<std::optional<std::vector<std::uint8_t>>(const std::string& path)>;

/// Stores the faces as a Wavefront file (UTF-8 path) and their materials beside it in a file of
/// its name that ends in .mtl, with underscores for blanks. The textures of the folder that it
/// uses are copied beside it; one of that name that is there already is left as it is. False when
/// they can't be written; see SaveFiles.
bool SaveOBJ(const std::string& path, const Scene& scene, const TextureLibrary& library,
             const std::string& textureFolder);

/// Stores the faces with the textures that they use as one file (UTF-8 path). A texture that the
/// folder does not hold is left out. False when it can't be written; the old file is whole then.
bool SaveGLB(const std::string& path, const Scene& scene, const TextureLibrary& library,
             const std::string& textureFolder, const PngMaker& makePng);

}  // namespace korvane
