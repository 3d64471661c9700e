// The virtual-key codes that key maps store, from what Qt tells of a key.
//
// Letters, modifiers and named keys follow the keyboard layout: the key labelled W is W wherever it
// lies. The row of digits and the keys around the letters follow the place, named as on a US
// keyboard: the key left of the 2 is the 1, whatever a layout puts there. The keypad is told apart
// from the main keys; with Num Lock off it moves the cursor.
#pragma once

class QKeyEvent;

namespace korvane {

/// The code of the Qt key; 0 for a key that has none. `position` is the key's place as a Linux
/// input event code, 0 where the system does not tell; `keypad` tells a key of the keypad where
/// there is no position.
int VirtualKeyCode(int key, unsigned position, bool keypad);

/// The code of the key of an event, and what tells that key apart from all others: two keys may
/// share a code, and a code may change while the key is held.
int VirtualKeyCode(const QKeyEvent& event);
int KeyId(const QKeyEvent& event);

}  // namespace korvane
