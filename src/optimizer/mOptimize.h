// Runs an engine over an object: brush after brush, with the flags of each written when it is
// done.
#pragma once

#include "editor/Editor.h"
#include "optimizer/OptimizeEngine.h"

namespace korvane {

/// What a run has changed.
struct OptimizeResult {
    std::int32_t hidden = 0;  ///< polygons of which something was visible and nothing is now
    std::int32_t shown = 0;   ///< polygons of which something was hidden and nothing is now
    bool finished = false;    ///< all brushes were worked on
};

/// Runs the engine, which was made for this scene, over all brushes. When the poll ends the run,
/// the brush being worked on and all later ones stay as they were.
OptimizeResult OptimizeScene(Scene& scene, OptimizeEngine& engine, OptimizePoll poll = {});

/// OptimizeScene as one undo step of the session.
OptimizeResult OptimizeObject(Editor& editor, OptimizeEngine& engine, OptimizePoll poll);

}  // namespace korvane
