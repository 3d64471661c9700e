// Operations on all views of a session: reset, zoom, layout.
#pragma once

#include "editor/mViewGestures.h"

namespace korvane {

/// Pan 0 and zoom 80 for the views and the gauge, the camera at its start, the split in the middle.
void ResetAllViews(Editor& editor);

/// UpdateViewOrigin of the three views and the depth gauge.
void UpdateViewOrigins(Editor& editor);

/// One zoom step for the three views and the gauge; nothing at the end of the range.
void ZoomIn(Editor& editor);
void ZoomOut(Editor& editor);

/// Turns the wheel over view 0..2 by that many notches, up to zoom in, at the place of the mouse.
/// What lies there stays there, and what lies in the middle of the other views and the gauge,
/// however far the wheel is turned before the mouse moves.
void TurnWheel(Editor& editor, int view, const MouseInput& mouse, double notches);

/// Zoom 80 everywhere; pan and origin stay.
void ResetZoom(Editor& editor);

}  // namespace korvane
