// The rotation marker: shown in the 2D views, and dragged there, while a dialog that turns about it
// is open.
#pragma once

#include "editor/Editor.h"

namespace korvane {

/// A dialog that turns about the marker opens: puts the marker into the middle of the selection
/// where the user wants that, shows it and redraws the views.
void ShowMarker(Editor& editor);

/// The dialog closes: hides the marker with the last one. The caller redraws.
void HideMarker(Editor& editor);

/// Writes the marker's position into the status bar.
void ShowMarkerPosition(const Editor& editor);

}  // namespace korvane
