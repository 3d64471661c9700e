// Pixels of composed 2D views and of the depth gauge. Nothing here depends on a font's shapes.
#include <gtest/gtest.h>

#include "support/SessionFixture.h"
#include "views/ui/mRender2D.h"
#include "views/ui/mRulers.h"

namespace korvane {
namespace {

/// A Top view of 240 x 200 without rulers; world (0, 0) lies at pixel (120, 100), a unit is 40.
class PaintViewTest : public test::SessionTest {
  protected:
    PaintViewTest() {
        for (ViewState& view : editor.views) view.width = 240, view.height = 200, view.zoom = 40;
        editor.gauge.width = 60;
        editor.gauge.height = 200;
        editor.gauge.zoom = 40;
        UpdateViewOrigins(editor);
        editor.settings.showRulers = false;
    }

    void Paint(int view = TopView) { PaintView(editor, view, surface); }

    void ExpectAt(int x, int y, ColorItem item) const {
        EXPECT_EQ(surface.image.pixel(x, y), PixelOf(editor.settings.colors[item]))
            << "at " << x << ", " << y;
    }

    /// How many pixels of an area have a colour.
    int Count(QRgb color, const QRect& area) const {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                count += surface.image.pixel(x, y) == color;
        return count;
    }
    int Count(ColorItem item) const {
        return Count(PixelOf(editor.settings.colors[item]), surface.image.rect());
    }

