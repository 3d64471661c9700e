#include "views/ui/mOcclusion.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace korvane {
namespace {

/// Cells to aim at: more of them cost more time than what they find hidden would.
constexpr double kMostCells = 6e4;

/// Hidden pixels that make it worth drawing a box only where it shows: more than a change of state
/// costs.
constexpr int kMuchHidden = 4000;

/// How far from its exact place OpenGL may draw an edge, in pixels, with room to spare.
constexpr float kEdgeRoom = 1.0F / 64;

/// How much nearer a solid must be to hide something, in 1 / depth: what the depth buffer tells
/// apart at any distance, with room to spare.
constexpr float kDepthRoom = 5e-5F;
constexpr float kDepthRounding = 1.00001F;

/// A box longer than that many times its distance is not looked at: its nearest corners would be
/// found by cancellation, with errors beyond the rooms above.
constexpr float kMostExtent = 200;

/// A point nearer to the near plane than this is taken to be cut off by it; clip coordinates.
constexpr float kNearRoom = 1e-4F;

/// Solids of more planes than this are taken to be flat, at their farthest.
constexpr std::size_t kMostPlanes = 8;

/// Sides shared by two faces are told by one bit a pair of vertices.
constexpr std::size_t kMostBits = 64;

double Dot(const std::array<double, 3>& a, double x, double y, double z) {
    return a[0] * x + a[1] * y + a[2] * z;
}

std::array<double, 3> Cross(const std::array<double, 4>& a, const std::array<double, 4>& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The whole number of a position, held within -1 .. limit + 1; NaN gives -1.
int CeilWithin(double position, int limit) {
    if (!(position > -1)) return -1;
    return position >= limit ? limit + 1 : int(std::ceil(position));
}
int FloorWithin(double position, int limit) {
    if (!(position >= 0)) return -1;
    return position >= limit ? limit : int(position);
}

/// Middle and half size of a box.
struct Extents {
    std::array<double, 3> middle;
    std::array<float, 3> half;
};

double AtMiddle(const std::array<double, 4>& row, const Extents& box) {
    return row[0] * box.middle[0] + row[1] * box.middle[1] + row[2] * box.middle[2] + row[3];
}

/// The least value of a row of the projection over the box.
float Least(const std::array<double, 4>& row, const Extents& box) {
    return float(AtMiddle(row, box) - std::abs(row[0]) * box.half[0] -
                 std::abs(row[1]) * box.half[1] - std::abs(row[2]) * box.half[2]);
}

/// One value for each corner of a box.
using Corners = std::array<float, 8>;

/// A row of the projection at all corners.
void SpreadCorners(const std::array<double, 4>& row, const Extents& box, Corners& out) {
    static constexpr Corners kX = {-1, 1, -1, 1, -1, 1, -1, 1};
    static constexpr Corners kY = {-1, -1, 1, 1, -1, -1, 1, 1};
    static constexpr Corners kZ = {-1, -1, -1, -1, 1, 1, 1, 1};
    const float middle = float(AtMiddle(row, box));
    const float x = float(row[0]) * box.half[0], y = float(row[1]) * box.half[1],
                z = float(row[2]) * box.half[2];
    for (int i = 0; i < 8; ++i) out[i] = middle + x * kX[i] + y * kY[i] + z * kZ[i];
}

/// Whether all cells are at least as near as needed.
bool AreNear(const float* cells, int count, float needed) {
    int far = 0;
    for (int i = 0; i < count; ++i) far |= cells[i] < needed ? 1 : 0;
    return far == 0;
}

/// Least and greatest. Folded in halves, so that it takes few steps.
std::pair<float, float> Range(const Corners& values) {
    std::array<float, 4> least, most;
    for (int i = 0; i < 4; ++i) {
        least[i] = std::min(values[i], values[i + 4]);
        most[i] = std::max(values[i], values[i + 4]);
    }
    return {std::min(std::min(least[0], least[1]), std::min(least[2], least[3])),
            std::max(std::max(most[0], most[1]), std::max(most[2], most[3]))};
}

}  // namespace

bool OcclusionBuffer::Start(const std::array<double, 16>& m, int width, int height) {
    width_ = width;
    height_ = height;
    for (int column = 0; column < 4; ++column) {
        const double w = m[column * 4 + 3];
        projection_[0][column] = (m[column * 4] + w) * width / 2;
        projection_[1][column] = (m[column * 4 + 1] + w) * height / 2;
        projection_[2][column] = m[column * 4 + 2];
        projection_[3][column] = w;
    }
    for (int i = 0; i < 4; ++i) near_[i] = projection_[2][i] + projection_[3][i];
    const auto& [x, y, z, w] = projection_;
    const std::array<std::array<double, 3>, 3> columns = {Cross(y, w), Cross(w, x), Cross(x, y)};
    const double determinant = Dot(columns[0], x[0], x[1], x[2]);
    if (width <= 0 || height <= 0 || !std::isnormal(determinant)) return false;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) inverse_[i][j] = columns[j][i] / determinant;
        eye_[i] = -Dot(inverse_[i], x[3], y[3], w[3]);
    }
    cell_ = std::max(1, int(std::lround(std::sqrt(double(width) * height / kMostCells))));
    columns_ = (width + cell_ - 1) / cell_;
    rows_ = (height + cell_ - 1) / cell_;
    cells_.assign(std::size_t(columns_) * rows_, 0);
    crossings_.resize(std::size_t(rows_) * 2);
    firstRow_ = 0;
    lastRow_ = rows_ - 1;  // what the last frame left there is still to be cleared
    return true;
}

