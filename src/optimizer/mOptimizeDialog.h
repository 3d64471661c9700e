// What the optimizer's dialog does and says, without its window.
#pragma once

#include <string>

#include "editor/Editor.h"
#include "optimizer/mOptimize.h"
#include "optimizer/mStops.h"

namespace korvane {

/// Idle until "Start" is pressed; Stopping until the run has ended.
enum class OptimizeState { Idle, Running, Paused, Stopping };

/// What the dialog's choices say.
struct OptimizeChoices {
    std::size_t detail = 0;  ///< 0 "Extremely High" to 4 "Extremely Low"
    bool zAxisPass = true;
    bool polarPasses = true;
    bool completelyCovered = false;  ///< the exact mode; nothing above counts then
    bool reference = false;          ///< pick with OpenGL instead of the fast engine
};

/// The options of a sampled run in a viewport of that size in pixels.
OptimizeOptions OptionsOf(const OptimizeChoices& choices, int viewportWidth, int viewportHeight);

/// "Optimizing Brush: 7 of 1,200".
std::string ProgressText(const OptimizeProgress& progress);

/// How far the bar is filled, 0..100, by the brush being worked on.
int ProgressPercent(const OptimizeProgress& progress);

/// Elapsed time, and what is left at the pace so far, where there is a pace and something left.
std::string TimeText(double elapsedSeconds, const OptimizeProgress& progress);

/// "2 polygons hidden, 1 polygon made visible again".
std::string ResultText(const OptimizeResult& result);

/// What the user is told when all brushes are done.
Message FinishedMessage(const OptimizeResult& result);

/// To be called when the dialog closes, whether or not anything ran.
void CloseOptimize(Editor& editor);

}  // namespace korvane
