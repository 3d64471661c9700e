// Pixels of a dense screen: what is drawn lies on whole pixels, and what is pressed is what lies
// under the cursor. Run once more at other scales (QT_SCALE_FACTOR), with a screen large enough.
#include "EditingFixture.h"
#include "base/Rounding.h"
#include "textures/ui/mTextureListLayout.h"
#include "textures/ui/ucTextureList.h"
#include "views/ui/ucSurface.h"

namespace korvane::test {
namespace {

class ScaleTest : public EditingTest {
  protected:
    double Ratio() { return window->devicePixelRatioF(); }

    /// The screen's pixels from a place of a control on.
    QImage Pixels(QWidget* control, const QPoint& from, const QSize& size) {
        QTest::qWait(30);
        const QImage all = window->screen()->grabWindow(window->winId()).toImage();
        const QPointF corner = QPointF(control->mapTo(window.get(), from)) * Ratio();
        return all.copy(QRect(corner.toPoint(), size)).convertToFormat(QImage::Format_RGB32);
    }

    /// Whether the control shows the picture pixel for pixel, but for its last rows and columns,
    /// where the next control may begin or the grip lies.
    void ExpectShown(QWidget* control, const QPoint& at, const QImage& picture, int spared) {
        const QSize size = picture.size() - QSize(spared, spared);
        QImage expected = picture.copy(QRect(QPoint(), size)).convertToFormat(QImage::Format_RGB32);
        expected.setDevicePixelRatio(Ratio());
        QImage shown = Pixels(control, at, size);
        shown.setDevicePixelRatio(Ratio());
        EXPECT_TRUE(shown == expected) << control->objectName().toStdString();
    }

    /// Clicks a pixel of the screen in the preview, with Ctrl.
    void PickPixel(const QPoint& pixel) {
        QWidget* preview = Find("pbOpenGL");
        const QPointF at = (QPointF(pixel) + QPointF(0.5, 0.5)) / Ratio();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool press = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, at, preview->mapToGlobal(at), Qt::LeftButton,
                              press ? Qt::LeftButton : Qt::NoButton, Qt::ControlModifier);
            QApplication::sendEvent(preview, &event);
        }
    }
};

TEST_F(ScaleTest, EverySurfaceShowsItsPixelsOneToOne) {
    const int edge = RoundToInt(2 * Ratio());
    for (const char* name : {"pbView0", "pbView1", "pbView2", "pbDepth"}) {
        QWidget* control = Find(name);
        Shown(control);  // painted
        const QImage& picture = static_cast<ucSurface*>(control)->Picture();
        EXPECT_GE(picture.width(), control->width() * Ratio() - 0.01) << name;
        ExpectShown(control, {}, picture, edge);
    }
    ExpectShown(Find("pbOpenGL"), {}, window->Context().frame, RoundToInt(16 * Ratio()));

    const int side = RoundToInt(kThumbnailSide * Ratio());
    QImage stripes(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            stripes.setPixelColor(x, y, (x + y) % 2 ? Qt::red : Qt::blue);
    ucTextureList& list = window->Workspace().TextureList();
    list.AddThumbnail(stripes);
    list.update();
    ExpectShown(&list, {kThumbnailLeft + 2 * kThumbnailPitch, kThumbnailTop}, stripes, 0);
}

TEST_F(ScaleTest, APressMeetsWhatLiesUnderTheCursor) {
    ClickTop({1.5F, 0, 0.25F}, Qt::ControlModifier);
    ASSERT_EQ(Selected(), "-*");
    Session().scene.editMode = EdgeMove;
    RefreshAll(Session());
    DragTop({2, 0, 0}, {2.5F, 0, 0});
    EXPECT_FLOAT_EQ(BoundsOf(1).max.x, 2.5F);
    EXPECT_FLOAT_EQ(BoundsOf(1).min.x, 1) << "the other edge stays";

    BrushAt(1).selected = false;
    Session().scene.editMode = BrushMove;
    Session().settings.show3DGrid = false;
    Session().camera = {8, 1, 0, 0, 90, 0};
    RefreshAll(Session());
    Shown(Find("pbOpenGL"));
    const QImage& frame = window->Context().frame;
    const int middle = frame.height() / 2;
    int left = 0;
    while (left < frame.width() && frame.pixelColor(left, middle) == QColor(Qt::black)) ++left;
    ASSERT_LT(left, frame.width() / 2) << "the side of the box";
    PickPixel({left - 2, middle});
    EXPECT_EQ(Selected(), "--");
    PickPixel({left + 2, middle});
    EXPECT_EQ(Selected(), "-*");
}

}  // namespace
}  // namespace korvane::test
