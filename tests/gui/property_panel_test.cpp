// The property panel with its real controls: edits of mixed selections by mouse and keys, read back
// from the faces.
#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>
#include <QSlider>
#include <QWheelEvent>

#include "EditingFixture.h"

namespace korvane::test {
namespace {

class PropertyPanelTest : public EditingTest {
  protected:
    void SelectBoth() {
        for (Brush& brush : Session().scene.brushes) brush.selected = true;
        RefreshAll(Session());
    }
    /// Clicks the box itself or, without a caption in the way, what the style takes for it.
    void Click(const char* box) { QTest::mouseClick(Find(box), Qt::LeftButton, {}, QPoint(8, 8)); }
    int State(const char* box) { return Find<QCheckBox>(box)->checkState(); }
    bool Enabled(const char* name) { return Find(name)->isEnabled(); }
    bool ViewsHaveFocus() { return Find("pbFocusKeeper")->hasFocus(); }

    /// Drags the handle of a slider to a value near the wanted one, which it returns.
    int DragTo(const char* name, int wanted, bool release = true) {
        auto* slider = Find<QSlider>(name);
        const auto place = [&](int value) {
            const int travel = slider->width() - 16;
            return QPoint(8 + travel * value / slider->maximum(), slider->height() / 2);
        };
        QTest::mousePress(slider, Qt::LeftButton, {}, place(slider->value()));
        QTest::mouseMove(slider, place(wanted) + QPoint(wanted == 0 ? -30 : 0, 0));
        if (release) QTest::mouseRelease(slider, Qt::LeftButton);
        return slider->value();
    }
    void Type(const char* box, const char* text) {
        QTest::mouseClick(Find(box), Qt::LeftButton);
        Find<QLineEdit>(box)->selectAll();
        QTest::keyClicks(Find(box), text);
    }
    /// How many faces of the two brushes have the value.
    template <class Field, class Value>
    int Count(Field BrushFace::*field, Value value) {
        int count = 0;
        for (const Brush& brush : Session().scene.brushes)
            for (const BrushFace& face : brush.faces) count += face.*field == value;
        return count;
    }
};

TEST_F(PropertyPanelTest, AClickOnAMixedBoxSetsTheFlagOfAllFaces) {
    const std::pair<const char*, Flag16 BrushFace::*> flags[] = {
        {"chkFlagInvisible", &BrushFace::invisible},
        {"chkTexLocal", &BrushFace::localCoords},
        {"chkFlipped", &BrushFace::flipped},
        {"chkMirrored", &BrushFace::mirrored}};
    for (const auto& [box, flag] : flags) BrushAt(1).faces[5].*flag = true;
    BrushAt(0).faces[0].smooth = 1;
    SelectBoth();
    EXPECT_EQ(Title(), "Korvane - New_Object*");
    Session().SceneModified = false;
    RefreshAll(Session());
    for (const auto& [box, flag] : flags) {
        EXPECT_EQ(State(box), Qt::PartiallyChecked) << box;
        EXPECT_EQ(Count(flag, true), 1) << "showing is not editing";
        for (const int expected : {24, 0, 24}) {
            Click(box);
            EXPECT_EQ(Count(flag, true), expected) << box;
            EXPECT_EQ(State(box), expected > 0 ? Qt::Checked : Qt::Unchecked) << box;
            EXPECT_TRUE(ViewsHaveFocus()) << box;
        }
    }
    EXPECT_EQ(Title(), "Korvane - New_Object*");
    BrushAt(0).faces[3].selected = true;  // faces of several brushes: those are the targets
    Click("chkFlagSmooth");
    EXPECT_EQ(BrushAt(0).faces[3].smooth, 1);
    EXPECT_EQ(Count(&BrushFace::smooth, 1), 2);
    EXPECT_EQ(State("chkFlagSmooth"), Qt::PartiallyChecked) << "the panel sums up all faces";
}

TEST_F(PropertyPanelTest, TheTransparencySliderWritesOnlyWhileItsBoxIsChecked) {
    BrushAt(1).selected = true;
    for (BrushFace& face : BrushAt(1).faces) face.transparency = 40;
    RefreshAll(Session());
    auto* slider = Find<QSlider>("hsTransparent");
    auto* label = Find<QLabel>("lblTransparent");
    EXPECT_EQ(slider->value(), 40);
    EXPECT_EQ(label->text(), "40%");
    SelectBoth();
    EXPECT_EQ(State("chkFlagTransparent"), Qt::PartiallyChecked);
    EXPECT_EQ(slider->value(), 40) << "stays where it was, though the first face has 0";
    DragTo("hsTransparent", 70);
    EXPECT_EQ(Count(&BrushFace::transparency, 40), 12) << "mixed is not checked";
    Click("chkFlagTransparent");
    EXPECT_EQ(Count(&BrushFace::transparency, 40), 12) << "the box writes nothing";
    const int level = DragTo("hsTransparent", 20);
    EXPECT_EQ(Count(&BrushFace::transparency, level), 24);
    EXPECT_EQ(label->text(), QString("%1%").arg(level));
    Click("chkFlagTransparent");
    EXPECT_FALSE(slider->isEnabled() || label->isEnabled());
    EXPECT_EQ(label->text(), "");
    EXPECT_EQ(Count(&BrushFace::transparency, level), 24);
    RefreshAll(Session());
    EXPECT_EQ(State("chkFlagTransparent"), Qt::Checked) << "the faces kept their level";

    DragTo("hsTransparent", 0, false);
    EXPECT_EQ(Count(&BrushFace::transparency, 0), 24);
    EXPECT_TRUE(slider->isEnabled()) << "still under the hand";
    QTest::mouseRelease(slider, Qt::LeftButton);
    EXPECT_EQ(State("chkFlagTransparent"), Qt::Unchecked);
    EXPECT_FALSE(slider->isEnabled());
}

TEST_F(PropertyPanelTest, TheRotationFollowsItsSliderAndItsBox) {
    BrushAt(0).faces[2].rotation = 90;
    SelectBoth();
    EXPECT_EQ(State("chkRotate"), Qt::PartiallyChecked);
    auto* slider = Find<QSlider>("hsRotate");
    const auto uv = BrushAt(1).faces[0].uv;
    const int degrees = DragTo("hsRotate", 130);
    EXPECT_EQ(Count(&BrushFace::rotation, degrees), 24);
    EXPECT_NE(BrushAt(1).faces[0].uv, uv);
    EXPECT_EQ(Find<QLabel>("lblRotate")->text(), QString("%1°").arg(degrees));
    EXPECT_TRUE(ViewsHaveFocus());
    Click("chkRotate");  // still mixed: checked applies the slider
    EXPECT_EQ(Count(&BrushFace::rotation, degrees), 24);
    Click("chkRotate");
    EXPECT_EQ(Count(&BrushFace::rotation, 0), 24);
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(BrushAt(1).faces[0].uv, uv);
    EXPECT_FALSE(slider->isEnabled());
    EXPECT_EQ(Find<QLabel>("lblRotate")->text(), "");
    Find("chkRotate")->setFocus();
    QTest::keyClick(Find("chkRotate"), Qt::Key_Right);
    EXPECT_EQ(Count(&BrushFace::rotation, 0), 24) << "the slider is disabled";
    QTest::keyClick(Find("chkRotate"), Qt::Key_Space);
    EXPECT_TRUE(slider->isEnabled());
    QTest::keyClick(Find("chkRotate"), Qt::Key_PageUp);
    QTest::keyClick(Find("chkRotate"), Qt::Key_Left);
    EXPECT_EQ(Count(&BrushFace::rotation, 14), 24) << "by the keys of the slider";
    QTest::keyClick(Find("chkRotate"), Qt::Key_Home);
    QWheelEvent wheel({8, 8}, slider->mapToGlobal(QPointF(8, 8)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider, &wheel);
    EXPECT_EQ(Count(&BrushFace::rotation, 0), 24) << "the wheel scrolls the panel";
}

TEST_F(PropertyPanelTest, EnterInANumberBoxWritesOneAxis) {
    BrushAt(1).faces[0].localCoords = true;
    BrushAt(1).faces[0].offsetX = 0.25F;
    SelectBoth();
    EXPECT_TRUE(Find("lblOffset")->isEnabled()) << "a mixed box enables as well";
    EXPECT_EQ(Text("txtTextureOffset_0"), "0");
    QLocale::setDefault(QLocale::German);
    Type("txtTextureOffset_1", "0.5");
    EXPECT_EQ(Count(&BrushFace::offsetY, 0.5F), 0) << "not before Enter";
    QTest::keyClick(Find("txtTextureOffset_1"), Qt::Key_Return);
    EXPECT_EQ(Count(&BrushFace::offsetY, 0.5F), 24);
    EXPECT_EQ(Count(&BrushFace::offsetX, 0.25F), 1);
    EXPECT_TRUE(ViewsHaveFocus());
    Type("txtTextureRepeat_0", "1.5");
    QTest::keyClick(Find("txtTextureRepeat_0"), Qt::Key_Enter);
    EXPECT_EQ(Count(&BrushFace::repeatX, 1.5F), 24);
    Type("txtTextureOffset_0", "-2");
    QTest::keyClick(Find("txtTextureOffset_0"), Qt::Key_Return);
    EXPECT_EQ(Count(&BrushFace::offsetX, -2.0F), 24);
    Type("txtTextureRepeat_1", "3");
    QTest::keyClick(Find("txtTextureRepeat_1"), Qt::Key_Return);
    EXPECT_EQ(Count(&BrushFace::repeatY, 3.0F), 24);
    EXPECT_EQ(Count(&BrushFace::repeatX, 1.5F), 24);
    EXPECT_EQ(Text("txtTextureRepeat_0") + " " + Text("txtTextureOffset_1"), "1.5 0.5");
    QLocale::setDefault(QLocale::C);
    Type("txtTextureRepeat_1", "7");
    Choose("mnuUnSelect");
    EXPECT_FALSE(Find("txtTextureRepeat_1")->isEnabled());
    EXPECT_TRUE(ViewsHaveFocus()) << "a disabled box keeps no keys";
}

TEST_F(PropertyPanelTest, NothingIsCutOffInTheLowestWindow) {
    window->resize(640, 480);
    SelectBoth();
    QTest::qWait(100);
    auto* scroller = Find("conProps")->findChild<QScrollArea*>();
    EXPECT_LE(scroller->widget()->minimumSizeHint().width(), scroller->viewport()->width());
}

}  // namespace
}  // namespace korvane::test
