// A session without a window in a folder of its own: what tests of gestures, commands and dialogs
// start from.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "editor/mCommands.h"
#include "editor/mViewGestures.h"
#include "editor/mViews.h"
#include "files/mObjectFile.h"
#include "scene/mNormals.h"
#include "support/RecordingHost.h"
#include "support/SceneMaker.h"
#include "support/TempFolder.h"

namespace korvane::test {

constexpr MouseInput Left(float x, float y, unsigned modifiers = NoModifier) {
    return {MouseButton::Left, modifiers, x, y};
}
constexpr MouseInput Right(float x, float y) {
    return {MouseButton::Right, NoModifier, x, y};
}

/// Views of 400 x 300 at zoom 80: world (0, 0) lies at pixel (200, 150).
class SessionTest : public testing::Test {
  protected:
    SessionTest() {
        editor.programFolder = folder.Path();
        std::filesystem::create_directory(folder.Path("ObjCache"));
        for (ViewState& view : editor.views) view.width = 400, view.height = 300;
        editor.gauge.width = 60;
        editor.gauge.height = 600;
        UpdateViewOrigins(editor);
    }

    std::vector<Brush>& Brushes() { return editor.scene.brushes; }

    /// Appends a box with four sides; unselected.
    Brush& AddBox(const Vec3& min, const Vec3& max) {
        CreateBrush(editor.scene, min, max, 4, editor.Space());
        return Brushes().back();
    }

    Brush& AddSelected(const Vec3& min, const Vec3& max) {
        Brush& brush = AddBox(min, max);
        brush.selected = true;
        return brush;
    }

    /// Selects the brushes whose flag is '1'.
    void Select(const std::string& flags) {
        for (std::size_t i = 0; i < flags.size(); ++i) Brushes()[i].selected = flags[i] == '1';
    }

    Bounds BoundsOf(std::size_t brush) const { return BrushBounds(editor.scene.brushes.at(brush)); }

    void Drag(int view, const MouseInput& from, const MouseInput& to) {
        PressView(editor, view, from);
        MoveOverView(editor, view, to);
        ReleaseView(editor, view, to);
    }

    void Click(int view, const MouseInput& at) {
        PressView(editor, view, at);
        ReleaseView(editor, view, at);
    }

    void Run(const char* name) {
        const Command* command = FindCommand(name);
        ASSERT_NE(command, nullptr) << name;
        ASSERT_TRUE(IsEnabled(*command, editor)) << name;
        RunCommand(editor, *command);
    }

    bool Enabled(const char* name) { return IsEnabled(*FindCommand(name), editor); }

    /// The scene to the byte, selection of brushes and faces included.
    Bytes SceneBytes() const { return EncodeObject(editor.scene, editor.textures, true); }

    std::ptrdiff_t SnapshotFiles() const {
        const auto files = std::filesystem::directory_iterator(folder.Path("ObjCache"));
        return std::distance(files, std::filesystem::directory_iterator());
    }

    std::string Selected() const { return SelectedFlags(editor.scene.brushes); }

    TempFolder folder;
    RecordingHost host;
    ScriptedPrompts prompts;
    Editor editor{host, prompts};
};

}  // namespace korvane::test
