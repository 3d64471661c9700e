// The keyboard map: 41 functions, each bound to one key or to none. Keys are stored as virtual-key
// codes, because settings and keyboard-map files hold those.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace korvane {

/// The functions that a key can be bound to, in slot order.
enum class KeyFunction : int {
    MoveFaster,
    MoveSlower,
    MoveForward,
    MoveBackward,
    MoveStrafeLeft,
    MoveStrafeRight,
    MoveUpwards,
    MoveDownwards,
    TurnLeft,
    TurnRight,
    TurnLookUp,
    TurnLookDown,
    ModeBrush,
    ModeFace,
    ModeEdge,
    ModeVertex,
    SelectSelect,
    SelectUnselectAll,
    EditCopy,
    EditPaste,
    ModifyFreeRotate,
    ModifyMultiply,
    ModifyDelete,
    FileSave,
    FileSaveAs,
    View4Way,
    ViewTop,
    ViewLeft,
    ViewFront,
    View3D,
    Size3,
    Size4,
    Size5,
    Size6,
    Size7,
    Size8,
    SizeArbitrary,
    ZoomIn,
    ZoomOut,
    ZoomReset,
    ViewResetAll,
};
inline constexpr int kKeyFunctions = 41;

/// One row of the function table.
struct KeyFunctionInfo {
    const char* text;       ///< as the preferences dialog shows it
    std::int16_t standard;  ///< default virtual-key code
};

/// The function table in slot order.
const std::array<KeyFunctionInfo, kKeyFunctions>& KeyFunctionTable();

/// The slots in the order in which the preferences dialog lists the functions and keyboard-map
/// files store them.
const std::array<int, kKeyFunctions>& KeyDisplayOrder();

/// A virtual-key code for each function, indexed by slot; 0 is no key.
struct KeyMap {
    std::array<std::int16_t, kKeyFunctions> codes;

    /// The default map.
    KeyMap();
    std::int16_t operator[](KeyFunction f) const { return codes[static_cast<int>(f)]; }
    std::int16_t& operator[](KeyFunction f) { return codes[static_cast<int>(f)]; }
};

/// Whether some function has the key.
bool IsBound(const KeyMap& map, int code);

/// What a key is called, such as "PAGE UP"; "{UnDefined}" for 0, "[KEY: 012]" for a code without a
/// name.
std::string KeyName(int code);

}  // namespace korvane
