// Qt's mouse events as the input of the gestures.
#pragma once

#include <QtCore/qnamespace.h>

#include "editor/mViewGestures.h"

class QMouseEvent;
class QPointF;

namespace korvane {

/// The event as a gesture takes it. `buttons` is the button that was pressed or released, or for a
/// move those that are held; the left one comes before the right one before the middle one.
MouseInput ToMouseInput(const QMouseEvent& event, Qt::MouseButtons buttons);

/// The pointer where no button is concerned.
MouseInput ToMouseInput(const QPointF& position, Qt::KeyboardModifiers modifiers);

}  // namespace korvane
