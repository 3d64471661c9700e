// What has to hold for an object file of either kind once it is read.
#pragma once

#include "Fuzz.h"
#include "textures/core/TextureLibrary.h"

namespace korvane::fuzz {

/// Reads the input as an object file, with the selection of a snapshot or without; what loads has
/// to be sound, and to come back from a file of its own as it is.
void CheckSceneFile(Input input, bool withSelection);

/// Derives from a sound scene what the program shows and exports, and checks that.
void CheckScene(const Scene& scene, const TextureLibrary& library);

/// The textures that object files are read with.
const TextureLibrary& Library();

}  // namespace korvane::fuzz
