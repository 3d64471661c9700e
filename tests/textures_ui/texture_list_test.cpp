// The texture browser: its arithmetic, and the widget under mouse, wheel and keys.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include "support/SessionFixture.h"
#include "textures/ui/ucTextureList.h"

namespace korvane {
namespace {

struct LayoutCase {
    const char* what;
    int width, count, selected, scroll;
    int visible;
    bool enabled;
    int maximum, first, last;
    int highlight;  ///< x of the frame, or -99 where there is none
};

TEST(TextureListLayoutTest, FollowsTheArithmetic) {
    const LayoutCase cases[] = {
        {"wide and few", 700, 3, 0, 0, 10, false, 0, 0, 2, 1},
        {"as many as fit: nothing to scroll, yet enabled", 350, 5, 4, 0, 5, true, 0, 0, 4, 281},
        {"one more is seen in part", 350, 20, 5, 0, 5, true, 15, 0, 5, 351},
        {"selected before the first", 350, 20, 2, 3, 5, true, 15, 3, 8, -99},
        {"selected behind the last", 350, 20, 9, 3, 5, true, 15, 3, 8, -99},
        {"selected first", 350, 20, 3, 3, 5, true, 15, 3, 8, 1},
        {"scrolled too far", 350, 20, 19, 99, 5, true, 15, 15, 19, 281},
        {"just too narrow for one more", 349, 20, 0, 0, 4, true, 16, 0, 4, 1},
        {"narrower than one", 50, 4, 1, 1, 0, true, 4, 1, 1, 1},
        {"no width", 0, 4, 0, 0, 0, true, 4, 0, 0, 1},
    };
    for (const LayoutCase& c : cases) {
        SCOPED_TRACE(c.what);
        const TextureListLayout layout = LayOutTextureList(c.width, c.count, c.selected, c.scroll);
        EXPECT_EQ(layout.visible, c.visible);
        EXPECT_EQ(layout.scrollEnabled, c.enabled);
        EXPECT_EQ(layout.scrollMaximum, c.maximum);
        EXPECT_EQ(layout.first, c.first);
        EXPECT_EQ(layout.last, c.last);
        EXPECT_EQ(layout.highlightShown ? layout.highlightLeft : -99, c.highlight);
    }
}

class TextureListTest : public test::SessionTest {
  protected:
    TextureListTest() {
        for (int i = 0; i < kCount; ++i) {
            QImage picture(32, 64, QImage::Format_RGB32);
            picture.fill(ColorOf(i));
            if (i > 0) editor.textures.AddTexture("t" + std::to_string(i) + ".bmp", 32, 64);
            list_.AddThumbnail(picture);
        }
        list_.resize(5 * kThumbnailPitch, list_.sizeHint().height());
        list_.show();
        QApplication::processEvents();
    }

    static QColor ColorOf(int index) { return QColor(10 * index + 20, 100, 255 - 10 * index); }
    QScrollBar& Bar() { return *list_.findChild<QScrollBar*>("hsViewOffset"); }
    /// Middle of the n-th place from the left.
    static QPoint Place(int n) { return {kThumbnailLeft + n * kThumbnailPitch + 32, 40}; }
    QColor Shown(const QPoint& at) { return list_.grab().toImage().pixelColor(at); }
    QString ToolTipAt(const QPoint& at) {
        QHelpEvent help(QEvent::ToolTip, at, list_.mapToGlobal(at));
        QApplication::sendEvent(&list_, &help);
        return QToolTip::text();
    }
    void Wheel(int eighths) {
        QWheelEvent wheel(Place(0), list_.mapToGlobal(Place(0)), {}, {0, eighths}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&list_, &wheel);
    }

