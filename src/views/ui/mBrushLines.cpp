#include "views/ui/mBrushLines.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "base/Rounding.h"
#include "views/core/mBrushEdges.h"

namespace korvane {
namespace {

constexpr int kNodeWidth = 5;  // logical pixels, as the next ones
constexpr int kMarkerWidths[] = {10, 8, 5};

/// A box seen along its axis: the bottom ring lies under the top one, pixel for pixel.
bool RingsCoincide(const Brush& brush, const std::vector<Pixel>& points) {
    const std::size_t n = points.size() / 2;
    return brush.shape == Box && points.size() % 2 == 0 &&
           std::equal(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(n),
                      points.begin() + static_cast<std::ptrdiff_t>(n));
}

template <class Line>
void ForEachRingEdge(std::size_t n, Line line) {
    for (std::size_t i = 0; i < n; ++i) line(i, i + 1 == n ? 0 : i + 1);
}

}  // namespace

Projection ProjectionOf(const ViewState& state, int view, double ratio) {
    const ViewAxes& axes = AxesOf(view);
    const double scale = state.zoom * ratio;
    return {axes.horizontal,   axes.vertical,         scale,
            axes.down * scale, state.originX * ratio, state.originY * ratio};
}

int PenPixels(int width, double ratio) {
    return std::max(1, RoundToInt(width * ratio));
}

std::vector<std::int32_t> SelectedBrushes(const Scene& scene) {
    std::vector<std::int32_t> indices;
    for (std::int32_t i = 0; i < scene.brushCount(); ++i)
        if (scene.brushes[static_cast<std::size_t>(i)].selected) indices.push_back(i);
    return indices;
}

void DrawThickLine(const Raster2D& raster, Pixel a, Pixel b, int thickness, std::uint32_t color) {
    const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    for (int i = 0; i < thickness; ++i) {
        const int across = i - (thickness - 1) / 2;
        const int dx = steep ? across : 0;
        const int dy = steep ? 0 : across;
        DrawLine(raster, {a.x + dx, a.y + dy}, {b.x + dx, b.y + dy}, color);
    }
}

void BrushPainter::Begin(const Raster2D& raster, const Projection& projection, double ratio) {
    raster_ = raster;
    projection_ = projection;
    thickness_ = PenPixels(1, ratio);
    const int diameter = PenPixels(kNodeWidth, ratio);
    if (node_.diameter != diameter) node_ = MakeDotStamp(diameter);
}

void BrushPainter::DrawUnselected(const Raster2D& raster, const Projection& projection,
                                  double ratio, const Scene& scene, const BrushColors& colors) {
    Begin(raster, projection, ratio);
    for (const Brush& brush : scene.brushes)
        if (!brush.selected) DrawEdges(brush, colors.lines);
}

void BrushPainter::DrawSelected(const Raster2D& raster, const Projection& projection, double ratio,
                                const Scene& scene, std::span<const std::int32_t> selected,
                                const BrushColors& colors) {
    Begin(raster, projection, ratio);
    for (const std::int32_t index : selected) {
        const Brush& brush = scene.brushes[static_cast<std::size_t>(index)];
        DrawEdges(brush, colors.selectedLines);
        if (scene.editMode == VertexMove) DrawVertexNodes(brush, colors);
        if (scene.editMode == EdgeMove) DrawEdgeNodes(brush, colors);
    }
}

/// Fills points_ and their bounds; false when a vertex is too far away to become a pixel.
bool BrushPainter::Project(const Brush& brush) {
    const Projection projection = projection_;
    points_.resize(brush.vertices.size());
    Pixel* out = points_.data();
    Pixel low{kPixelReach, kPixelReach};
    Pixel high{-kPixelReach, -kPixelReach};
    for (const Vertex& vertex : brush.vertices) {
        const Vec3 position = vertex.Position();
        const double x = projection.X(position);
        const double y = projection.Y(position);
        if (!InReach(x) || !InReach(y)) return false;
        const Pixel pixel{NearestPixel(x), NearestPixel(y)};
        *out++ = pixel;
        low = {std::min(low.x, pixel.x), std::min(low.y, pixel.y)};
        high = {std::max(high.x, pixel.x), std::max(high.y, pixel.y)};
    }
    low_ = low;
    high_ = high;
    return true;
}

void BrushPainter::DrawEdges(const Brush& brush, std::uint32_t color) {
    if (Project(brush)) {
        DrawProjectedEdges(brush, color);
        return;
    }
    ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) {
        const Vec3 from = brush.vertices[static_cast<std::size_t>(a)].Position();
        const Vec3 to = brush.vertices[static_cast<std::size_t>(b)].Position();
        DrawLine(raster_, projection_.X(from), projection_.Y(from), projection_.X(to),
                 projection_.Y(to), color);
    });
}

void BrushPainter::DrawProjectedEdges(const Brush& brush, std::uint32_t color) {
    const int margin = thickness_;
    const bool outOfSight = high_.x < -margin || low_.x >= raster_.width + margin ||
                            high_.y < -margin || low_.y >= raster_.height + margin;
    if (outOfSight) return;
    const bool inside = thickness_ == 1 && low_.x >= 0 && high_.x < raster_.width && low_.y >= 0 &&
                        high_.y < raster_.height;
    const Pixel* const points = points_.data();
    const auto draw = [&](auto line) {
        if (RingsCoincide(brush, points_)) {
            ForEachRingEdge(points_.size() / 2, line);
        } else {
            ForEachEdge(brush, line);
        }
    };
    if (inside) {
        draw([&](auto a, auto b) { DrawLineInside(raster_, points[a], points[b], color); });
    } else {
        draw([&](auto a, auto b) {
            DrawThickLine(raster_, points[a], points[b], thickness_, color);
        });
    }
}

void BrushPainter::DrawNode(const Vec3& point, std::uint32_t color) {
    const double x = projection_.X(point);
    const double y = projection_.Y(point);
    if (InReach(x) && InReach(y))
        DrawDot(raster_, {NearestPixel(x), NearestPixel(y)}, node_, color);
}

void BrushPainter::DrawVertexNodes(const Brush& brush, const BrushColors& colors) {
    for (const Vertex& vertex : brush.vertices)
        DrawNode(vertex.Position(), vertex.selected ? colors.selectedNodes : colors.vertexNodes);
}

void BrushPainter::DrawEdgeNodes(const Brush& brush, const BrushColors& colors) {
    ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) {
        const Vertex& from = brush.vertices[static_cast<std::size_t>(a)];
        const Vertex& to = brush.vertices[static_cast<std::size_t>(b)];
        DrawNode(Midpoint(from.Position(), to.Position()),
                 from.selected && to.selected ? colors.selectedEdges : colors.edgeNodes);
    });
}

void DrawMarker(const Raster2D& raster, const Projection& projection, double ratio,
                const Vec3& marker, std::uint32_t color, std::uint32_t background) {
    const double x = projection.X(marker);
    const double y = projection.Y(marker);
    if (!InReach(x) || !InReach(y)) return;
    const Pixel centre{NearestPixel(x), NearestPixel(y)};
    const std::uint32_t rings[] = {color, background, color};
    for (int i = 0; i < 3; ++i)
        DrawDot(raster, centre, MakeDotStamp(PenPixels(kMarkerWidths[i], ratio)), rings[i]);
}

}  // namespace korvane