OcclusionBuffer::ClipPoint OcclusionBuffer::Project(double x, double y, double z) const {
    const auto apply = [&](const std::array<double, 4>& r) {
        return r[0] * x + r[1] * y + r[2] * z + r[3];
    };
    return {apply(projection_[0]), apply(projection_[1]), apply(projection_[2]),
            apply(projection_[3])};
}

/// Nothing for a box that reaches the near plane, or too far for its distance: it may touch
/// everything.
std::optional<OcclusionBuffer::Footprint> OcclusionBuffer::FootprintOf(
    const BoundingBox& bounds) const {
    const auto& [min, max] = bounds;
    const Extents box{
        {(double(min.x) + max.x) / 2, (double(min.y) + max.y) / 2, (double(min.z) + max.z) / 2},
        {(max.x - min.x) / 2, (max.y - min.y) / 2, (max.z - min.z) / 2}};
    const float nearestDepth = Least(projection_[3], box);
    if (!(nearestDepth > 0) || !(Least(near_, box) > kNearRoom)) return std::nullopt;
    if (box.half[0] + box.half[1] + box.half[2] > kMostExtent * nearestDepth) return std::nullopt;
    Corners x, y, w;
    SpreadCorners(projection_[0], box, x);
    SpreadCorners(projection_[1], box, y);
    SpreadCorners(projection_[3], box, w);
    for (int i = 0; i < 8; ++i) {
        const float inverse = 1 / w[i];
        x[i] *= inverse;
        y[i] *= inverse;
    }
    const auto [left, right] = Range(x);
    const auto [bottom, top] = Range(y);
    const int firstX = std::max(CeilWithin(left - 0.5F - kEdgeRoom, width_), 0);
    const int lastX = FloorWithin(right - 0.5F + kEdgeRoom, width_ - 1);
    const int firstY = std::max(CeilWithin(bottom - 0.5F - kEdgeRoom, height_), 0);
    const int lastY = FloorWithin(top - 0.5F + kEdgeRoom, height_ - 1);
    const float nearest = 1 / nearestDepth * kDepthRounding + kDepthRoom;
    if (firstX > lastX || firstY > lastY) return Footprint{{}, nearest};
    return Footprint{{firstX, firstY, lastX - firstX + 1, lastY - firstY + 1}, nearest};
}

bool OcclusionBuffer::Hides(const BoundingBox& box) const {
    const auto footprint = FootprintOf(box);
    return footprint && (footprint->pixels.width == 0 || Covers(*footprint));
}

PixelRect OcclusionBuffer::Showing(const BoundingBox& box) const {
    const PixelRect everywhere{0, 0, width_, height_};
    const auto footprint = FootprintOf(box);
    if (!footprint) return everywhere;
    const PixelRect& all = footprint->pixels;
    if (all.width == 0) return {};
    const PixelRect open = Uncovered(*footprint);
    if (open.width == 0) return {};
    const bool muchHidden = all.width * all.height - open.width * open.height > kMuchHidden;
    return muchHidden ? open : everywhere;
}

/// Whether all cells of the footprint are surely nearer.
bool OcclusionBuffer::Covers(const Footprint& footprint) const {
    const PixelRect& pixels = footprint.pixels;
    const int first = pixels.left / cell_;
    const int last = (pixels.left + pixels.width - 1) / cell_;
    for (int row = pixels.bottom / cell_; row <= (pixels.bottom + pixels.height - 1) / cell_;
         ++row) {
        const float* cells = &cells_[std::size_t(row) * columns_];
        if (!AreNear(cells + first, last - first + 1, footprint.nearest)) return false;
    }
    return true;
}

