// Drawing one frame of the 3D preview: camera, ground grid and every brush face as a lit, textured
// triangle. The same traversal serves a frame drawn in selection mode.
#pragma once

#include "editor/Editor.h"
#include "views/ui/mOGL3D.h"
#include "views/ui/mPreviewRuns.h"

namespace korvane {

/// The projection of the preview.
inline constexpr double kPreviewFar = 100.0;         ///< world units
inline constexpr double kPreviewFieldOfView = 45.0;  ///< degrees

/// Half the width of the ground grid, in world units.
inline constexpr int kGridReach = 40;

/// What the renderer keeps from frame to frame. It belongs to one context.
struct PreviewRenderer {
    bool PickRendering = false;  ///< selection names instead of grid and swap; set around a pick
    PreviewMesh mesh;
    PreviewRuns runs;
    unsigned cornerBuffer = 0;      ///< OpenGL name of the vertex buffer
    unsigned indexBuffer = 0;       ///< OpenGL name of the index buffer
    std::size_t storedCorners = 0;  ///< corners the vertex buffer has room for
};

/// What a frame shows.
struct PreviewScene {
    const Scene& scene;
    const Settings& settings;
    const Camera& camera;
    const TextureObjects& textures;
};

/// Draws a frame and shows it with SwapBuffers; in a pick the frame stays unseen. Does nothing
/// before the context is ready.
void RenderPreview(RenderContext& context, PreviewRenderer& renderer, const PreviewScene& shown);

/// Loads the modelview matrix of the camera. Needs the context to be current.
void ApplyCamera(const Camera& camera);

/// Draws the ground grid, which follows the camera in whole units. Leaves texturing disabled.
void DrawPreviewGrid(const Camera& camera, Color color);

/// Draws the brush faces under the current matrices, as if in brush and face order.
void DrawPreviewBrushes(RenderContext& context, PreviewRenderer& renderer,
                        const PreviewScene& shown);

}  // namespace korvane
