// Mouse gestures on the 2D views and the depth gauge as a state machine: press, move, release in,
// changes and redraw requests out.
#pragma once

#include <optional>
#include <string>

#include "editor/Editor.h"

namespace korvane {

enum class MouseButton { None, Left, Right, Middle };

enum Modifiers : unsigned { NoModifier = 0, ShiftKey = 1, CtrlKey = 2, AltKey = 4 };

/// A mouse event on a surface, in its (logical) pixels.
struct MouseInput {
    MouseButton button = MouseButton::None;  ///< pressed or released one; for a move the one held
    unsigned modifiers = NoModifier;
    float x = 0;
    float y = 0;
};

/// A gesture runs from a press to the release of the same button on the same view; what other
/// buttons and views report in between changes nothing. A move that reports no button while one
/// should be held cancels the gesture: its release was lost. A drag of the selection also ends when
/// a command changes what it moves, a drag of the marker when the marker is hidden.
///
/// One gesture takes one undo snapshot: a pick or a move at the press, a creation at the release.
/// Every step of a move asks for RedrawMoveStep only.
void PressView(Editor& editor, int view, const MouseInput& mouse);
void MoveOverView(Editor& editor, int view, const MouseInput& mouse);
void ReleaseView(Editor& editor, int view, const MouseInput& mouse);

/// Ends the gesture where it stands: Escape, or the window lost the mouse. A creation leaves
/// nothing behind; a move leaves the selection as far as it was dragged, in one undo step.
void CancelViewGesture(Editor& editor);

/// Whether a drag runs that changes nothing but the selected brushes and the rotation marker, so
/// that a view may keep what it shows behind them. Holds from the press on.
bool IsMovingSelection(const Editor& editor);

/// The same for the depth gauge: the left button drags the nearer level, the right one pans.
void PressGauge(Editor& editor, const MouseInput& mouse);
void MoveOverGauge(Editor& editor, const MouseInput& mouse);
void ReleaseGauge(Editor& editor, const MouseInput& mouse);

/// Ends the gesture where it stands: Escape, or the window lost the mouse.
void CancelGaugeGesture(Editor& editor);

/// What a creation drag shows over its view: the rectangle in the view's pixels and three texts.
struct RubberBand {
    double x1 = 0;  ///< x1 <= x2, y1 <= y2
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    std::string size;   ///< two text heights above (x1, y1)
    std::string start;  ///< one text height above (x1, y1)
    std::string end;    ///< below (x2, y2), ending at x2
};

/// The rubber band to show over the view, if a creation drag runs there.
std::optional<RubberBand> CurrentRubberBand(const Editor& editor, int view);

/// What a drag of edges or vertices shows over its view.
struct ReadOut {
    double x = 0;      ///< left end of the text, in the view's pixels
    double y = 0;      ///< its lower edge: the text stands one text height above
    std::string text;  ///< CursorPoint's coordinates
};

/// The read-out to show over the view, if such a drag runs there and has moved.
std::optional<ReadOut> CurrentReadOut(const Editor& editor, int view);

}  // namespace korvane