/// Bounds of the footprint's cells that are not surely nearer.
PixelRect OcclusionBuffer::Uncovered(const Footprint& footprint) const {
    const auto& [pixels, needed] = footprint;
    const int first = pixels.left / cell_;
    const int last = (pixels.left + pixels.width - 1) / cell_;
    int left = last + 1, right = -1, bottom = -1, top = -1;
    for (int row = pixels.bottom / cell_; row <= (pixels.bottom + pixels.height - 1) / cell_;
         ++row) {
        const float* cells = &cells_[std::size_t(row) * columns_];
        if (AreNear(cells + first, last - first + 1, needed)) continue;
        int from = first;
        while (cells[from] >= needed) ++from;
        int to = last;
        while (cells[to] >= needed) --to;
        left = std::min(left, from);
        right = std::max(right, to);
        if (bottom < 0) bottom = row;
        top = row;
    }
    if (bottom < 0) return {};
    return {left * cell_, bottom * cell_, (right - left + 1) * cell_, (top - bottom + 1) * cell_};
}

void OcclusionBuffer::Add(std::span<const PreviewFace> faces, std::span<const Vertex> vertices) {
    GatherFront(faces);
    if (front_.empty()) return;
    points_.clear();
    bool whole = true;
    for (const Vertex& vertex : vertices) {
        points_.push_back(Project(vertex.x, vertex.y, vertex.z));
        whole = whole && points_.back().z + points_.back().w > kNearRoom;
    }
    if (whole) {
        AddWhole(faces);
        return;
    }
    for (std::size_t i = 0; i < front_.size(); ++i) AddCut(faces[front_[i]], faceDepths_[i]);
}

/// The faces turned to the eye. One seen on edge is left out: it covers nothing.
void OcclusionBuffer::GatherFront(std::span<const PreviewFace> faces) {
    front_.clear();
    faceDepths_.clear();
    depths_.clear();
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const PreviewFace& face = faces[i];
        const double along = Dot(eye_, face.normal.x, face.normal.y, face.normal.z);
        const double distance = along - face.distance;
        if (!(distance > 1e-6 * (1 + std::abs(along) + std::abs(face.distance)))) continue;
        const bool sameAsLast = !front_.empty() && faces[front_.back()].normal == face.normal &&
                                faces[front_.back()].distance == face.distance;
        front_.push_back(std::uint32_t(i));
        faceDepths_.push_back(sameAsLast ? faceDepths_.back() : InverseDepth(face, distance));
        if (!sameAsLast) depths_.push_back(faceDepths_.back());
    }
}

/// 1 / depth of the face's plane: even in the picture. Within a cell it is nowhere less.
OcclusionBuffer::Slope OcclusionBuffer::InverseDepth(const PreviewFace& face,
                                                     double eyeDistance) const {
    std::array<double, 3> slope{};
    for (int j = 0; j < 3; ++j) {
        slope[j] = -(inverse_[0][j] * face.normal.x + inverse_[1][j] * face.normal.y +
                     inverse_[2][j] * face.normal.z) /
                   eyeDistance;
    }
    const double reach = (cell_ - 1) / 2.0 + kEdgeRoom;
    const double least = slope[2] - (std::abs(slope[0]) + std::abs(slope[1])) * reach;
    return {float(slope[0]), float(slope[1]), float(least)};
}

/// A solid wholly before the near plane: its front faces together fill its outline, and of their
/// planes the farthest is the surface.
void OcclusionBuffer::AddWhole(std::span<const PreviewFace> faces) {
    if (depths_.size() > kMostPlanes) {
        double farthest = 0;
        for (const ClipPoint& p : points_) farthest = std::max(farthest, p.w);
        depths_ = {{0, 0, float(1 / farthest)}};
    }
    BeginOutline();
    AddSides(faces);
    FillOutline(depths_);
}

/// Adds the sides of the front faces, as far as possible without those that two of them share.
void OcclusionBuffer::AddSides(std::span<const PreviewFace> faces) {
    std::array<std::uint64_t, kMostBits> single{};
    const bool tellsShared = points_.size() <= kMostBits;
    for (const std::uint32_t face : front_) {
        for (int i = 0; i < 3; ++i) {
            const auto [a, b] = std::minmax(faces[face].points[i], faces[face].points[(i + 1) % 3]);
            if (tellsShared) {
                single[a] ^= std::uint64_t{1} << b;
            } else {
                AddEdge(points_[a], points_[b]);
            }
        }
    }
    for (std::size_t a = 0; tellsShared && a < points_.size(); ++a) {
        for (std::uint64_t left = single[a]; left != 0; left &= left - 1) {
            AddEdge(points_[a], points_[std::size_t(std::countr_zero(left))]);
        }
    }
}

