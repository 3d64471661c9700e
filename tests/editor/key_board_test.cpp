// Held keys as movement and commands, and mouse-look, tick by tick and by the clock.
#include <gmock/gmock.h>

#include "editor/mKeyBoard.h"
#include "editor/mMouseLook.h"
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

TEST_F(KeyBoardTest, TheTimerRunsWhileAKeyIsHeldAndOneTickMore) {
    Level();
    Press(F::MoveForward);
    Press(F::MoveFaster);
    EXPECT_EQ(host.timerStarts, 1);
    After(10);
    EXPECT_EQ(camera.z, -0.5F);
    Release(F::MoveFaster);
    Release(F::MoveForward);
    EXPECT_TRUE(editor.keyBoard.running);
    After(10);
    EXPECT_FALSE(editor.keyBoard.running);
    EXPECT_EQ(camera.z, -0.5F);
    Press(F::MoveForward);
    EXPECT_EQ(host.timerStarts, 2);
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

TEST_F(KeyBoardTest, ATapBetweenTwoTicksIsNotLost) {
    Press(F::ModeEdge);
    Release(F::ModeEdge);
    EXPECT_EQ(editor.scene.editMode, EdgeMove);
    After(10);
    EXPECT_FALSE(editor.keyBoard.running);
}

TEST_F(KeyBoardTest, EachCommandKeyRunsItsCommandOnce) {
    const auto reset = [this] {
        editor.scene.editMode = BrushMove;
        editor.scene.sideCount = 64;
        editor.settings.ViewLayout = FourWay;
        editor.camera.x = 77;
    };
    const struct {
        KeyFunction function;
        std::function<bool()> done;
    } cases[] = {
        {F::ModeFace, [this] { return editor.scene.editMode == FaceEdit; }},
        {F::ModeVertex, [this] { return editor.scene.editMode == VertexMove; }},
        {F::Size3, [this] { return editor.scene.sideCount == 3; }},
        {F::Size8, [this] { return editor.scene.sideCount == 8; }},
        {F::ViewTop, [this] { return editor.settings.ViewLayout == TopOnly; }},
        {F::ViewLeft, [this] { return editor.settings.ViewLayout == LeftOnly; }},
        {F::ViewFront, [this] { return editor.settings.ViewLayout == FrontOnly; }},
        {F::View3D, [this] { return editor.settings.ViewLayout == PreviewOnly; }},
        {F::ViewResetAll, [this] { return editor.camera.x == 0; }},
    };
    for (const auto& c : cases) {
        reset();
        Press(c.function);
        EXPECT_FALSE(c.done()) << int(c.function);
        After(10);
        EXPECT_TRUE(c.done()) << int(c.function);
        reset();
        After(50);
        EXPECT_FALSE(c.done()) << "again: " << int(c.function);
        EXPECT_FALSE(editor.keyBoard.running) << "it is not held any more";
        Release(c.function);
    }
}

TEST_F(KeyBoardTest, CommandsOpenFormsAndPromptsAndRespectTheirEnabling) {
    AddBox({0, 0, 0}, {1, 1, 1});
    const auto tap = [this](KeyFunction f) {
        Press(f);
        Release(f);
    };
    for (const auto f : {F::ModifyFreeRotate, F::ModifyMultiply, F::ModifyDelete, F::EditCopy,
                         F::EditPaste, F::SelectUnselectAll})
        tap(f);
    EXPECT_TRUE(host.forms.empty()) << "nothing is selected";
    EXPECT_EQ(Brushes().size(), 1U);
    Brushes()[0].selected = true;
    for (const auto f : {F::ModifyFreeRotate, F::ModifyMultiply, F::SelectSelect, F::SizeArbitrary,
                         F::EditCopy, F::EditPaste})
        tap(f);
    EXPECT_EQ(host.forms,
              (std::vector{Form::FreeRotate, Form::Multiply, Form::Select, Form::ArbitrarySize}));
    EXPECT_EQ(Selected(), "01") << "the pasted brush is selected instead";
    tap(F::SelectUnselectAll);
    EXPECT_EQ(Selected(), "00");
    prompts.paths = {std::nullopt, std::nullopt};
    tap(F::FileSave);
    tap(F::FileSaveAs);
    EXPECT_EQ(prompts.saveDialogs.size(), 2U);
}

TEST_F(KeyBoardTest, CommandsWaitUntilMovementStops) {
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
}

TEST_F(KeyBoardTest, ZoomRepeatsAndResetsOnce) {
    Press(F::ZoomIn);
    After(10);
    After(30);
    EXPECT_EQ(editor.views[TopView].zoom, 88);
    Release(F::ZoomIn);
    Press(F::ZoomOut);
    After(10);
    EXPECT_EQ(editor.views[TopView].zoom, 86);
    Release(F::ZoomOut);
    host.redraws = 0;
    Press(F::ZoomReset);
    After(10);
    EXPECT_EQ(editor.gauge.zoom, 80);
    EXPECT_EQ(host.redraws, unsigned{RedrawAll});
    EXPECT_FALSE(Held(106));
}

TEST_F(KeyBoardTest, OfTwoKeysWithOneCodeEachHoldsIt) {
    constexpr int kLeftShift = 42, kRightShift = 54, kShift = 16;
    PressKey(editor, kLeftShift, kShift);
    PressKey(editor, kRightShift, kShift);
    ReleaseKey(editor, kLeftShift);
    EXPECT_TRUE(Held(kShift));
    ReleaseKey(editor, kRightShift);
    EXPECT_FALSE(Held(kShift));
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

TEST_F(KeyBoardTest, LosingTheKeyboardLetsEverythingGo) {
    Level();
    Press(F::MoveForward);
    ReleaseAllKeys(editor);
    Release(F::MoveForward);  // seen after all
    After(100);
    EXPECT_EQ(camera.z, 0);
    EXPECT_FALSE(editor.keyBoard.running);
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
    std::int16_t& state = editor.mouseLook.state;
};

TEST_F(MouseLookTest, TurnsByEveryOtherMoveAroundTheMiddle) {
    ReleasePreview(editor, Right(100, 100));
    EXPECT_EQ(state, LookOn);
    EXPECT_FALSE(LookTo(editor, 100, 100, true)) << "nothing has turned";
    host.redraws = 0;
    EXPECT_TRUE(LookTo(editor, 110, 95, true));
    EXPECT_EQ(camera.yaw, -2);
    EXPECT_EQ(camera.pitch, -29);
    EXPECT_EQ(host.redraws, unsigned{RedrawPreview});
    EXPECT_EQ(state, LookRecentred);
    EXPECT_FALSE(LookTo(editor, 200, 150, true)) << "the cursor was put there";
    EXPECT_EQ(camera.yaw, -2);
    EXPECT_EQ(state, LookOn);
    LookTo(editor, 199, 150, true);
    EXPECT_FLOAT_EQ(camera.yaw, -1.8F);
    PressPreview(editor, Right(199, 150));
    EXPECT_EQ(state, LookOff);
    EXPECT_FALSE(LookTo(editor, 10, 10, true));
    EXPECT_FLOAT_EQ(camera.yaw, -1.8F);
}

TEST_F(MouseLookTest, WithoutRecentringItGoesOnFromWhereTheCursorIs) {
    for (const float x : {90.0F, 80.0F, 60.0F}) EXPECT_FALSE(LookTo(editor, x, 100, false));
    EXPECT_EQ(camera.yaw, 8);
    EXPECT_EQ(state, LookOn);
}

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