    PaintSurface surface;
};

TEST_F(PaintViewTest, GridLinesStandEveryHalfUnit) {
    Paint();
    EXPECT_EQ(surface.image.size(), QSize(240, 200));
    ExpectAt(120, 33, ColorItem::GridCenter);
    ExpectAt(140, 33, ColorItem::GridMinor);
    ExpectAt(160, 33, ColorItem::GridNormal);
    ExpectAt(33, 100, ColorItem::GridCenter);
    ExpectAt(33, 80, ColorItem::GridMinor);
    ExpectAt(33, 60, ColorItem::GridNormal);
    ExpectAt(120, 80, ColorItem::GridMinor);  // rows lie on top of columns
    ExpectAt(33, 33, ColorItem::View2DBackground);
    editor.views[TopView].panX = 10 * 40;
    UpdateViewOrigins(editor);
    Paint();
    ExpectAt(120, 33, ColorItem::GridMajor);
}

TEST_F(PaintViewTest, EveryViewShowsItsEdgesWhereTheyAre) {
    AddBox({-0.3F, 0.2F, -0.7F}, {1.1F, 0.8F, 0.4F});
    // Pixels are 120 + 40 h and 100 + 40 z or 100 - 40 y.
    const QRect outlines[kViewCount] = {{QPoint(108, 72), QPoint(164, 116)},
                                        {QPoint(92, 68), QPoint(136, 92)},
                                        {QPoint(108, 68), QPoint(164, 92)}};
    const QRgb line = PixelOf(editor.settings.colors[ColorItem::View2DBrushLines]);
    for (int view = 0; view < kViewCount; ++view) {
        Paint(view);
        const QRect& outline = outlines[view];
        const int edge = 2 * outline.width() + 2 * outline.height() - 4;
        EXPECT_EQ(Count(line, outline), edge) << view;
        EXPECT_EQ(Count(line, outline.adjusted(1, 1, -1, -1)), 0) << view;
        EXPECT_EQ(Count(ColorItem::View2DBrushLines), edge) << view;
    }
}

TEST_F(PaintViewTest, SelectedBrushesLieOnTopWhateverTheirOrder) {
    AddBox({-1, 0, -1}, {1, 1, 1}).selected = true;
    AddBox({-1, 0, -1}, {1, 1, 0.5F});
    Paint();
    ExpectAt(80, 70, ColorItem::View2DSelectedBrushes);
    ExpectAt(90, 120, ColorItem::View2DBrushLines);
}

TEST_F(PaintViewTest, NodesAppearInTheirModesOnSelectedBrushesOnly) {
    AddBox({-2, 0, -2}, {-1, 1, -1});
    Brush& box = AddBox({0, 0, 0}, {1, 1, 1});
    box.selected = true;
    const struct {
        EditMode mode;
        int vertices, edges;
    } cases[] = {{BrushMove, 0, 0}, {FaceEdit, 0, 0}, {EdgeMove, 0, 8}, {VertexMove, 4, 0}};
    for (const auto& c : cases) {
        editor.scene.editMode = c.mode;
        Paint();
        EXPECT_EQ(Count(ColorItem::View2DVertexNodes), c.vertices * 21) << c.mode;
        // Edges along the view's line of sight have their nodes at the corners.
        EXPECT_EQ(Count(ColorItem::View2DEdgeNodes), c.edges * 21) << c.mode;
    }
    for (Vertex& vertex : box.vertices)
        vertex.selected = vertex.z == 0 || (vertex.x == 1 && vertex.y == 1);
    Paint();
    ExpectAt(120, 100, ColorItem::View2DSelectedNodes);
    ExpectAt(160, 100, ColorItem::View2DSelectedNodes);
    ExpectAt(120, 140, ColorItem::View2DVertexNodes);
    editor.scene.editMode = EdgeMove;
    Paint();
    ExpectAt(140, 100, ColorItem::View2DSelectedEdges);
    ExpectAt(140, 140, ColorItem::View2DEdgeNodes);
    ExpectAt(160, 140, ColorItem::View2DEdgeNodes);  // one end alone is not enough
    ExpectAt(120, 100, ColorItem::View2DSelectedEdges);
}

TEST_F(PaintViewTest, TheMarkerIsARingWithACentre) {
    editor.scene.marker = {1, 5, -1};
    editor.scene.markerShown = true;
    Paint();
    ExpectAt(158, 60, ColorItem::RotationMarker);
    ExpectAt(157, 60, ColorItem::View2DBackground);
    ExpectAt(155, 60, ColorItem::RotationMarker);
    EXPECT_EQ(Count(ColorItem::RotationMarker), 80 - 52 + 21);
    Paint(FrontView);
    EXPECT_EQ(Count(ColorItem::RotationMarker), 0) << "y = 5 is out of sight there";
}

TEST_F(PaintViewTest, RulersNameTheWorldsValuesAndTheView) {
    Paint();
    EXPECT_EQ(Count(ColorItem::RulerBackground), 0);
    editor.settings.showRulers = true;
    AddBox({-9, 0, -9}, {9, 1, 9});
    const QRgb background = PixelOf(editor.settings.colors[ColorItem::RulerBackground]);
    const QRgb ink = PixelOf(editor.settings.colors[ColorItem::RulerText]);
    // The same text drawn alone on the ruler's colour, in the same place.
    const auto expectText = [&](const char* text, const QPointF& at, const QFont& font,
                                const QRect& area, int view) {
        QImage alone(surface.image.size(), QImage::Format_RGB32);
        alone.fill(background);
        QPainter painter(&alone);
        painter.setPen(QColor(ink));
        painter.setFont(font);
        QStaticText label(text);
        label.setTextFormat(Qt::PlainText);
        painter.drawStaticText(at, label);
        painter.end();
        EXPECT_EQ(surface.image.copy(area), alone.copy(area)) << text << " in view " << view;
    };
    const struct {
        const char* caption;
        const char* below;  // the label one unit below the middle
    } cases[kViewCount] = {{"TOP", "1.0"}, {"LEFT", "-1.0"}, {"FRONT", "-1.0"}};
    for (int view = 0; view < kViewCount; ++view) {
        Paint(view);
        const QFontMetrics metrics(surface.font);
        const double half = LabelCache(surface.font).Label(1).size().width() * 0.5;
        expectText("1.0", {160 - half, 0}, surface.font, {150, 0, 20, metrics.height()}, view);
        expectText(cases[view].below, {0, 140 - metrics.height() * 0.5}, surface.font,
                   {0, 134, metrics.horizontalAdvance("-1.0"), 13}, view);
        EXPECT_LE(1 + QFontMetrics(surface.captionFont).horizontalAdvance(cases[view].caption),
                  kCaptionRight);
        expectText(cases[view].caption, {1, 1}, surface.captionFont,
                   {0, 0, kCaptionRight + 1, kCaptionBottom + 1}, view);
    }
}

TEST_F(PaintViewTest, GaugeWedgesPointAtTheirLevelsFromTheRulerOn) {
    editor.depthRange = {1, -1};
    PaintDepthGauge(editor, surface);
    EXPECT_EQ(surface.image.size(), QSize(60, 200));
    ExpectAt(0, 60, ColorItem::DepthGaugeHigh);
    ExpectAt(0, 140, ColorItem::DepthGaugeLow);
    ExpectAt(30, 55, ColorItem::DepthGaugeHigh);  // opens by a quarter unit at the right edge
    ExpectAt(30, 65, ColorItem::DepthGaugeHigh);
    ExpectAt(59, 50, ColorItem::DepthGaugeHigh);
    ExpectAt(30, 100, ColorItem::GridCenter);
    ExpectAt(30, 80, ColorItem::GridMinor);
    EXPECT_EQ(Count(ColorItem::RulerBackground), 0);
    editor.depthRange = {0.5F, 0.5F};
    PaintDepthGauge(editor, surface);
    EXPECT_EQ(Count(ColorItem::DepthGaugeHigh), 0) << "LO lies on top";
    EXPECT_GT(Count(ColorItem::DepthGaugeLow), 100);
    editor.depthRange = {1, -1};
    editor.settings.showRulers = true;
    PaintDepthGauge(editor, surface);
    const int strip = VerticalRuler{GridRangeOf(100, 200, 40), 100, 40, false}.Width(surface.font);
    const QRgb mark = PixelOf(editor.settings.colors[ColorItem::DepthGaugeHigh]);
    EXPECT_EQ(Count(mark, {0, 60, strip + 1, 1}), 0);
    ExpectAt(strip + 1, 60, ColorItem::DepthGaugeHigh);
    ExpectAt(strip, 10, ColorItem::RulerBackground);
}

TEST_F(PaintViewTest, TheRubberBandIsADottedRectangleWithTexts) {
    surface.Resize(240, 200);
    surface.image.fill(Qt::white);
    QPainter painter(&surface.image);
    const RubberBand band{50, 60, 90, 100, "[Size: 1.0 x 0.0 x 1.0]", "a", "b"};
    PaintRubberBand(painter, band, MakeColor(255, 0, 0), surface.font);
    painter.end();
    const int onTop = Count(0xFFFF0000, {50, 60, 41, 1});
    EXPECT_GT(onTop, 8);
    EXPECT_LT(onTop, 32) << "dotted, not solid";
    EXPECT_EQ(surface.image.pixel(70, 80), 0xFFFFFFFF) << "not filled";
    const auto inked = [&](const QRect& area) {
        return Count(0xFFFFFFFF, area) < area.width() * area.height();
    };
    const int h = QFontMetrics(surface.font).height();
    EXPECT_TRUE(inked({50, 60 - 2 * h, 100, h})) << "size";
    EXPECT_TRUE(inked({50, 60 - h, 20, h - 1})) << "start";
    EXPECT_TRUE(inked({80, 102, 11, h})) << "end";
    EXPECT_FALSE(inked({94, 102, 100, h})) << "the last text ends at the right edge";
}

}  // namespace
}  // namespace korvane
