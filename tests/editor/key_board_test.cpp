// Held keys as movement and commands, and mouse-look, tick by tick and by the clock.
#include <gmock/gmock.h>

#include "editor/mKeyBoard.h"
#include "editor/mMouseLook.h"
#include "scene/mClipboard.h"
#include "scene/mSelection.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

std::int64_t now = 0;  // milliseconds

class KeyBoardTest : public SessionTest {
  protected:
    KeyBoardTest() {
        now = 1000;
        editor.keyBoard.clock = [] { return now; };
    }

    /// A key of the keyboard map; its code serves as its place.
    int CodeOf(KeyFunction function) { return editor.settings.keyMap[function]; }
    void Press(KeyFunction f) { PressKey(editor, CodeOf(f), CodeOf(f)); }
    void Release(KeyFunction f) { ReleaseKey(editor, CodeOf(f)); }
    bool Held(int code) { return editor.keyBoard.held.at(static_cast<std::size_t>(code)); }

    /// Lets the timer come once after so many milliseconds.
    void After(int milliseconds) {
        now += milliseconds;
        AdvanceKeyBoard(editor);
    }

    void Tap(KeyFunction f) { Press(f), Release(f); }

    /// Flies level and straight, so that steps add up without rounding.
    void Level() { editor.camera = {0, 0, 0, 0, 0, 0}; }

    Camera& camera = editor.camera;
};

using F = KeyFunction;

TEST_F(KeyBoardTest, ATickMovesByWhatIsHeld) {
    const struct {
        std::vector<KeyFunction> held;
        Camera expected;
    } cases[] = {
        {{F::MoveForward}, {0, 0, -0.25F, 0, 0, 0}},
        {{F::MoveBackward, F::MoveFaster}, {0, 0, 0.5F, 0, 0, 0}},
        {{F::MoveStrafeLeft, F::MoveSlower}, {-0.1F, 0, 0, 0, 0, 0}},
        {{F::MoveStrafeRight, F::MoveSlower, F::MoveFaster}, {0.5F, 0, 0, 0, 0, 0}},
        {{F::MoveUpwards}, {0, 0.25F, 0, 0, 0, 0}},
        {{F::MoveDownwards}, {0, -0.25F, 0, 0, 0, 0}},
        {{F::MoveForward, F::MoveBackward}, {0, 0, 0, 0, 0, 0}},
        {{F::TurnLeft}, {0, 0, 0, 0, 1.25F, 0}},
        {{F::TurnRight, F::MoveFaster}, {0, 0, 0, 0, 357.5F, 0}},
        {{F::TurnLookUp, F::MoveSlower}, {0, 0, 0, 0.5F, 0, 0}},
        {{F::TurnLookDown}, {0, 0, 0, 358.75F, 0, 0}},
        {{F::MoveForward, F::TurnLeft}, {0, 0, -0.25F, 0, 1.25F, 0}},  // moved before it turned
    };
    for (const auto& c : cases) {
        Level();
        for (const KeyFunction f : c.held) editor.keyBoard.held[std::size_t(CodeOf(f))] = true;
        host.redraws = 0;
        KeyBoardTick(editor);
        const auto all = [](const Camera& v) {
            return std::array{v.x, v.y, v.z, v.pitch, v.yaw, v.roll};
        };
        EXPECT_EQ(all(camera), all(c.expected)) << "first held: " << int(c.held[0]);
        EXPECT_EQ(host.redraws, unsigned{RedrawPreview});
        ReleaseAllKeys(editor);
    }
}

TEST_F(KeyBoardTest, MissedTicksAreMadeUpButAStallIsNoLeap) {
    Level();
    Press(F::MoveForward);
    for (const int late : {9, 11, 10, 40, 13, 17}) After(late);  // 100 ms in all
    EXPECT_EQ(camera.z, -10 * 0.25F);
    After(5000);
    EXPECT_EQ(camera.z, -35 * 0.25F);
    After(10);
    EXPECT_EQ(camera.z, -36 * 0.25F) << "what was dropped does not come later";
    Release(F::MoveForward);
    EXPECT_TRUE(editor.keyBoard.running);
    After(10);
    EXPECT_FALSE(editor.keyBoard.running) << "one tick notices that no key is held";
    EXPECT_EQ(host.timerStarts, 1);
}

