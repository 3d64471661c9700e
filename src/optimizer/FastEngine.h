// The sampled engine that runs by default: flag for flag what a pick at every stop of every pair
// gives, without making most of those picks.
//
// The stops at which each polygon of the target is met are found once. Another brush hides a
// polygon only if it stands in the way at every one of them, and only brushes near the first of
// those lines of sight can.
#pragma once

#include <memory>

#include "optimizer/OptimizeEngine.h"
#include "optimizer/mStops.h"

namespace korvane {

/// An engine for a scene, which must outlive it.
std::unique_ptr<OptimizeEngine> MakeFastEngine(const Scene& scene, const OptimizeOptions& options);

}  // namespace korvane
