// What stands behind the dialogs: free rotate, multiply, select; and the group-name box.
#include <gmock/gmock.h>

#include <cmath>

#include "editor/mFreeRotate.h"
#include "editor/mMultiply.h"
#include "editor/mSelectDialog.h"
#include "scene/mSelection.h"
#include "scene/mTransform.h"
#include "support/SessionFixture.h"

namespace korvane {
namespace {

using testing::ElementsAre;

class EditDialogsTest : public test::SessionTest {
  protected:
    EditDialogsTest() { AddSelected({1, 0, 0}, {2, 1, 1}); }

    void ExpectNear(const Vec3& a, const Vec3& b, const std::string& what = {}) {
        EXPECT_LT(Distance(a, b), 1e-4) << what << " " << a.x << " " << a.y << " " << a.z;
    }

    Vec3 Corner(std::size_t brush) { return Brushes().at(brush).vertices[0].Position(); }

    MultiplyBoxes Boxes(const char* count, std::array<const char*, 3> move,
                        std::array<const char*, 3> rotate = {"0", "0", "0"}) {
        MultiplyBoxes boxes;
        boxes.count = count;
        for (std::size_t i = 0; i < 3; ++i) {
            boxes.move.texts[i] = move[i];
            boxes.rotate.texts[i] = rotate[i];
        }
        UpdateDependentBoxes(boxes);
        return boxes;
    }
};

TEST_F(EditDialogsTest, TheMarkerIsShownWhileADialogIsOpen) {
    OpenFreeRotate(editor);
    EXPECT_TRUE(editor.scene.markerShown);
    EXPECT_EQ(editor.scene.marker, (Vec3{1.5F, 0.5F, 0.5F}));
    EXPECT_EQ(host.status[0], "Rotation Marker: X: 1.50  Y: 0.50  Z: 0.50");
    editor.scene.marker = {7, 8, 9};
    editor.settings.setMarker = false;
    OpenMultiply(editor);
    EXPECT_EQ(editor.scene.marker, (Vec3{7, 8, 9})) << "left where it was";
    CloseFreeRotate(editor);
    EXPECT_TRUE(editor.scene.markerShown) << "the other dialog still turns about it";
    CloseMultiply(editor);
    EXPECT_FALSE(editor.scene.markerShown);
    EXPECT_EQ(host.status[0], "");
}

TEST_F(EditDialogsTest, FreeRotationTurnsLikeTheMenuAndRemembersWhatWasTyped) {
    const struct {
        FreeRotateTexts typed;
        Vec3 menu;  ///< angles of the menu's commands that do the same
        FreeRotateTexts shownNext;
    } rows[] = {
        {{"370", "0", "0"}, {10, 0, 0}, {"370", "0", "0"}},
        {{"-30", "", "x"}, {330, 0, 0}, {"-30", "0", "0"}},
        {{"0", "0", "90"}, {0, 0, -90}, {"0", "0", "90"}},
        {{"0", "12.3456789", "-360"}, {0, 12.345679F, 0}, {"0", "12.345679", "-360"}},
    };
    for (const auto& row : rows) {
        OpenFreeRotate(editor);
        editor.scene.marker = {-4, 5, 6};  // far outside the selection
        Scene byMenu = editor.scene;
        RotateSelection(byMenu, row.menu.x, row.menu.y, row.menu.z, editor.Space());
        const auto before = SceneBytes();
        RunFreeRotate(editor, row.typed);
        CloseFreeRotate(editor);
        for (std::int32_t v = 0; v < 8; ++v)
            ExpectNear(At(Brushes()[0], v), At(byMenu.brushes[0], v), row.typed[0]);
        EXPECT_EQ(OpenFreeRotate(editor), row.shownNext);
        CloseFreeRotate(editor);
        Run("mnuUndo");
        EXPECT_EQ(SceneBytes(), before);
        EXPECT_EQ(editor.undo.UndoCount, 0);
    }
}

TEST_F(EditDialogsTest, AbsurdNumbersHarmNothing) {
    for (const char* text : {"1e300", "-1e300", "99999999999999999999", "1e-300"}) {
        OpenFreeRotate(editor);
        RunFreeRotate(editor, {text, text, text});
        CloseFreeRotate(editor);
        EXPECT_TRUE(RunMultiply(editor, Boxes("2", {text, text, text}, {text, text, text})));
        for (const Vertex& v : Brushes().back().vertices) EXPECT_TRUE(std::isfinite(v.x)) << text;
        EXPECT_TRUE(RunMultiply(editor, Boxes("-3", {text, "", ""})));
    }
    EXPECT_EQ(Brushes().size(), 9U);
}

TEST_F(EditDialogsTest, BoxesDependOnTheTypedOnesAndTheCount) {
    MultiplyBoxes boxes = Boxes("3.6", {"2", "-0.1", "junk"}, {"45", "0.3333337", "0"});
    EXPECT_THAT(boxes.move.texts, ElementsAre("2", "-0.1", "junk", "6", "-0.3", "0"));
    EXPECT_THAT(boxes.rotate.texts, ElementsAre("45", "0.3333337", "0", "135", "1.000001", "0"));
    boxes.move.asTotals = true;
    boxes.count = "4";
    boxes.move.texts[3] = "10";
    boxes.move.texts[4] = "1";
    boxes.move.texts[5] = "-0.00001";
    UpdateDependentBoxes(boxes);
    EXPECT_THAT(boxes.move.texts, ElementsAre("2.5", "0.25", "-0.000002", "10", "1", "-0.00001"));
    EXPECT_EQ(boxes.rotate.texts[3], "180") << "the other row goes its own way";
    boxes.count = "0";
    UpdateDependentBoxes(boxes);
    EXPECT_THAT(boxes.move.texts, ElementsAre("0", "0", "0", "10", "1", "-0.00001"));
    EXPECT_EQ(boxes.rotate.texts[3], "0");
}

TEST_F(EditDialogsTest, CopiesMakeARow) {
    AddSelected({1, 3, 0}, {2, 4, 1});
    AddBox({8, 0, 0}, {9, 1, 1});
    editor.scene.clipboard.resize(1);  // what was copied before is lost
    OpenMultiply(editor);
    EXPECT_TRUE(RunMultiply(editor, Boxes("3", {"2", "0", "0"})));
    CloseMultiply(editor);
    EXPECT_EQ(Selected(), "000000011");
    for (std::size_t i = 1; i <= 3; ++i) {
        const float x = 1 + 2 * static_cast<float>(i);
        EXPECT_EQ(BoundsOf(1 + 2 * i), (Bounds{{x, 0, 0}, {x + 1, 1, 1}})) << i;
        EXPECT_EQ(BoundsOf(2 + 2 * i), (Bounds{{x, 3, 0}, {x + 1, 4, 1}})) << i;
    }
    EXPECT_EQ(editor.scene.clipboardCount(), 0);
    EXPECT_EQ(editor.undo.UndoCount, 1);
    EXPECT_GE(host.panelRefreshes, 1);
    const MultiplyBoxes next = OpenMultiply(editor);
    EXPECT_EQ(next.count, "3");
    EXPECT_THAT(next.move.texts, ElementsAre("2", "0", "0", "6", "0", "0"));
}

TEST_F(EditDialogsTest, CopiesMakeARingAndASpiralAboutTheMarker) {
    editor.settings.snapToGrid = false;
    OpenMultiply(editor);
    editor.scene.marker = {0, 0, 0};
    const Vec3 corner = Corner(0);  // (1, 1, 0)
    EXPECT_TRUE(RunMultiply(editor, Boxes("8", {"0", "0.5", "0"}, {"0", "45", "0"})));
    ASSERT_EQ(Brushes().size(), 9U);
    ExpectNear(Corner(2), {0, 2, -1}, "a quarter turn");
    ExpectNear(Corner(4), {-1, 3, 0}, "half a turn");
    ExpectNear(Corner(8), {corner.x, corner.y + 4, corner.z}, "a whole turn");
    SelectOnly(editor.scene, 0);
    EXPECT_TRUE(RunMultiply(editor, Boxes("1", {"0", "0", "0"}, {"0", "0", "90"})));
    ExpectNear(Corner(9), {-1, 1, 0}, "Z turns as typed");
}

TEST_F(EditDialogsTest, WithSnapCopiesEndOnTheGrid) {
    OpenMultiply(editor);
    EXPECT_TRUE(RunMultiply(editor, Boxes("40", {"0.1234", "-0.777", "0"})));
    for (const Brush& brush : Brushes()) {
        for (const Vertex& v : brush.vertices) {
            EXPECT_EQ(v.Position(), SnapToGrid(v.Position(), 0.1F));
        }
    }
}

TEST_F(EditDialogsTest, CountsRoundZeroCountsAndWhatExceedsMemoryIsRefused) {
    EXPECT_TRUE(RunMultiply(editor, Boxes("0", {"1", "0", "0"})));
    EXPECT_EQ(Selected(), "1");
    EXPECT_EQ(editor.undo.UndoCount, 1);
    EXPECT_TRUE(RunMultiply(editor, Boxes("3.6", {"1", "0", "0"})));
    EXPECT_EQ(Brushes().size(), 5U);
    AddSelected({0, 0, 0}, {1, 1, 1}).vertices.resize(100'000);
    EXPECT_FALSE(RunMultiply(editor, Boxes("99999", {"1", "0", "0"})));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].title, "Error!");
    EXPECT_EQ(Brushes().size(), 6U);
    EXPECT_EQ(editor.undo.UndoCount, 2);
    EXPECT_EQ(editor.multiply.count, 4);
}

TEST_F(EditDialogsTest, ListsShowEachTextOnceAndSelectByIt) {
    const std::int32_t brick = editor.textures.AddTexture("Brick.jpg", 64, 64);
    const std::int32_t other = editor.textures.AddTexture("brick.bmp", 64, 64);
    AddBox({0, 0, 0}, {1, 1, 1});
    AddBox({0, -2, 0}, {1, 3, 1});
    Brushes()[0].name = "Box";
    Brushes()[1].name = "box";
    Brushes()[1].group = "Wall";
    Brushes()[2].group = "WALL";
    Brushes()[2].faces[0].texture = brick;
    Brushes()[2].faces[1].texture = other;
    Brushes()[2].faces[2].texture = 99;
    const SelectLists lists = ListsForSelecting(editor);
    EXPECT_THAT(lists.groups, ElementsAre(" <Non-Grouped-Brushes> ", "Wall"));
    EXPECT_THAT(lists.brushes, ElementsAre("Box", "Brush-0002"));
    EXPECT_THAT(lists.textures, ElementsAre(" <Non-Textured> ", "Brick"));
    const std::pair<SelectChoice, const char*> rows[] = {{{}, "000"},
                                                         {{{0}, {}, {}}, "100"},
                                                         {{{1}, {}, {}}, "011"},
                                                         {{{}, {0}, {}}, "110"},
                                                         {{{}, {}, {0}}, "111"},
                                                         {{{0}, {1}, {}}, "101"},
                                                         {{{}, {}, {1}}, "001"}};
    for (const auto& [choice, selected] : rows) {
        UnselectAllBrushes(editor.scene);
        SelectListed(editor, lists, choice);
        EXPECT_EQ(Selected(), selected);
    }
    EXPECT_EQ(editor.depthRange.LO, -2) << "of the last choice";
    EXPECT_EQ(editor.depthRange.HI, 3);
    EXPECT_EQ(host.panelRefreshes, 7);
    EXPECT_EQ(editor.undo.UndoCount, 0);
}

TEST_F(EditDialogsTest, TheGroupBoxSetsTheGroupOfTheSelection) {
    AddBox({0, 0, 0}, {1, 1, 1}).group = "stays";
    for (const bool changes : {true, false}) {
        editor.SceneModified = false;
        SetGroupOfSelection(editor, "wall");
        EXPECT_EQ(Brushes()[0].group + "|" + Brushes()[1].group, "wall|stays");
        EXPECT_EQ(editor.SceneModified, changes);
    }
    EXPECT_EQ(editor.undo.UndoCount, 0);
    EXPECT_EQ(host.redrawRequests, 0);
    SetGroupOfSelection(editor, "T\xC3\xBCr \xCE\xA9");  // the Greek letter is in no file
    const std::string group = Brushes()[0].group;
    EXPECT_EQ(group.substr(0, 5), "T\xC3\xBCr ");
    Run("mnuInvert");
    Run("mnuUndo");
    EXPECT_EQ(Brushes()[0].group, group) << "undo brings no other group back";
}

}  // namespace
}  // namespace korvane
