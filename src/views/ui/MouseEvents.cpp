#include "views/ui/MouseEvents.h"

#include <QMouseEvent>

namespace korvane {
namespace {

MouseButton ToButton(Qt::MouseButtons buttons) {
    if (buttons & Qt::LeftButton) return MouseButton::Left;
    if (buttons & Qt::RightButton) return MouseButton::Right;
    return buttons & Qt::MiddleButton ? MouseButton::Middle : MouseButton::None;
}

/// Lock keys and the keypad flag are no modifiers.
unsigned ToModifiers(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? ShiftKey : NoModifier) |
           (modifiers & Qt::ControlModifier ? CtrlKey : NoModifier) |
           (modifiers & Qt::AltModifier ? AltKey : NoModifier);
}

}  // namespace

MouseInput ToMouseInput(const QMouseEvent& event, Qt::MouseButtons buttons) {
    return {ToButton(buttons), ToModifiers(event.modifiers()),
            static_cast<float>(event.position().x()), static_cast<float>(event.position().y())};
}

MouseInput ToMouseInput(const QPointF& position, Qt::KeyboardModifiers modifiers) {
    return {MouseButton::None, ToModifiers(modifiers), static_cast<float>(position.x()),
            static_cast<float>(position.y())};
}

}  // namespace korvane
