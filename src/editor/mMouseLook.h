// Mouse-look: the mouse over the 3D preview turns the camera, its buttons move it.
#pragma once

#include "editor/mViewGestures.h"

namespace korvane {

/// Buttons over the preview. The right one switches mouse-look on and off. While it is on, the left
/// one moves forward and the middle one backward, as if their keys were held.
void PressPreview(Editor& editor, const MouseInput& mouse);
void ReleasePreview(Editor& editor, const MouseInput& mouse);

/// Tells in the status bar that the mouse is over the preview.
void ShowPreviewStatus(Editor& editor);

/// The mouse has moved to (x, y) of the preview's pixels while mouse-look is on. With `recentres`,
/// a move that turns the camera asks for the cursor to be put back into the middle of the view: the
/// result is true, and the next position only tells where it is now. Without, movement goes on from
/// the position.
bool LookTo(Editor& editor, float x, float y, bool recentres);

/// Switches mouse-look off and lets go of its buttons.
void EndMouseLook(Editor& editor);

}  // namespace korvane
