// The controls of the property panel conProps: name and group of the selection, display and
// texture settings of its faces.
#pragma once

#include "editor/Editor.h"

class QWidget;

namespace korvane {

/// Builds all controls of the panel, disabled as they are while nothing is selected, each under its
/// object name. Enter in the group box sets the group of the selected brushes of the session, which
/// must outlive the controls.
QWidget* MakePropertyControls(Editor& editor);

/// Shows name and group of the selected brushes in the panel; faces cannot be edited yet.
void ShowBrushNames(QWidget& panel, const Scene& scene);

}  // namespace korvane
