// Brushes, their nodes and the rotation marker in a 2D view, drawn into a pixel surface.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scene/Scene.h"
#include "views/core/ViewState.h"
#include "views/ui/Raster2D.h"

namespace korvane {

/// World to device pixels: the view's mapping times the device pixel ratio.
struct Projection {
    float Vec3::*horizontal = nullptr;
    float Vec3::*vertical = nullptr;
    double scaleX = 0;  ///< device pixels per world unit, negative where the axis grows up
    double scaleY = 0;
    double originX = 0;
    double originY = 0;

    double X(const Vec3& p) const { return p.*horizontal * scaleX + originX; }
    double Y(const Vec3& p) const { return p.*vertical * scaleY + originY; }
};

/// The projection of view 0..2.
Projection ProjectionOf(const ViewState& state, int view, double ratio);

/// Colours of the lines and nodes, as pixels 0xFFRRGGBB.
struct BrushColors {
    std::uint32_t lines = 0;
    std::uint32_t selectedLines = 0;
    std::uint32_t edgeNodes = 0;
    std::uint32_t selectedEdges = 0;
    std::uint32_t vertexNodes = 0;
    std::uint32_t selectedNodes = 0;
};

/// The indices of the selected brushes, in brush order.
std::vector<std::int32_t> SelectedBrushes(const Scene& scene);

/// Draws brushes; keeps its scratch between repaints.
class BrushPainter {
  public:
    /// Every unselected brush, in brush order.
    void DrawUnselected(const Raster2D& raster, const Projection& projection, double ratio,
                        const Scene& scene, const BrushColors& colors);

    /// The brushes of those indices as selected ones, each with the nodes of the edit mode on top
    /// of its lines.
    void DrawSelected(const Raster2D& raster, const Projection& projection, double ratio,
                      const Scene& scene, std::span<const std::int32_t> selected,
                      const BrushColors& colors);

  private:
    bool Project(const Brush& brush);
    void DrawEdges(const Brush& brush, std::uint32_t color);
    void DrawProjectedEdges(const Brush& brush, std::uint32_t color);
    void DrawVertexNodes(const Brush& brush, const BrushColors& colors);
    void DrawEdgeNodes(const Brush& brush, const BrushColors& colors);
    void DrawNode(const Vec3& point, std::uint32_t color);
    void Begin(const Raster2D& raster, const Projection& projection, double ratio);

    Raster2D raster_;
    Projection projection_;
    int thickness_ = 1;  ///< device pixels of a pen of width 1
    DotStamp node_;
    std::vector<Pixel> points_;  ///< the vertices of one brush
    Pixel low_;                  ///< bounds of points_
    Pixel high_;
};

/// Draws a line of a pen of width 1 and that many device pixels: side by side across the line.
void DrawThickLine(const Raster2D& raster, Pixel a, Pixel b, int thickness, std::uint32_t color);

/// Draws the rotation marker: rings of width 10, 8 and 5 around a projected world point.
void DrawMarker(const Raster2D& raster, const Projection& projection, double ratio,
                const Vec3& marker, std::uint32_t color, std::uint32_t background);

/// Device pixels of a pen of the given logical width, at least 1.
int PenPixels(int width, double ratio);

}  // namespace korvane
