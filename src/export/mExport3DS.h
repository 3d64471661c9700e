// The visible faces of a scene as a 3DStudio mesh file, grouped by texture and transparency.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "export/mSave3DSObject.h"
#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// The scene as a model. Faces whose textures have one name ignoring letter case, and one level of
/// transparency, share a material. `partCounter` numbers the objects (KVEO0000, KVEO0001, ...) and
/// is increased by each, so that the next export with it goes on.
Model3DS Build3DS(const Scene& scene, const TextureLibrary& library, std::int32_t& partCounter);

/// Build3DS as the bytes of a file.
std::vector<std::uint8_t> Encode3DS(const Scene& scene, const TextureLibrary& library,
                                    std::int32_t& partCounter);

/// Stores Encode3DS as a file (UTF-8 path). False when it can't be written; the old file is whole
/// then.
bool Save3DS(const std::string& path, const Scene& scene, const TextureLibrary& library,
             std::int32_t& partCounter);

}  // namespace korvane
