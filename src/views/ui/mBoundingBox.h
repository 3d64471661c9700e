// Boxes along the axes, of whatever size. Those of the scene (`Bounds`) end at 999 units.
#pragma once

#include <algorithm>

#include "scene/mVector.h"

namespace korvane {

/// A box along the axes; world units.
struct BoundingBox {
    Vec3 min;
    Vec3 max;

    friend bool operator==(const BoundingBox&, const BoundingBox&) = default;
};

/// Makes the box just large enough to hold the other one as well.
inline void Include(BoundingBox& box, const BoundingBox& other) {
    box.min = {std::min(box.min.x, other.min.x), std::min(box.min.y, other.min.y),
               std::min(box.min.z, other.min.z)};
    box.max = {std::max(box.max.x, other.max.x), std::max(box.max.y, other.max.y),
               std::max(box.max.z, other.max.z)};
}

}  // namespace korvane
