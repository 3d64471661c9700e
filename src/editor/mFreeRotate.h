// The free-rotate dialog: a modeless form that turns the selection about the rotation marker.
#pragma once

#include <array>
#include <string>

#include "editor/Editor.h"

namespace korvane {

/// The boxes of the angles about X, Y and Z, degrees.
using FreeRotateTexts = std::array<std::string, 3>;

/// To be called when the form opens: shows the marker and returns what the boxes show.
FreeRotateTexts OpenFreeRotate(Editor& editor);

/// The form's Okay, which closes it afterwards: remembers the angles as typed and turns the
/// selection by them, brought into 0..360; Z turns like the menu's entries, against its sign.
void RunFreeRotate(Editor& editor, const FreeRotateTexts& texts);

/// To be called when the form closes, either way.
void CloseFreeRotate(Editor& editor);

}  // namespace korvane