    static constexpr int kCount = 12;
    ucTextureList list_{editor};
};

TEST_F(TextureListTest, ShowsThumbnailsHighlightAndBackdrop) {
    EXPECT_EQ(Bar().maximum(), kCount - 5);
    EXPECT_EQ(Bar().pageStep(), 5);
    for (const auto& [eighths, value] : {std::pair(-120, 1), {-60, 1}, {-60, 2}, {1200, 0}}) {
        Wheel(eighths);
        EXPECT_EQ(Bar().value(), value) << "by whole steps, after " << eighths;
    }
    Bar().setValue(3);
    list_.SelectTexture(5);
    editor.settings.colors[ColorItem::TextureListSelection] = MakeColor(1, 2, 3);
    editor.settings.colors[ColorItem::TextureListBackground] = MakeColor(4, 5, 6);
    list_.RefreshList();
    const QColor frame(1, 2, 3), backdrop(4, 5, 6);
    const int left = kThumbnailLeft + 2 * kThumbnailPitch;
    EXPECT_EQ(Shown({left, kThumbnailTop}), ColorOf(5));
    EXPECT_EQ(Shown({left + 63, kThumbnailTop + 63}), ColorOf(5)) << "stretched to a square";
    EXPECT_EQ(Shown({left - 2, kThumbnailTop - 2}), frame);
    EXPECT_EQ(Shown({left + 65, kThumbnailTop + 65}), frame);
    EXPECT_EQ(Shown({left - 3, kThumbnailTop}), backdrop);
    EXPECT_EQ(Shown(Place(0)), ColorOf(3));
}

TEST_F(TextureListTest, AMissingThumbnailShiftsNoOther) {
    editor.textures.AddTexture("without thumbnail.bmp", 32, 32);
    editor.textures.AddTexture("next.bmp", 32, 32);
    QImage picture(32, 32, QImage::Format_RGB32);
    picture.fill(Qt::yellow);
    list_.AddThumbnail(picture);
    list_.RefreshList();
    Bar().setValue(Bar().maximum());
    EXPECT_EQ(Shown(Place(2)), ColorOf(kCount - 1));
    EXPECT_EQ(Shown(Place(3)),
              QColor::fromRgb(editor.settings.colors[ColorItem::TextureListBackground]));
    EXPECT_EQ(Shown(Place(4)), QColor(Qt::yellow));
}

TEST_F(TextureListTest, AClickSelectsFirstAndTellsThen) {
    Bar().setValue(4);
    std::int32_t selectedAtSignal = -1;
    QObject::connect(&list_, &ucTextureList::Click, &list_,
                     [&](int) { selectedAtSignal = editor.textures.Selected(); });
    QSignalSpy clicks(&list_, &ucTextureList::Click);
    QTest::mouseClick(&list_, Qt::LeftButton, {}, Place(2));
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 6);
    EXPECT_EQ(selectedAtSignal, 6);
    QTest::mouseClick(&list_, Qt::LeftButton, {}, Place(2));
    EXPECT_EQ(clicks.size(), 2) << "the selected one can be clicked again";
    const QPoint gap(kThumbnailLeft + 2 * kThumbnailPitch - 3, 40);
    for (const QPoint& beside : {gap, QPoint(1, 40), QPoint(40, 1), QPoint(40, 70)}) {
        QTest::mouseClick(&list_, Qt::LeftButton, {}, beside);
    }
    QTest::mouseClick(&list_, Qt::RightButton, {}, Place(1));
    EXPECT_EQ(editor.textures.Selected(), 6);
    for (const int index : {3, kCount, -1}) list_.SelectTexture(index);
    EXPECT_EQ(editor.textures.Selected(), 3);
    EXPECT_EQ(clicks.size(), 2) << "selecting from outside tells nobody";
}

TEST_F(TextureListTest, TheTooltipNamesTheThumbnail) {
    EXPECT_EQ(ToolTipAt(Place(0)), "NO Material\n64 x 64");
    Bar().setValue(2);
    EXPECT_EQ(ToolTipAt(Place(1)), "t3\n32 x 64");
    ToolTipAt({kThumbnailLeft + kThumbnailPitch - 3, 40});
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "none in the gap";
}

TEST_F(TextureListTest, TheFilterLeavesWhatHasItInItsName) {
    auto* filter = list_.findChild<QLineEdit*>("txtTextureFilter");
    ASSERT_NE(filter, nullptr);
    Bar().setValue(4);
    const QColor backdrop = QColor::fromRgb(Shown({1, 40}).rgb());
    QSignalSpy clicks(&list_, &ucTextureList::Click);
    QTest::keyClicks(filter, "T1");  // t1, t10, t11
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_FALSE(Bar().isEnabled());
    EXPECT_EQ(Shown(Place(1)), ColorOf(10));
    EXPECT_EQ(Shown(Place(3)), backdrop);
    QTest::mouseClick(&list_, Qt::LeftButton, {}, Place(3));
    QTest::mouseClick(&list_, Qt::LeftButton, {}, Place(2));
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 11);
    QTest::keyClick(&list_, Qt::Key_Left);
    QTest::keyClick(&list_, Qt::Key_Space);
    EXPECT_EQ(editor.textures.Selected(), 10) << "the mark moves among what is listed";
    list_.ShowTexture(9);
    EXPECT_EQ(filter->text(), "") << "it would hide it";
    EXPECT_EQ(editor.textures.Selected(), 9);
    EXPECT_EQ(Bar().value(), 5) << "scrolled wholly into view";
    filter->setText("brick");
    QTest::keyClick(&list_, Qt::Key_Space);
    QTest::keyClick(&list_, Qt::Key_Right);
    EXPECT_EQ(editor.textures.Selected(), 9) << "there is nothing to choose";
}

TEST_F(TextureListTest, KeysMoveAMarkAndOnlySpaceChooses) {
    QSignalSpy clicks(&list_, &ucTextureList::Click);
    for (int i = 0; i < 7; ++i) QTest::keyClick(&list_, Qt::Key_Right);
    EXPECT_TRUE(clicks.empty());
    EXPECT_EQ(editor.textures.Selected(), 0);
    EXPECT_EQ(Bar().value(), 3) << "the mark at 7 is scrolled wholly into view";
    QTest::keyClick(&list_, Qt::Key_Space);
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 7);
    EXPECT_EQ(editor.textures.Selected(), 7);
    QTest::keyClick(&list_, Qt::Key_End);
    QTest::keyClick(&list_, Qt::Key_Right);
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_EQ(editor.textures.Selected(), kCount - 1);
    QTest::keyClick(&list_, Qt::Key_Home);
    EXPECT_EQ(Bar().value(), 0);
}

}  // namespace
}  // namespace korvane
