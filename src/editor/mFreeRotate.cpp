#include "editor/mFreeRotate.h"

#include <cmath>

#include "editor/TypedNumber.h"
#include "editor/mCommands.h"
#include "editor/mRotationMarker.h"
#include "editor/mUndo.h"
#include "scene/mTransform.h"

namespace korvane {
namespace {

/// The angle in 0..360: what a loop gives that takes off 360 while it is above, adds it while below
/// 0. A whole number of turns above 0 stays 360.
float Wrapped(float degrees) {
    double wrapped = std::fmod(degrees, 360.0);
    if (wrapped < 0) wrapped += 360;
    if (wrapped == 0 && degrees > 0) wrapped = 360;
    return static_cast<float>(wrapped);
}

}  // namespace

FreeRotateTexts OpenFreeRotate(Editor& editor) {
    ShowMarker(editor);
    const Vec3& last = editor.freeRotate;
    return {BoxText(last.x), BoxText(last.y), BoxText(last.z)};
}

void RunFreeRotate(Editor& editor, const FreeRotateTexts& texts) {
    const Vec3 typed = {TypedCoordinate(texts[0]), TypedCoordinate(texts[1]),
                        TypedCoordinate(texts[2])};
    editor.freeRotate = typed;
    TakeUndoSnapshot(editor, CommandTitle(*FindCommand("mnuFreeRotate")));
    RotateSelection(editor.scene, Wrapped(typed.x), Wrapped(typed.y), -Wrapped(typed.z),
                    editor.Space());
    RefreshAll(editor);
}

void CloseFreeRotate(Editor& editor) {
    HideMarker(editor);
    RedrawAllViews(editor);
}

}  // namespace korvane
