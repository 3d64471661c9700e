// What stands still in a 2D view while a drag moves the selection.
#pragma once

#include <QImage>
#include <QSize>
#include <array>
#include <cstdint>
#include <vector>

#include "views/core/ViewState.h"

namespace korvane {

/// The parts of a view that its rulers and caption cover, as sizes in device pixels: each reaches
/// from the top left corner that far. Empty without rulers.
using RulerAreas = std::array<QSize, 3>;

/// A view's picture without the selected brushes and the marker, and which brushes those are. It
/// serves one gesture: whoever composes the view in full drops it.
struct Backdrop {
    QImage image;  ///< null: nothing is kept
    RulerAreas rulers;
    ViewState state;  ///< that the picture was made for
    std::int32_t brushCount = 0;
    std::vector<std::int32_t> selected;  ///< indices in brush order
};

}  // namespace korvane
