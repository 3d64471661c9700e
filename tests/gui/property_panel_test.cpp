// The property panel with its real controls: what each of them writes into the faces of a mixed
// selection, by mouse and keys.
#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <QWheelEvent>

#include "EditingFixture.h"

namespace korvane::test {
namespace {

/// Both brushes of 12 faces are selected.
class PropertyPanelTest : public EditingTest {
  protected:
    void ShowAll() {
        for (Brush& brush : Session().scene.brushes) brush.selected = true;
        RefreshAll(Session());
    }
    /// Clicks the box itself or, without a caption in the way, what the style takes for it.
    void Click(const char* box) { QTest::mouseClick(Find(box), Qt::LeftButton, {}, QPoint(8, 8)); }
    int State(const char* box) { return Find<QCheckBox>(box)->checkState(); }
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
    ShowAll();
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
    BrushAt(0).faces[3].selected = true;  // faces of several brushes: those are the targets
    Click("chkFlagSmooth");
    EXPECT_EQ(Count(&BrushFace::smooth, 1), 1);
    EXPECT_EQ(State("chkFlagSmooth"), Qt::PartiallyChecked) << "the panel sums up all faces";
}

TEST_F(PropertyPanelTest, TheTransparencySliderWritesOnlyWhileItsBoxIsChecked) {
    for (BrushFace& face : BrushAt(1).faces) face.transparency = 40;
    BrushAt(1).selected = true;
    RefreshAll(Session());
    auto* slider = Find<QSlider>("hsTransparent");
    auto* label = Find<QLabel>("lblTransparent");
    EXPECT_EQ(label->text(), "40%");
    ShowAll();
    EXPECT_EQ(State("chkFlagTransparent"), Qt::PartiallyChecked);
    EXPECT_EQ(slider->value(), 40) << "stays where it was, though the first face has 0";
    DragTo("hsTransparent", 70);
    Click("chkFlagTransparent");
    EXPECT_EQ(Count(&BrushFace::transparency, 40), 12) << "mixed is not checked";
    const int level = DragTo("hsTransparent", 20);
    EXPECT_EQ(Count(&BrushFace::transparency, level), 24);
    EXPECT_EQ(label->text(), QString("%1%").arg(level));
    Click("chkFlagTransparent");
    EXPECT_FALSE(slider->isEnabled() || label->isEnabled());
    EXPECT_EQ(label->text(), "");
    RefreshAll(Session());
    EXPECT_EQ(State("chkFlagTransparent"), Qt::Checked) << "the faces kept their level";

    DragTo("hsTransparent", 0, false);
    EXPECT_EQ(Count(&BrushFace::transparency, 0), 24);
    EXPECT_TRUE(slider->isEnabled()) << "still under the hand";
    QTest::mouseRelease(slider, Qt::LeftButton);
    EXPECT_EQ(State("chkFlagTransparent"), Qt::Unchecked);
}

TEST_F(PropertyPanelTest, TheRotationFollowsItsSliderAndItsBox) {
    BrushAt(0).faces[2].rotation = 90;
    ShowAll();
    EXPECT_EQ(State("chkRotate"), Qt::PartiallyChecked);
    auto* slider = Find<QSlider>("hsRotate");
    QWidget* box = Find("chkRotate");
    const int degrees = DragTo("hsRotate", 130);
    EXPECT_EQ(Count(&BrushFace::rotation, degrees), 24);
    EXPECT_EQ(Find<QLabel>("lblRotate")->text(), QString("%1°").arg(degrees));
    EXPECT_TRUE(ViewsHaveFocus());
    Click("chkRotate");  // still mixed: checked applies the slider
    EXPECT_EQ(Count(&BrushFace::rotation, degrees), 24);
    Click("chkRotate");
    EXPECT_EQ(Count(&BrushFace::rotation, 0), 24);
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(Find<QLabel>("lblRotate")->text(), "");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Right);
    EXPECT_EQ(Count(&BrushFace::rotation, 0), 24) << "the slider is disabled";
    for (const auto key : {Qt::Key_Space, Qt::Key_PageUp, Qt::Key_Left}) QTest::keyClick(box, key);
    EXPECT_EQ(Count(&BrushFace::rotation, 14), 24) << "by the keys of the slider";
    QWheelEvent wheel({8, 8}, slider->mapToGlobal(QPointF(8, 8)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider, &wheel);
    EXPECT_EQ(Count(&BrushFace::rotation, 14), 24) << "the wheel scrolls the panel";
}

TEST_F(PropertyPanelTest, EnterInANumberBoxWritesOneAxis) {
    const struct {
        const char *box, *text;
        float BrushFace::*field;
        Qt::Key enter;
    } rows[] = {{"txtTextureOffset_0", "-2", &BrushFace::offsetX, Qt::Key_Return},
                {"txtTextureOffset_1", "0.5", &BrushFace::offsetY, Qt::Key_Return},
                {"txtTextureRepeat_0", "1.5", &BrushFace::repeatX, Qt::Key_Enter},
                {"txtTextureRepeat_1", "3", &BrushFace::repeatY, Qt::Key_Return}};
    BrushAt(1).faces[0].localCoords = true;
    ShowAll();
    EXPECT_TRUE(Find("lblOffset")->isEnabled()) << "a mixed box enables as well";
    EXPECT_EQ(Text("txtTextureOffset_0"), "0");
    QLocale::setDefault(QLocale::German);
    for (const auto& row : rows) {
        const float value = QString(row.text).toFloat();
        Type(row.box, row.text);
        EXPECT_EQ(Count(row.field, value), 0) << "not before Enter";
        QTest::keyClick(Find(row.box), row.enter);
        EXPECT_EQ(Count(row.field, value), 24) << row.box;
        EXPECT_TRUE(ViewsHaveFocus()) << row.box;
    }
    QLocale::setDefault(QLocale::C);
    for (const auto& row : rows) EXPECT_EQ(Text(row.box), row.text);
    Type("txtTextureRepeat_1", "7");
    Choose("mnuUnSelect");
    EXPECT_FALSE(Find("txtTextureRepeat_1")->isEnabled());
    EXPECT_TRUE(ViewsHaveFocus()) << "a disabled box keeps no keys";
}

}  // namespace
}  // namespace korvane::test
