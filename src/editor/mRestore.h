// What runs of the program that were not closed left in ObjCache.
#pragma once

#include "editor/Editor.h"

namespace korvane {

/// Offers what dead runs left unsaved, the newest first, until the user takes one: the scene is
/// then as it was at most one command before the end of that run, with its path and marked as
/// modified. What the user refuses, and what can't be read, is removed; runs not asked about wait
/// for the next start. Runs that live, here or on another display, are left alone. Returns whether
/// a scene was restored.
bool OfferRecovery(Editor& editor);

}  // namespace korvane