TEST_F(KeyBoardTest, ALateTickCreditsEachKeyWithItsOwnTime) {
    Level();
    Press(F::TurnLeft);
    now += 100;  // a slow frame, with a press and a release waiting behind it
    Press(F::MoveUpwards);
    EXPECT_EQ(camera.yaw, 10 * 1.25F);
    now += 50;
    Release(F::MoveUpwards);
    EXPECT_EQ(camera.y, 5 * 0.25F);
    EXPECT_EQ(camera.yaw, 15 * 1.25F);
}

TEST_F(KeyBoardTest, ACommandRunsOncePerPressAndWaitsUntilMovementStops) {
    Press(F::MoveForward);
    Press(F::ModeFace);
    Press(F::Size3);
    After(10);
    Release(F::Size3);
    EXPECT_EQ(editor.scene.editMode, BrushMove);
    Release(F::MoveForward);
    After(10);
    EXPECT_EQ(editor.scene.editMode, FaceEdit) << "still held";
    EXPECT_EQ(editor.scene.sideCount, 4) << "no longer held";
    editor.scene.editMode = BrushMove;
    After(50);
    EXPECT_EQ(editor.scene.editMode, BrushMove) << "it has run";
    EXPECT_FALSE(editor.keyBoard.running);
}

TEST_F(KeyBoardTest, EachKeyRunsItsOwnCommand) {
    const std::pair<std::int16_t*, std::vector<KeyFunction>> rows[] = {
        {&editor.scene.editMode, {F::ModeBrush, F::ModeFace, F::ModeEdge, F::ModeVertex}},
        {&editor.settings.ViewLayout,
         {F::View4Way, F::ViewTop, F::ViewLeft, F::ViewFront, F::View3D}},
        {&editor.scene.sideCount, {F::Size3, F::Size4, F::Size5, F::Size6, F::Size7, F::Size8}}};
    for (const auto& [value, functions] : rows) {
        int expected = value == &editor.scene.sideCount ? 3 : 0;
        for (const KeyFunction function : functions) {
            *value = -1;
            Tap(function);
            EXPECT_EQ(*value, expected++);
        }
    }
    editor.settings.warnings = {};
    for (const auto f : {F::ModifyFreeRotate, F::ModifyMultiply}) Tap(f);
    EXPECT_THAT(host.forms, testing::IsEmpty()) << "disabled without a selection";
    AddBox({0, 0, 0}, {1, 1, 1}).selected = true;
    for (const auto f : {F::SelectSelect, F::ModifyFreeRotate, F::ModifyMultiply, F::SizeArbitrary})
        Tap(f);
    EXPECT_THAT(host.forms, testing::ElementsAre(Form::Select, Form::FreeRotate, Form::Multiply,
                                                 Form::ArbitrarySize));
    for (const auto f : {F::EditCopy, F::EditPaste}) Tap(f);
    EXPECT_EQ(Selected(), "01");
    Tap(F::SelectUnselectAll);
    EXPECT_EQ(Selected(), "00");
    Select("01");
    Tap(F::ModifyDelete);
    EXPECT_EQ(Selected(), "0");
    editor.CurrentObjectPath = folder.Path("a.kvobject");
    Tap(F::FileSaveAs);
    Tap(F::FileSave);
    EXPECT_EQ(prompts.saveDialogs.size(), 1U);
    EXPECT_FALSE(editor.SceneModified);
    camera.x = 77;
    Tap(F::ViewResetAll);
    EXPECT_EQ(camera.x, 0);
}

TEST_F(KeyBoardTest, ZoomRepeatsWhileHeld) {
    Press(F::ZoomIn);
    After(10);
    After(30);
    EXPECT_EQ(editor.views[TopView].zoom, 88);
    Release(F::ZoomIn);
    Tap(F::ZoomOut);
    EXPECT_EQ(editor.views[TopView].zoom, 86);
    Tap(F::ZoomReset);
    EXPECT_EQ(editor.views[TopView].zoom, 80);
}

