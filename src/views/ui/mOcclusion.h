// A depth picture of one frame, made on the processor from the nearest solids: tells which brushes
// are hidden behind them before anything is sent to OpenGL.
//
// Every rounding errs to one side. A solid counts only where it surely covers a pixel, and as far
// away as it may be there; a box is hidden only when every pixel it could touch is covered by
// something clearly nearer.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "views/ui/mBoundingBox.h"
#include "views/ui/mPreviewMesh.h"

namespace korvane {

/// Pixels of the view, from the bottom left; none where the width is 0.
struct PixelRect {
    int left = 0;
    int bottom = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// The depth picture. Kept from frame to frame for its memory only.
class OcclusionBuffer {
  public:
    /// Empties the picture for a view of so many pixels. `projection` gives clip coordinates of a
    /// world point, column-major. False for a view without perspective or without pixels: nothing
    /// hides anything there, and the other functions must not be called.
    bool Start(const std::array<double, 16>& projection, int width, int height);

    /// Whether nothing of a box can be seen: it is hidden, outside the view, or too small to meet
    /// the middle of a pixel.
    bool Hides(const BoundingBox& box) const;

    /// Pixels outside which nothing of a box can be seen. None when it is hidden; the whole view
    /// when nothing much is hidden, so that boxes share it.
    PixelRect Showing(const BoundingBox& box) const;

    /// Adds a closed convex solid: from now on it hides what lies behind it. The faces name the
    /// vertices.
    void Add(std::span<const PreviewFace> faces, std::span<const Vertex> vertices);

  private:
    /// A value that changes evenly over the picture, by pixel position.
    struct Slope {
        float x, y, base;
    };
    /// x and y are pixels from the bottom left, times w; z and w as OpenGL has them.
    struct ClipPoint {
        double x, y, z, w;
    };
    /// Where an outline crosses a line through the middles of pixels.
    struct Crossing {
        float left, right;
    };

    /// What a box may touch.
    struct Footprint {
        PixelRect pixels;
        float nearest;  ///< 1 / depth that hides it
    };

    std::optional<Footprint> FootprintOf(const BoundingBox& box) const;
    bool Covers(const Footprint& footprint) const;
    PixelRect Uncovered(const Footprint& footprint) const;
    ClipPoint Project(double x, double y, double z) const;
    Slope InverseDepth(const PreviewFace& face, double eyeDistance) const;
    void GatherFront(std::span<const PreviewFace> faces);
    void AddWhole(std::span<const PreviewFace> faces);
    void AddCut(const PreviewFace& face, const Slope& depth);
    void AddSides(std::span<const PreviewFace> faces);
    void BeginOutline();
    void AddEdge(const ClipPoint& from, const ClipPoint& to);
    void FillOutline(std::span<const Slope> depths);
    void FillCells(int row, int first, int last, std::span<const Slope> depths);

    int width_ = 0;  ///< pixels
    int height_ = 0;
    int cell_ = 1;     ///< pixels along a side of a cell
    int columns_ = 0;  ///< cells
    int rows_ = 0;
    std::array<std::array<double, 4>, 4> projection_{};  ///< rows, x and y in pixels
    std::array<double, 4> near_{};                       ///< above 0 before the near plane
    std::array<std::array<double, 3>, 3> inverse_{};     ///< of its rows x, y and w
    std::array<double, 3> eye_{};
    std::vector<float> cells_;  ///< 1 / depth of the nearest solid that covers the cell

    std::vector<Crossing> crossings_;  ///< two lines a row: its first and its last pixels
    int firstRow_ = 0;                 ///< rows that the outline may touch
    int lastRow_ = -1;

    // Of the solid being added.
    std::vector<ClipPoint> points_;
    std::vector<std::uint32_t> front_;  ///< faces turned to the eye
    std::vector<Slope> faceDepths_;     ///< of their planes
    std::vector<Slope> depths_;         ///< the same, each plane once
};

}  // namespace korvane
