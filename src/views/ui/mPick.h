// What lies under a pixel of the 3D preview, found by drawing its frame once more in OpenGL's
// selection mode.
#pragma once

#include <cstdint>

#include "views/ui/mRender.h"

namespace korvane {

/// Name of the nearest thing under a place of the preview: the index of a brush or, in Face Edit
/// with exactly one selected brush, of one of its faces; -1 for nothing, or for a face of another
/// brush in front. x and y are device pixels from the top left corner of the viewport. What the
/// preview shows stays as it is.
std::int32_t PickPreview(RenderContext& context, PreviewRenderer& renderer,
                         const PreviewScene& shown, int x, int y);

}  // namespace korvane
