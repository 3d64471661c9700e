// From the platform's keys to the virtual-key codes that settings and keyboard maps hold.
#pragma once

class QKeyEvent;

namespace korvane {

/// The virtual-key code of the key, 0 where it has none.
int VirtualKeyCode(const QKeyEvent& event);

}  // namespace korvane
