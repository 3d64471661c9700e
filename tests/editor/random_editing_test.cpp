// Thousands of random commands and gestures. After each the scene's invariants hold, and undoing
// and redoing them brings the scene back and forth to the byte.
//
// KORVANE_RANDOM_SEED and KORVANE_RANDOM_STEPS choose another run than the usual one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "editor/mFreeRotate.h"
#include "editor/mMultiply.h"
#include "editor/mSelectDialog.h"
#include "editor/mTextureCommands.h"
#include "editor/mUndo.h"
#include "scene/mSelection.h"
#include "support/SceneInvariants.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

unsigned FromEnvironment(const char* name, unsigned usual) {
    const char* value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : usual;
}

class RandomEditingTest : public test::SessionTest {
  protected:
    RandomEditingTest() {
        editor.textures.AddTexture("brick.jpg", 256, 128);
        editor.textures.AddTexture("sand.tga", 512, 512);
        editor.depthRange = {1, 0};
    }

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }

    MouseInput Mouse(MouseButton button) {
        static constexpr unsigned kModifiers[] = {NoModifier, NoModifier, NoModifier,
                                                  CtrlKey,    CtrlKey,    ShiftKey};
        return {button, kModifiers[Pick(0, 5)], static_cast<float>(Pick(0, 399)),
                static_cast<float>(Pick(0, 299))};
    }

    /// A corner of a selected brush, so that picks meet something.
    MouseInput MouseAtAVertex(int view, MouseButton button) {
        MouseInput mouse = Mouse(button);
        if (Brushes().empty()) return mouse;
        const Brush& brush =
            Brushes()[static_cast<std::size_t>(Pick(0, editor.scene.brushCount() - 1))];
        const auto last = static_cast<int>(brush.vertices.size()) - 1;
        const Vec3 a = brush.vertices[static_cast<std::size_t>(Pick(0, last))].Position();
        const Vec3 b = brush.vertices[static_cast<std::size_t>(Pick(0, last))].Position();
        const ScreenPoint at =
            WorldToScreen(editor.views[view], view, Chance(50) ? a : Midpoint(a, b));
        mouse.x = static_cast<float>(at.x);
        mouse.y = static_cast<float>(at.y);
        return mouse;
    }

    void Gesture() {
        const int view = Pick(0, 2);
        const MouseButton button = Chance(90) ? MouseButton::Left : MouseButton::Right;
        MouseInput mouse = Chance(50) ? MouseAtAVertex(view, button) : Mouse(button);
        PressView(editor, view, mouse);
        const int steps = Pick(0, 4);
        for (int i = 0; i < steps; ++i) {
            mouse.x += static_cast<float>(Pick(-40, 40));
            mouse.y += static_cast<float>(Pick(-40, 40));
            MoveOverView(editor, view, mouse);
            CheckScene();
        }
        if (Chance(10)) CancelViewGesture(editor);
        ReleaseView(editor, view, mouse);
    }

    void MenuCommand() {
        static constexpr const char* kCommands[] = {
            "mnuCopy",      "mnuPaste",      "mnuUnSelect",     "mnuDelete",    "mnuRotX",
            "mnuRotXc",     "mnuRotY",       "mnuRotYc",        "mnuRotZ",      "mnuRotZc",
            "mnuFlipX",     "mnuFlipY",      "mnuFlipZ",        "mnuInvert",    "mnuModeBrush",
            "mnuModeFace",  "mnuModeEdge",   "mnuModeVertex",   "mnuModeBrush", "mnuSnap",
            "mnuCreateBox", "mnuCreateCone", "mnuCreateSphere", "mnuSize3",     "mnuSize4",
            "mnuSize5",     "mnuSize8",      "mnuUnSelect",     "mnuCreateBox"};
        const char* name = kCommands[Pick(0, static_cast<int>(std::size(kCommands)) - 1)];
        if (Enabled(name)) Run(name);
    }

    std::string Number() { return std::to_string(Pick(-40, 40) * 0.25); }

    void Dialog() {
        switch (Pick(0, 3)) {
            case 0:
                OpenFreeRotate(editor);
                Drag(Pick(0, 2), Mouse(MouseButton::Left), Mouse(MouseButton::Left));
                RunFreeRotate(editor, {Number(), Number(), Number()});
                CloseFreeRotate(editor);
                break;
            case 1: {
                MultiplyBoxes boxes = OpenMultiply(editor);
                boxes.count = std::to_string(Pick(0, 3));
                boxes.move.texts = {Number(), Number(), Number(), "", "", ""};
                boxes.rotate.texts = {Number(), "0", Number(), "", "", ""};
                if (editor.scene.brushCount() < 20) RunMultiply(editor, boxes);
                CloseMultiply(editor);
                break;
            }
            case 2: {
                const SelectLists lists = ListsForSelecting(editor);
                SelectChoice choice;
                if (!lists.brushes.empty()) {
                    choice.brushes = {static_cast<std::size_t>(
                        Pick(0, static_cast<int>(lists.brushes.size()) - 1))};
                }
                SelectListed(editor, lists, choice);
                break;
            }
            default:
                TextureClicked(editor, Pick(0, 2));
        }
    }

    void Step() {
        const int kind = Pick(1, 100);
        if (editor.scene.brushCount() > kMostBrushes) {
            const bool all = CountSelectedBrushes(editor.scene) == editor.scene.brushCount();
            for (Brush& brush : Brushes()) brush.selected = true;
            if (all) Run("mnuDelete");
        } else if (kind <= 55) {
            Gesture();
        } else if (kind <= 90) {
            MenuCommand();
        } else {
            Dialog();
        }
    }

    void CheckScene() { ASSERT_EQ(test::SceneProblem(editor), ""); }

    test::Bytes BytesWithoutSelection() const {
        return EncodeObject(editor.scene, editor.textures, false);
    }

    /// One step, which takes at most one snapshot; without one it changes no more than the
    /// selection.
    void CheckedStep() {
        const std::int32_t snapshots = editor.undo.UndoCount;
        const test::Bytes before = SceneBytes();
        const test::Bytes unselected = BytesWithoutSelection();
        Step();
        ASSERT_NO_FATAL_FAILURE(CheckScene());
        if (editor.undo.UndoCount == snapshots) {
            ASSERT_EQ(BytesWithoutSelection(), unselected) << "changed without a snapshot";
            return;
        }
        ASSERT_EQ(editor.undo.UndoCount, snapshots + 1);
        states_.push_back(before);
    }

    /// Goes back through all steps of the chain and forth again, then back to somewhere in between,
    /// where editing goes on.
    void UndoChain() {
        const std::size_t last = states_.size();
        states_.push_back(SceneBytes());
        ASSERT_NO_FATAL_FAILURE(GoThrough("mnuUndo", last, 0));
        ASSERT_FALSE(Enabled("mnuUndo"));
        ASSERT_NO_FATAL_FAILURE(GoThrough("mnuRedo", 0, last));
        ASSERT_FALSE(Enabled("mnuRedo"));
        const auto middle = static_cast<std::size_t>(Pick(int(last) / 2, int(last) - 1));
        ASSERT_NO_FATAL_FAILURE(GoThrough("mnuUndo", last, middle));
        states_.resize(middle);
    }

    void GoThrough(const char* command, std::size_t from, std::size_t to) {
        while (from != to) {
            from += from < to ? std::size_t{1} : std::size_t(-1);
            Run(command);
            ASSERT_TRUE(SceneBytes() == states_[from]) << command << " to state " << from;
            ASSERT_NO_FATAL_FAILURE(CheckScene());
        }
    }

    std::vector<test::Bytes> states_;  ///< the scene before each snapshot of the chain
    std::mt19937 random_;

  private:
    static constexpr std::int32_t kMostBrushes = 30;
};

TEST_F(RandomEditingTest, EveryStepKeepsTheInvariantsAndCanBeUndone) {
    const unsigned seed = FromEnvironment("KORVANE_RANDOM_SEED", 20);
    const unsigned steps = FromEnvironment("KORVANE_RANDOM_STEPS", 4000);
    random_.seed(seed);
    editor.settings.warnings.fill(false);
    for (unsigned step = 1; step <= steps; ++step) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
        ASSERT_NO_FATAL_FAILURE(CheckedStep());
        if (std::ssize(states_) < kUndoSteps && step < steps) continue;
        ASSERT_NO_FATAL_FAILURE(UndoChain());
    }
    EXPECT_TRUE(prompts.messages.empty());
    EXPECT_EQ(SnapshotFiles(), editor.undo.UndoCount + std::ssize(editor.undo.redo));
    ClearUndoCache(editor);
    EXPECT_EQ(SnapshotFiles(), 0);
}

}  // namespace
}  // namespace korvane
