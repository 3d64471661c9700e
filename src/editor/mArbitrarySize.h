// The decision of the arbitrary-size dialog: how many sides the next brush gets.
#pragma once

#include <string_view>

#include "editor/Prompts.h"
#include "scene/Scene.h"

namespace korvane {

inline constexpr std::int16_t kLeastSides = 3;
inline constexpr std::int16_t kMostSides = 64;

/// Takes the integer part of the number in `text` as the side count of new brushes, and as what the
/// dialog shows next time. Returns false, changing nothing, when it lies outside 3..64.
bool SetArbitrarySides(Scene& scene, std::string_view text);

/// What the user is told then.
Message SidesOutOfRange();

}  // namespace korvane
