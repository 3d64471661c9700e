// Qt keys and places of keys as virtual-key codes.
#include <gtest/gtest.h>

#include <QKeyEvent>

#include "platform/VirtualKeys.h"

namespace korvane {
namespace {

struct Stroke {
    const char* what;
    int key;
    unsigned position;
    int code;
};

constexpr Stroke kStrokes[] = {
    {"W of a French keyboard, where Z lies elsewhere", Qt::Key_W, 44, 87},
    {"M of a French keyboard, at the place of ;", Qt::Key_M, 39, 77},
    {", of a French keyboard, at the place of M", Qt::Key_Comma, 50, 188},
    {"Cyrillic letter at the place of W", 0x426, 17, 87},
    {"Cyrillic letter at the place of ;", 0x416, 39, 186},
    {"e acute of a French keyboard, at the place of 2", 0xc9, 3, 50},
    {"1 with Shift", Qt::Key_Exclam, 2, 49},
    {"sharp s of a German keyboard, at the place of -", 0xdf, 12, 189},
    {"dead circumflex at the place of [", Qt::Key_Dead_Circumflex, 26, 219},
    {"keypad 1", Qt::Key_1, 79, 97},
    {"keypad 1 without Num Lock", Qt::Key_End, 79, 35},
    {"keypad 5 without Num Lock", Qt::Key_Clear, 76, 12},
    {"keypad . without Num Lock", Qt::Key_Delete, 83, 46},
    {"keypad ,", Qt::Key_Comma, 83, 110},
    {"keypad +", Qt::Key_Plus, 78, 107},
    {"+ with Shift", Qt::Key_Plus, 13, 187},
    {"keypad *", Qt::Key_Asterisk, 55, 106},
    {"* with Shift", Qt::Key_Asterisk, 9, 56},
    {"keypad /", Qt::Key_Slash, 98, 111},
    {"keypad Enter", Qt::Key_Enter, 96, 13},
    {"right Ctrl", Qt::Key_Control, 97, 17},
    {"Caps Lock made a Ctrl", Qt::Key_Control, 58, 17},
    {"AltGr", Qt::Key_AltGr, 100, 18},
    {"Alt with Shift, as X11 names it", Qt::Key_Meta, 56, 18},
    {"left Windows", Qt::Key_Super_L, 125, 91},
    {"F12", Qt::Key_F12, 88, 123},
    {"Tab with Shift", Qt::Key_Backtab, 15, 9},
    {"Esc", Qt::Key_Escape, 1, 27},
    {"a key that has no code", Qt::Key_VolumeUp, 115, 0},
    {"no place: digit", Qt::Key_7, 0, 55},
    {"no place: character", Qt::Key_Slash, 0, 191},
};

TEST(VirtualKeysTest, LettersFollowTheLayoutAndDigitsThePlace) {
    for (const Stroke& s : kStrokes)
        EXPECT_EQ(VirtualKeyCode(s.key, s.position, false), s.code) << s.what;
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Plus, 0, true), 107);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_3, 0, true), 99);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Home, 0, true), 36);
}

}  // namespace
}  // namespace korvane
