#include "editor/mArbitrarySize.h"

#include <cmath>

#include "base/NumberText.h"

namespace korvane {

bool SetArbitrarySides(Scene& scene, std::string_view text) {
    const double sides = std::floor(NumericValue(text));
    if (!(sides >= kLeastSides && sides <= kMostSides)) return false;
    scene.sideCount = static_cast<std::int16_t>(sides);
    scene.arbitrarySideCount = scene.sideCount;
    return true;
}

Message SidesOutOfRange() {
    return {
        "Notice: Number of Sides out of Range!\r\n"
        "A brush can have a minimum of 3 Sides or a maximum of 64 Sides.",
        "Notice!", MessageIcon::Information, MessageButtons::Ok};
}

}  // namespace korvane