TEST_F(KeyBoardTest, ARepeatedKeyIsOnePress) {
    Level();
    PressKey(editor, 25, 87, 5000);
    PressKey(editor, 48, 66, 5000);
    editor.scene.editMode = FaceEdit;
    for (int repeat = 1; repeat <= 3; ++repeat) {
        ReleaseKey(editor, 25, 5000 + 40 * repeat);
        PressKey(editor, 25, 87, 5000 + 40 * repeat);
        After(40);
    }
    EXPECT_EQ(camera.z, -12 * 0.25F);
    ReleaseKey(editor, 25, 6000);
    After(10);
    EXPECT_EQ(editor.scene.editMode, BrushMove) << "B ran";
    editor.scene.editMode = FaceEdit;
    ReleaseKey(editor, 48, 6100);
    PressKey(editor, 48, 66, 6100);
    After(10);
    EXPECT_EQ(editor.scene.editMode, FaceEdit);
    ReleaseKey(editor, 48, 6200);
    PressKey(editor, 48, 66, 6300);
    After(10);
    EXPECT_EQ(editor.scene.editMode, BrushMove) << "a new press";
}

TEST_F(KeyBoardTest, AFunctionWithoutAKeyIsNeverHeld) {
    editor.settings.keyMap[F::MoveForward] = 0;
    editor.settings.keyMap[F::TurnLeft] = 300;  // files may hold any number
    editor.settings.keyMap[F::TurnRight] = -5;
    for (const int code : {0, 300, -5, 256}) PressKey(editor, 1000 + code, code);
    PressPreview(editor, Right(10, 10));
    PressPreview(editor, Left(10, 10));
    EXPECT_EQ(host.timerStarts, 0);
    Level();
    KeyBoardTick(editor);
    EXPECT_EQ(camera.z, 0);
    EXPECT_EQ(camera.yaw, 0);
}

/// A window opened by a command takes the keyboard while the tick still runs.
TEST_F(KeyBoardTest, ACommandThatLosesTheKeyboardLeavesNothingHeld) {
    struct : RecordingHost {
        Editor* session = nullptr;
        void OpenForm(Form) override { ReleaseAllKeys(*session); }
    } window;
    Editor other(window, prompts);
    window.session = &other;
    other.keyBoard.clock = editor.keyBoard.clock;
    PressKey(other, 1, 72);
    now += 10;
    PressKey(other, 2, 87);  // the tick that is due first opens the select dialog
    now += 30;
    AdvanceKeyBoard(other);
    EXPECT_EQ(other.camera.z, 5);
    EXPECT_FALSE(other.keyBoard.running);
    EXPECT_THAT(other.keyBoard.sources, testing::IsEmpty());
}

class MouseLookTest : public KeyBoardTest {
  protected:
    MouseLookTest() { PressPreview(editor, Right(100, 100)); }
};

TEST_F(MouseLookTest, ItsButtonsMoveLikeTheirKeys) {
    Level();
    const MouseInput middle{MouseButton::Middle, NoModifier, 100, 100};
    PressPreview(editor, Left(100, 100));
    Press(F::MoveForward);
    After(10);
    EXPECT_EQ(camera.z, -0.25F);
    ReleasePreview(editor, Left(100, 100));
    EXPECT_TRUE(Held(87)) << "the key is still down";
    Release(F::MoveForward);
    EXPECT_FALSE(Held(87));
    PressPreview(editor, middle);
    After(20);
    EXPECT_EQ(camera.z, 0.25F);
    PressPreview(editor, Right(100, 100));
    EXPECT_FALSE(Held(83)) << "its release comes when mouse-look is off";
    PressPreview(editor, Left(100, 100));
    EXPECT_FALSE(Held(87));
}

TEST_F(MouseLookTest, WhileTheTimerRunsATurnWaitsForItsTick) {
    Press(F::ModeFace);
    const unsigned ticks = editor.keyBoard.ticks;
    LookTo(editor, 110, 100, true);
    EXPECT_EQ(editor.keyBoard.ticks, ticks);
    After(10);
    EXPECT_EQ(editor.scene.editMode, BrushMove) << "a turn is movement, too";
    After(10);
    EXPECT_EQ(editor.scene.editMode, FaceEdit);
}

}  // namespace
}  // namespace korvane::test
