#include "platform/VirtualKeys.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace korvane {
namespace {

struct Code {
    int from;  ///< Qt key or position
    int code;
};

template <std::size_t N>
int Look(const Code (&table)[N], int from) {
    const auto found =
        std::find_if(std::begin(table), std::end(table), [=](Code c) { return c.from == from; });
    return found == std::end(table) ? 0 : found->code;
}

/// Keys that mean the same wherever they lie.
constexpr Code kNamed[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},    {Qt::Key_Backtab, 9},   {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},   {Qt::Key_Enter, 13}, {Qt::Key_Shift, 16},    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},      {Qt::Key_AltGr, 18}, {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},   {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},      {Qt::Key_Home, 36},  {Qt::Key_Left, 37},     {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},    {Qt::Key_Down, 40},  {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},   {Qt::Key_Help, 47},  {Qt::Key_Meta, 91},     {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},  {Qt::Key_Menu, 93},  {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
};

/// Keys of the keypad that mean the same with and without Num Lock.
constexpr Code kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},   {Qt::Key_Comma, 110}, {Qt::Key_Slash, 111},
};

/// Positions of the keypad, with the code where Num Lock is on.
constexpr Code kKeypadPositions[] = {
    {55, 106}, {71, 103}, {72, 104}, {73, 105}, {74, 109},  {75, 100},
    {76, 101}, {77, 102}, {78, 107}, {79, 97},  {80, 98},   {81, 99},
    {82, 96},  {83, 110}, {96, 13},  {98, 111}, {121, 110},
};

/// Digits and the keys around the letters.
constexpr Code kPositions[] = {
    {2, '1'},  {3, '2'},  {4, '3'},  {5, '4'},  {6, '5'},  {7, '6'},  {8, '7'},  {9, '8'},
    {10, '9'}, {11, '0'}, {12, 189}, {13, 187}, {26, 219}, {27, 221}, {39, 186}, {40, 222},
    {41, 192}, {43, 220}, {51, 188}, {52, 190}, {53, 191}, {86, 226},
};

constexpr Code kLetterPositions[] = {
    {16, 'Q'}, {17, 'W'}, {18, 'E'}, {19, 'R'}, {20, 'T'}, {21, 'Y'}, {22, 'U'},
    {23, 'I'}, {24, 'O'}, {25, 'P'}, {30, 'A'}, {31, 'S'}, {32, 'D'}, {33, 'F'},
    {34, 'G'}, {35, 'H'}, {36, 'J'}, {37, 'K'}, {38, 'L'}, {44, 'Z'}, {45, 'X'},
    {46, 'C'}, {47, 'V'}, {48, 'B'}, {49, 'N'}, {50, 'M'},
};

/// What the characters of a US keyboard stand for.
constexpr Code kCharacters[] = {
    {Qt::Key_Semicolon, 186},    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},         {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},        {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},      {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
};

constexpr int kEvdevOffset = 8;  // X11 and Wayland count keys from 8
constexpr int kNoScanCode = 1 << 24;
constexpr int kAltPositions[] = {56, 100};

bool IsDigit(int key) {
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

int KeypadCode(int key) {
    return IsDigit(key) ? key - Qt::Key_0 + 96 : Look(kKeypad, key);
}

int NamedCode(int key, int position) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return key - Qt::Key_F1 + 112;
    // With Shift held, X11 calls the Alt key Meta.
    const bool alt = std::ranges::find(kAltPositions, position) != std::end(kAltPositions);
    return key == Qt::Key_Meta && alt ? 18 : Look(kNamed, key);
}

/// A letter position with no Latin letter on it: what else a US keyboard has that shows this
/// character, or the letter of the place (Cyrillic, Greek, ...).
int LetterPlaceCode(int key, int position) {
    const int letter = Look(kLetterPositions, position);
    if (letter == 0) return 0;
    const int character = Look(kCharacters, key);
    return character != 0 ? character : letter;
}

unsigned PositionOf(const QKeyEvent& event) {
    static const bool known = QGuiApplication::platformName() == "xcb" ||
                              QGuiApplication::platformName().startsWith("wayland");
    const unsigned scanCode = event.nativeScanCode();
    return known && scanCode > kEvdevOffset ? scanCode - kEvdevOffset : 0;
}

}  // namespace

int VirtualKeyCode(int key, unsigned position, bool keypad) {
    const int place = static_cast<int>(position);
    if (const int code = NamedCode(key, place)) return code;
    const int onKeypad = Look(kKeypadPositions, place);
    if (onKeypad != 0) return onKeypad;
    if (place == 0 && keypad) return KeypadCode(key);
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
    if (const int code = Look(kPositions, place)) return code;
    if (const int code = LetterPlaceCode(key, place)) return code;
    return IsDigit(key) ? key : Look(kCharacters, key);
}

int VirtualKeyCode(const QKeyEvent& event) {
    return VirtualKeyCode(event.key(), PositionOf(event),
                          event.modifiers().testFlag(Qt::KeypadModifier));
}

int KeyId(const QKeyEvent& event) {
    const unsigned position = PositionOf(event);
    return position != 0 ? static_cast<int>(position)
                         : kNoScanCode + (event.key() & (kNoScanCode - 1));
}

}  // namespace korvane
