// A tour of everything that the manual shows beside the tutorial: views, modes, properties,
// dialogs.
#pragma once

namespace korvane::manual {

class Stage;

/// Shows and pictures it all.
void PlayTour(Stage& stage);

}  // namespace korvane::manual
