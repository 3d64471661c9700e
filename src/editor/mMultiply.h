// The multiply dialog: a modeless form that makes a row, ring or spiral of copies of the selection.
#pragma once

#include <array>
#include <string>

#include "editor/Editor.h"

namespace korvane {

/// One row of six boxes: X, Y and Z of a step, then of the total that the last copy reaches.
struct StepBoxes {
    std::array<std::string, 6> texts;
    bool asTotals =
        false;  ///< the totals are typed and the steps computed, not the other way round
};

/// What the form shows.
struct MultiplyBoxes {
    std::string count;
    StepBoxes move;    ///< world units
    StepBoxes rotate;  ///< degrees
};

/// To be called when the form opens: shows the marker and returns what the boxes show, with the
/// remembered steps and their totals.
MultiplyBoxes OpenMultiply(Editor& editor);

/// Computes the boxes that depend on the typed ones; to be called when a text was changed by the
/// user.
void UpdateDependentBoxes(MultiplyBoxes& boxes);

/// The form's Okay: appends the copies, of which the last ones are selected then, and empties the
/// clipboard. Copy i is moved by i steps, snapped where snap is on, then turned by i steps about
/// the marker. False: more copies than a scene can hold; the user has been told, nothing changed,
/// and the form should stay open.
bool RunMultiply(Editor& editor, const MultiplyBoxes& boxes);

/// To be called when the form closes, either way.
void CloseMultiply(Editor& editor);

}  // namespace korvane
