#include "platform/KeyCodes.h"

#include <QKeyEvent>

namespace korvane {

int VirtualKeyCode(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
    switch (key) {
        case Qt::Key_Tab:
            return 9;
        case Qt::Key_Return:
            return 13;
        case Qt::Key_Shift:
            return 16;
        case Qt::Key_Escape:
            return 27;
        default:
            return 0;
    }
}

}  // namespace korvane
