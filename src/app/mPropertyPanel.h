// The controls of the property panel conProps: name and group of the selection, display and
// texture settings of its faces.
#pragma once

class QWidget;

namespace korvane {

/// Builds all controls of the panel, disabled as they are while nothing is selected, each under its
/// object name.
QWidget* MakePropertyControls();

}  // namespace korvane
