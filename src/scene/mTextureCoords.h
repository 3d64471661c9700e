// Texture coordinates of faces from their geometry and mapping settings.
#pragma once

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// What the projection of textures needs besides the faces.
struct TextureSpace {
    const TextureLibrary& library;
    float TextureScale = 4.0F;  ///< world units covered by 512 texture pixels
};

/// Recomputes the texture coordinates of every face of the brush; needs current face normals. World
/// mapping tiles the texture over the axis plane the face turns to most; local mapping stretches
/// one copy over the brush's bounds there, then applies repeat and offset. An axis without extent
/// gives the offset. Allocates nothing.
void UpdateTextureCoords(Brush& brush, const TextureSpace& space);

/// UpdateTextureCoords of every selected brush.
void UpdateSelectedTextureCoords(Scene& scene, const TextureSpace& space);

/// What the coordinates of brushes were last computed from by UpdateAllTextureCoords. It belongs to
/// one scene and one library.
struct KnownTextureCoords {
    float TextureScale = 0;
    std::int32_t listCount = 0;            ///< entries of the library, which only ever grows
    std::vector<std::uint64_t> revisions;  ///< by brush
};

/// UpdateTextureCoords of every brush. Passes over the brushes that have not changed since the last
/// call, because they would get the coordinates they have; and a brush that gets those it had keeps
/// its revision.
void UpdateAllTextureCoords(Scene& scene, const TextureSpace& space, KnownTextureCoords& known);

/// Gives every face of the brush the library's selected texture.
void AssignTextureToBrush(Brush& brush, const TextureLibrary& library);

/// AssignTextureToBrush of every selected brush.
void AssignTextureToSelectedBrushes(Scene& scene, const TextureLibrary& library);

/// Gives every selected face of every selected brush the library's selected texture and recomputes
/// the coordinates of each brush in which a face changed.
void AssignTextureToSelectedFaces(Scene& scene, const TextureSpace& space);

}  // namespace korvane
