// What a click in the texture browser does to the selection.
#pragma once

#include <cstdint>

#include "editor/Editor.h"

namespace korvane {

/// Selects the texture in the library and gives it to the selected brushes or, in Face Edit, to
/// their selected faces (none selected: nothing is assigned). Without a selected brush only the
/// library changes.
void TextureClicked(Editor& editor, std::int32_t index);

}  // namespace korvane
