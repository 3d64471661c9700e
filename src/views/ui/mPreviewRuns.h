// What one frame of the preview sends: the triangles that can be seen, in runs drawn under one
// state. No OpenGL call is made here.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "views/ui/mVisibleBrushes.h"

namespace korvane {

/// Colour of a run of triangles.
enum class ColorState { None = 0, Plain = 1, SelectedFace = 2, SelectedBrush = 3 };

/// Selection name of faces that a pick draws only to hide what is behind them.
inline constexpr std::uint32_t kNoPickName = std::numeric_limits<std::uint32_t>::max();

/// Triangles drawn under one state.
struct PreviewRun {
    std::int32_t texture = 0;
    ColorState color = ColorState::None;
    std::uint32_t name = kNoPickName;  ///< stays kNoPickName unless picking
    PixelRect shown;                   ///< where to draw it; a pick draws everywhere
    std::uint32_t first = 0;           ///< place in PreviewRuns::corners
    std::uint32_t count = 0;           ///< corners, three per triangle
};

/// What a frame sends, and the memory it was found with.
struct PreviewRuns {
    std::vector<std::uint32_t> corners;  ///< places in the mesh's corner table
    std::vector<PreviewRun> runs;
    VisibleBrushes brushes;
};

/// Lists the triangles to draw. What they show is what all triangles in brush and face order would
/// show: left out is only what cannot be seen (faces hidden by the user, turned away, or behind
/// solids, and brushes outside the view), and brushes change places only where that cannot be seen
/// either. A pick gets brush and face order, and only what its view cannot meet is left out.
void GatherPreviewRuns(const Scene& scene, PreviewMesh& mesh, const PreviewView& view,
                       PreviewRuns& runs);

}  // namespace korvane
