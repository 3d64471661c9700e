// Operations on all views of a session: reset, zoom, layout.
#pragma once

#include "editor/Editor.h"

namespace korvane {

/// Pan 0 and zoom 80 for the views and the gauge, the camera at its start, the split in the middle.
void ResetAllViews(Editor& editor);

/// UpdateViewOrigin of the three views and the depth gauge.
void UpdateViewOrigins(Editor& editor);

/// One zoom step for the three views and the gauge; nothing at the end of the range.
void ZoomIn(Editor& editor);
void ZoomOut(Editor& editor);

/// Zoom 80 everywhere; pan and origin stay.
void ResetZoom(Editor& editor);

}  // namespace korvane
