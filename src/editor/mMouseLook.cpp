#include "editor/mMouseLook.h"

#include "editor/mKeyBoard.h"

namespace korvane {
namespace {

constexpr double kDegreesPerPixel = 0.2;

/// What a button stands for while mouse-look is on. Sources of keys are positive.
struct LookButton {
    MouseButton button;
    int source;
    KeyFunction function;
};

constexpr LookButton kLookButtons[] = {
    {MouseButton::Left, -1, KeyFunction::MoveForward},
    {MouseButton::Middle, -2, KeyFunction::MoveBackward},
};

void TurnBy(float& angle, float from, float to, bool& moved) {
    if (from == to) return;
    angle = static_cast<float>(angle + (static_cast<double>(from) - to) * kDegreesPerPixel);
    moved = true;
}

void Rebase(MouseLook& look, float x, float y) {
    look.lastX = x;
    look.lastY = y;
}

void Toggle(Editor& editor, const MouseInput& mouse) {
    if (editor.mouseLook.state == LookOff) {
        editor.mouseLook.state = LookOn;
        Rebase(editor.mouseLook, mouse.x, mouse.y);
    } else {
        EndMouseLook(editor);
    }
}

}  // namespace

void PressPreview(Editor& editor, const MouseInput& mouse) {
    if (mouse.button == MouseButton::Right) {
        Toggle(editor, mouse);
    } else if (editor.mouseLook.state != LookOff) {
        for (const auto& [button, source, function] : kLookButtons)
            if (button == mouse.button) PressKey(editor, source, editor.settings.keyMap[function]);
    }
    editor.host.FocusViews();
}

void ReleasePreview(Editor& editor, const MouseInput& mouse) {
    for (const LookButton& button : kLookButtons)
        if (button.button == mouse.button) ReleaseKey(editor, button.source);
    editor.host.FocusViews();
}

void ShowPreviewStatus(Editor& editor) {
    editor.host.ShowStatus(1, "3D");
    for (const int panel : {2, 3, 4}) editor.host.ShowStatus(panel, "");
}

bool LookTo(Editor& editor, float x, float y, bool recentres) {
    MouseLook& look = editor.mouseLook;
    if (look.state == LookOff) return false;
    if (look.state == LookRecentred) {
        Rebase(look, x, y);
        look.state = LookOn;
        return false;
    }
    bool& moved = editor.keyBoard.viewMoved;
    TurnBy(editor.camera.yaw, look.lastX, x, moved);
    TurnBy(editor.camera.pitch, look.lastY, y, moved);
    if (!moved) return false;
    if (recentres) {
        look.state = LookRecentred;
    } else {
        Rebase(look, x, y);
    }
    if (!editor.keyBoard.running) KeyBoardTick(editor);  // the frame is drawn anew
    return recentres;
}

void EndMouseLook(Editor& editor) {
    editor.mouseLook.state = LookOff;
    for (const LookButton& button : kLookButtons) ReleaseKey(editor, button.source);
}

}  // namespace korvane
