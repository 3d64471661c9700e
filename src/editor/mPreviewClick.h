// The Ctrl + click in the 3D preview: selects what lies under the cursor.
#pragma once

#include <cstdint>
#include <functional>

#include "editor/Editor.h"

namespace korvane {

/// Tells what lies under the cursor: the index of a brush or, in Face Edit with exactly one
/// selected brush, of one of its faces; below 0 for nothing.
using PreviewPicker = std::function<std::int32_t()>;

/// Toggles the brush that the picker names, and takes the depth range from the selection; in Face
/// Edit with one selected brush toggles the polygon instead, with more of them does nothing. What
/// is toggled is selection only, so no undo snapshot is taken. Ends with RefreshAll in every case.
void ClickPreview(Editor& editor, const PreviewPicker& pick);

}  // namespace korvane