/// A face of a solid that the near plane cuts: behind the plane nothing is drawn.
void OcclusionBuffer::AddCut(const PreviewFace& face, const Slope& depth) {
    std::array<ClipPoint, 4> kept;
    std::size_t count = 0;
    for (int i = 0; i < 3; ++i) {
        const ClipPoint& a = points_[face.points[i]];
        const ClipPoint& b = points_[face.points[(i + 1) % 3]];
        const double before = a.z + a.w - kNearRoom, after = b.z + b.w - kNearRoom;
        if (before > 0) kept[count++] = a;
        if ((before > 0) == (after > 0)) continue;
        const double t = before / (before - after);
        kept[count++] = {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t,
                         a.w + (b.w - a.w) * t};
    }
    BeginOutline();
    for (std::size_t i = 0; i < count; ++i) AddEdge(kept[i], kept[(i + 1) % count]);
    FillOutline({&depth, 1});
}

void OcclusionBuffer::BeginOutline() {
    constexpr float kFar = std::numeric_limits<float>::infinity();
    for (int row = firstRow_; row <= lastRow_; ++row) {
        crossings_[row * 2] = crossings_[row * 2 + 1] = {kFar, -kFar};
    }
    firstRow_ = rows_;
    lastRow_ = -1;
}

/// Widens the outline by an edge, whose ends may lie far outside the picture.
void OcclusionBuffer::AddEdge(const ClipPoint& from, const ClipPoint& to) {
    double x = from.x / from.w, y = from.y / from.w;
    double endX = to.x / to.w, endY = to.y / to.w;
    if (y > endY) std::swap(x, endX), std::swap(y, endY);
    const double slope = (endX - x) / (endY - y);
    if (!std::isfinite(slope)) return;  // along the lines: its ends belong to other edges as well
    const double inset = 0.5 - kEdgeRoom;
    const std::array<double, 2> lines = {inset, cell_ - inset};
    for (int line = 0; line < 2; ++line) {
        const int first = std::max(CeilWithin((y - lines[line]) / cell_, rows_), 0);
        const int last = FloorWithin((endY - lines[line]) / cell_, rows_ - 1);
        if (first > last) continue;
        for (int row = first; row <= last; ++row) {
            const auto at = float(x + (double(row) * cell_ + lines[line] - y) * slope);
            Crossing& crossing = crossings_[row * 2 + line];
            crossing.left = std::min(crossing.left, at);
            crossing.right = std::max(crossing.right, at);
        }
        firstRow_ = std::min(firstRow_, first);
        lastRow_ = std::max(lastRow_, last);
    }
}

/// Fills the cells whose pixels all lie inside the outline.
void OcclusionBuffer::FillOutline(std::span<const Slope> depths) {
    const float cell = float(cell_);
    const float reach = (cell - 1) / 2 + kEdgeRoom;
    for (int row = firstRow_; row <= lastRow_; ++row) {
        const Crossing& a = crossings_[row * 2];
        const Crossing& b = crossings_[row * 2 + 1];
        const float left = std::max(a.left, b.left) + reach;
        const float right = std::min(a.right, b.right) - reach;
        if (!(left <= right)) continue;
        const int first = std::max(CeilWithin(left / cell - 0.5F, columns_), 0);
        const int last = FloorWithin(right / cell - 0.5F, columns_ - 1);
        if (first <= last) FillCells(row, first, last, depths);
    }
}

void OcclusionBuffer::FillCells(int row, int first, int last, std::span<const Slope> depths) {
    const float cell = float(cell_);
    const float x = (float(first) + 0.5F) * cell;
    const float y = (float(row) + 0.5F) * cell;
    std::array<float, kMostPlanes> base, step;
    for (std::size_t i = 0; i < depths.size(); ++i) {
        base[i] = depths[i].base + depths[i].x * x + depths[i].y * y;
        step[i] = depths[i].x * cell;
    }
    float* cells = &cells_[std::size_t(row) * columns_ + first];
    const int count = last - first + 1;
    const auto at = [&](std::size_t plane, int i) { return base[plane] + step[plane] * float(i); };
    const auto fill = [&](auto value) {
        for (int i = 0; i < count; ++i) cells[i] = std::max(cells[i], value(i));
    };
    // Nearly all that is drawn are faces by themselves and boxes, which show three sides at most.
    if (depths.size() == 1) {
        fill([&](int i) { return at(0, i); });
    } else if (depths.size() == 2) {
        fill([&](int i) { return std::min(at(0, i), at(1, i)); });
    } else if (depths.size() == 3) {
        fill([&](int i) { return std::min(std::min(at(0, i), at(1, i)), at(2, i)); });
    } else {
        fill([&](int i) {
            float least = at(0, i);
            for (std::size_t plane = 1; plane < depths.size(); ++plane) {
                least = std::min(least, at(plane, i));
            }
            return least;
        });
    }
}

}  // namespace korvane
