#include "views/ui/mRender2D.h"

#include <QFontMetrics>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>

#include "base/Rounding.h"
#include "views/core/mGrid.h"
#include "views/ui/mRulers.h"

namespace korvane {
namespace {

/// One paint of one surface: what every layer needs.
struct Canvas {
    const Settings& settings;
    const ViewState& state;
    PaintSurface& surface;
    Raster2D raster;
    double ratio;

    std::uint32_t Ink(ColorItem item) const { return PixelOf(settings.colors[item]); }
    /// The device pixel of a logical coordinate of the surface.
    std::int32_t Device(double logical) const { return RoundToInt(logical * ratio); }
};

Canvas CanvasOf(const Editor& editor, const ViewState& state, PaintSurface& surface) {
    surface.Resize(state.width, state.height);
    return {editor.settings, state, surface, surface.Raster(), surface.ratio};
}

QColor ToQColor(Color color) {
    return QColor::fromRgb(PixelOf(color));
}

std::uint32_t GridInk(const Canvas& canvas, GridLine line) {
    static constexpr ColorItem items[] = {ColorItem::GridNormal, ColorItem::GridMinor,
                                          ColorItem::GridMajor, ColorItem::GridCenter};
    return canvas.Ink(items[static_cast<int>(line)]);
}

/// Fills logical pixels x1..x2 by y1..y2, both ends included.
void Fill(const Canvas& canvas, int x1, int y1, int x2, int y2, ColorItem item) {
    FillRect(canvas.raster, canvas.Device(x1), canvas.Device(y1), canvas.Device(x2 + 1) - 1,
             canvas.Device(y2 + 1) - 1, canvas.Ink(item));
}

GridRange Columns(const ViewState& state) {
    return GridRangeOf(state.originX, state.width, state.zoom);
}

GridRange Rows(const ViewState& state) {
    return GridRangeOf(state.originY, state.height, state.zoom);
}

/// Background and vertical grid lines: all rows are alike, so one is drawn and then repeated.
void DrawColumns(const Canvas& canvas, bool withLines) {
    const Raster2D& raster = canvas.raster;
    const Raster2D row{raster.pixels, raster.stride, raster.width, 1};
    FillRect(row, 0, 0, raster.width - 1, 0, canvas.Ink(ColorItem::View2DBackground));
    const int thickness = PenPixels(1, canvas.ratio);
    const auto line = [&](double u, GridLine kind) {
        const int x = canvas.Device(canvas.state.originX - canvas.state.zoom * u);
        const int left = x - (thickness - 1) / 2;
        FillRect(row, left, 0, left + thickness - 1, 0, GridInk(canvas, kind));
    };
    if (withLines) WalkGrid(Columns(canvas.state), line);
    for (std::int32_t y = 1; y < raster.height; ++y)
        std::copy_n(raster.pixels, raster.width, raster.Row(y));
}

void DrawRows(const Canvas& canvas) {
    const int thickness = PenPixels(1, canvas.ratio);
    WalkGrid(Rows(canvas.state), [&](double u, GridLine kind) {
        const int y = canvas.Device(canvas.state.originY - canvas.state.zoom * u);
        const int top = y - (thickness - 1) / 2;
        FillRect(canvas.raster, 0, top, canvas.raster.width - 1, top + thickness - 1,
                 GridInk(canvas, kind));
    });
}

BrushColors BrushInks(const Canvas& canvas) {
    return {canvas.Ink(ColorItem::View2DBrushLines),  canvas.Ink(ColorItem::View2DSelectedBrushes),
            canvas.Ink(ColorItem::View2DEdgeNodes),   canvas.Ink(ColorItem::View2DSelectedEdges),
            canvas.Ink(ColorItem::View2DVertexNodes), canvas.Ink(ColorItem::View2DSelectedNodes)};
}

/// Background, grid and unselected brushes.
void DrawBehindSelection(const Canvas& canvas, int view, const Scene& scene) {
    DrawColumns(canvas, true);
    DrawRows(canvas);
    const Projection projection = ProjectionOf(canvas.state, view, canvas.ratio);
    canvas.surface.brushes.DrawUnselected(canvas.raster, projection, canvas.ratio, scene,
                                          BrushInks(canvas));
}

/// Selected brushes with their nodes, and the marker.
void DrawSelection(const Canvas& canvas, int view, const Scene& scene,
                   std::span<const std::int32_t> selected) {
    const Projection projection = ProjectionOf(canvas.state, view, canvas.ratio);
    canvas.surface.brushes.DrawSelected(canvas.raster, projection, canvas.ratio, scene, selected,
                                        BrushInks(canvas));
    if (scene.markerShown)
        DrawMarker(canvas.raster, projection, canvas.ratio, scene.marker,
                   canvas.Ink(ColorItem::RotationMarker), canvas.Ink(ColorItem::View2DBackground));
}

VerticalRuler LeftRuler(const ViewState& state, bool negated) {
    return {Rows(state), state.originY, state.zoom, negated};
}

enum RulerArea { TopArea, LeftArea, CaptionArea };

RulerAreas RulerAreasOf(const Canvas& canvas, const VerticalRuler& left) {
    const QSize whole(canvas.raster.width, canvas.raster.height);
    const QFont& font = canvas.surface.font;
    const auto device = [&](int right, int bottom) {
        return QSize(canvas.Device(right + 1), canvas.Device(bottom + 1)).boundedTo(whole);
    };
    return {device(canvas.state.width, HorizontalRuler::Height(font)),
            device(left.Width(font), canvas.state.height), device(kCaptionRight, kCaptionBottom)};
}

void FillArea(const Canvas& canvas, const QSize& area) {
    FillRect(canvas.raster, 0, 0, area.width() - 1, area.height() - 1,
             canvas.Ink(ColorItem::RulerBackground));
}

/// The pixels of an area as a picture of their own: what is painted there ends at its edges.
QImage PictureOf(const Canvas& canvas, const QSize& area) {
    const QImage& image = canvas.surface.image;
    QImage part(reinterpret_cast<uchar*>(canvas.raster.pixels), area.width(), area.height(),
                image.bytesPerLine(), image.format());
    part.setDevicePixelRatio(canvas.ratio);
    return part;
}

template <class Print>
void PrintInArea(const Canvas& canvas, const QSize& area, const QFont& font, Print print) {
    QImage part = PictureOf(canvas, area);
    QPainter painter(&part);
    painter.setPen(ToQColor(canvas.settings.colors[ColorItem::RulerText]));
    painter.setFont(font);
    print(painter);
}

/// Nothing outside the areas is touched, and nothing below shows through inside them.
RulerAreas DrawRulers(const Canvas& canvas, int view) {
    static constexpr const char* captions[kViewCount] = {"TOP", "LEFT", "FRONT"};
    const ViewState& state = canvas.state;
    PaintSurface& surface = canvas.surface;
    const VerticalRuler left = LeftRuler(state, view == TopView);
    const HorizontalRuler top{Columns(state), state.originX, state.zoom};
    const RulerAreas areas = RulerAreasOf(canvas, left);
    FillArea(canvas, areas[TopArea]);
    FillArea(canvas, areas[LeftArea]);
    PrintInArea(canvas, areas[TopArea], surface.font,
                [&](QPainter& painter) { DrawLabels(painter, top, surface.labels); });
    PrintInArea(canvas, areas[LeftArea], surface.font,
                [&](QPainter& painter) { DrawLabels(painter, left, surface.labels); });
    FillArea(canvas, areas[CaptionArea]);
    PrintInArea(canvas, areas[CaptionArea], surface.captionFont, [&](QPainter& painter) {
        painter.drawText(QPointF(1, 1 + painter.fontMetrics().ascent()), captions[view]);
    });
    return areas;
}

bool Fits(const Backdrop& backdrop, const Canvas& canvas, const Scene& scene) {
    const QImage& image = canvas.surface.image;
    return backdrop.image.size() == image.size() &&
           backdrop.image.devicePixelRatio() == canvas.ratio && backdrop.state == canvas.state &&
           backdrop.brushCount == scene.brushCount();
}

void KeepBackdrop(const Editor& editor, int view, const Canvas& canvas, Backdrop& backdrop) {
    DrawBehindSelection(canvas, view, editor.scene);
    backdrop.rulers = editor.settings.showRulers ? DrawRulers(canvas, view) : RulerAreas{};
    backdrop.image = canvas.surface.image.copy();
    backdrop.state = canvas.state;
    backdrop.brushCount = editor.scene.brushCount();
    backdrop.selected = SelectedBrushes(editor.scene);
}

void CopyArea(const Canvas& canvas, const QImage& from, const QSize& area) {
    for (int y = 0; y < area.height(); ++y)
        std::memcpy(canvas.raster.Row(y), from.constScanLine(y),
                    static_cast<std::size_t>(area.width()) * sizeof(std::uint32_t));
}

/// The wedge of a level: it points at the ruler and opens to the right edge.
void DrawLevel(const Canvas& canvas, double rulerWidth, float depth, ColorItem item) {
    const double tip = DepthToScreen(canvas.state, depth);
    const double opening = canvas.state.zoom / 4.0;
    for (const double end : {tip - opening, tip + opening}) {
        if (!InReach(tip * canvas.ratio) || !InReach(end * canvas.ratio)) continue;
        DrawThickLine(canvas.raster, {canvas.Device(rulerWidth), canvas.Device(tip)},
                      {canvas.Device(canvas.state.width), canvas.Device(end)},
                      PenPixels(1, canvas.ratio), canvas.Ink(item));
    }
}

void DrawGaugeRuler(const Canvas& canvas, const VerticalRuler& ruler, int rulerWidth) {
    Fill(canvas, 0, 0, rulerWidth, canvas.state.height, ColorItem::RulerBackground);
    QPainter painter(&canvas.surface.image);
    painter.setPen(ToQColor(canvas.settings.colors[ColorItem::RulerText]));
    painter.setFont(canvas.surface.font);
    DrawLabels(painter, ruler, canvas.surface.labels);
}

}  // namespace

void PaintView(const Editor& editor, int view, PaintSurface& surface) {
    if (view < 0 || view >= kViewCount) return;
    const Canvas canvas = CanvasOf(editor, editor.views[static_cast<std::size_t>(view)], surface);
    DrawBehindSelection(canvas, view, editor.scene);
    DrawSelection(canvas, view, editor.scene, SelectedBrushes(editor.scene));
    if (editor.settings.showRulers) DrawRulers(canvas, view);
}

void PaintMoveStep(const Editor& editor, int view, PaintSurface& surface, Backdrop& backdrop) {
    if (view < 0 || view >= kViewCount) return;
    const Canvas canvas = CanvasOf(editor, editor.views[static_cast<std::size_t>(view)], surface);
    if (Fits(backdrop, canvas, editor.scene)) {
        CopyArea(canvas, backdrop.image, surface.image.size());
    } else {
        KeepBackdrop(editor, view, canvas, backdrop);
    }
    DrawSelection(canvas, view, editor.scene, backdrop.selected);
    for (const QSize& area : backdrop.rulers) CopyArea(canvas, backdrop.image, area);
}

void PaintDepthGauge(const Editor& editor, PaintSurface& surface) {
    const Canvas canvas = CanvasOf(editor, editor.gauge, surface);
    const VerticalRuler ruler = LeftRuler(editor.gauge, false);
    const bool rulers = editor.settings.showRulers;
    const int rulerWidth = rulers ? ruler.Width(surface.font) : 0;
    DrawColumns(canvas, false);
    DrawRows(canvas);
    DrawLevel(canvas, rulerWidth, editor.depthRange.HI, ColorItem::DepthGaugeHigh);
    DrawLevel(canvas, rulerWidth, editor.depthRange.LO, ColorItem::DepthGaugeLow);
    if (rulers) DrawGaugeRuler(canvas, ruler, rulerWidth);
}

void PaintReadOut(QPainter& painter, const ReadOut& readOut, Color color, const QFont& font) {
    painter.setPen(ToQColor(color));
    painter.setFont(font);
    const QFontMetrics metrics(font);
    painter.drawText(RoundToInt(readOut.x),
                     RoundToInt(readOut.y) - metrics.height() + metrics.ascent(),
                     QString::fromStdString(readOut.text));
}

void PaintRubberBand(QPainter& painter, const RubberBand& band, Color color, const QFont& font) {
    const QPoint from(RoundToInt(band.x1), RoundToInt(band.y1));
    const QPoint to(RoundToInt(band.x2), RoundToInt(band.y2));
    painter.setPen(QPen(ToQColor(color), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRect(from, QSize(to.x() - from.x(), to.y() - from.y())));
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const auto print = [&](int x, int top, const std::string& text) {
        painter.drawText(x, top + metrics.ascent(), QString::fromStdString(text));
    };
    print(from.x(), from.y() - 2 * metrics.height(), band.size);
    print(from.x(), from.y() - metrics.height(), band.start);
    print(to.x() - metrics.horizontalAdvance(QString::fromStdString(band.end)), to.y(), band.end);
}

}  // namespace korvane
