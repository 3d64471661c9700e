// What the program tells at once about a 2D view: what a press would do under the pointer, and how
// large the selection is and where.
#pragma once

#include <string>

#include "editor/mViewGestures.h"

namespace korvane {

enum class PressEffect { Nothing, Create, Move, Pick, Pan };

/// What a press of the left button would do at the place of the pointer, or what the running
/// gesture does there.
PressEffect EffectOfPress(const Editor& editor, int view, const MouseInput& mouse);

/// Size and middle of the selected brushes, "2.0 x 2.0 x 2.5 at 0.0, 1.0, 0.25" in world units;
/// empty without a selection.
std::string SelectionText(const Scene& scene);

}  // namespace korvane
