#include "views/core/mViewEdit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "views/core/ViewState.h"
#include "views/core/mBrushEdges.h"

namespace korvane {
namespace {

/// A point in the two world axes of a view.
struct FlatPoint {
    float h = 0;
    float v = 0;

    friend auto operator<=>(const FlatPoint&, const FlatPoint&) = default;
};

FlatPoint Flat(int view, const Vec3& p) {
    const ViewAxes& axes = AxesOf(view);
    return {p.*axes.horizontal, p.*axes.vertical};
}

bool IsWithin(float a, float b, float pickerSize) {
    return std::fabs(double{a} - b) <= pickerSize;
}

bool IsNear(const FlatPoint& a, const FlatPoint& b, float pickerSize) {
    return IsWithin(a.h, b.h, pickerSize) && IsWithin(a.v, b.v, pickerSize);
}

/// Points in the order of their horizontal axis, searched by the vertices near them: a click on a
/// crowded place meets thousands of edges.
class PickPoints {
  public:
    PickPoints(std::vector<FlatPoint> points, float pickerSize)
        : points_(std::move(points)), pickerSize_(pickerSize) {
        std::erase_if(points_, [](const FlatPoint& p) { return !(p == p); });  // not a number
        std::ranges::sort(points_, [](const FlatPoint& a, const FlatPoint& b) {
            return a.h != b.h ? a.h < b.h : a.v < b.v;
        });
        points_.erase(std::unique(points_.begin(), points_.end()), points_.end());
    }

    bool Meets(const FlatPoint& p) const {
        auto candidate = std::ranges::partition_point(points_, [&](const FlatPoint& q) {
            return q.h < p.h && !IsWithin(q.h, p.h, pickerSize_);
        });
        for (; candidate != points_.end() && IsWithin(candidate->h, p.h, pickerSize_);
             ++candidate) {
            if (IsWithin(candidate->v, p.v, pickerSize_)) return true;
        }
        return false;
    }

  private:
    std::vector<FlatPoint> points_;
    float pickerSize_;
};

void SetFlagsAt(Scene& scene, int view, const PickPoints& points, bool select) {
    for (Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        bool changed = false;
        for (Vertex& vertex : brush.vertices) {
            if (vertex.selected == select || !points.Meets(Flat(view, vertex.Position()))) continue;
            vertex.selected = select;
            changed = true;
        }
        if (changed) Touch(brush);
    }
}

/// The ends of the edges of selected brushes that have their midpoint near the point.
std::vector<FlatPoint> EdgeEndsAt(const Scene& scene, int view, const Vec3& point,
                                  float pickerSize) {
    const FlatPoint picked = Flat(view, point);
    std::vector<FlatPoint> ends;
    for (const Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) {
            const Vec3 from = brush.vertices[static_cast<std::size_t>(a)].Position();
            const Vec3 to = brush.vertices[static_cast<std::size_t>(b)].Position();
            if (!IsNear(Flat(view, Midpoint(from, to)), picked, pickerSize)) return;
            ends.push_back(Flat(view, from));
            ends.push_back(Flat(view, to));
        });
    }
    return ends;
}

bool HoldsInside(const Bounds& bounds, int view, const Vec3& point) {
    const FlatPoint min = Flat(view, bounds.min);
    const FlatPoint max = Flat(view, bounds.max);
    const FlatPoint p = Flat(view, point);
    return min.h < p.h && p.h < max.h && min.v < p.v && p.v < max.v;
}

template <class Moves>
MoveOrigin OriginOf(const Scene& scene, Moves moves) {
    MoveOrigin origin;
    for (std::int32_t i = 0; i < scene.brushCount(); ++i) {
        const Brush& brush = scene.brushes[static_cast<std::size_t>(i)];
        if (!brush.selected) continue;
        std::int32_t index = 0;
        for (const Vertex& vertex : brush.vertices) {
            if (moves(vertex)) origin.vertices.push_back({index, vertex.Position()});
            ++index;
        }
        origin.brushes.push_back({i, brush.revision, origin.vertices.size()});
    }
    return origin;
}

}  // namespace

void PickBrushAt(Scene& scene, int view, const Vec3& point) {
    for (Brush& brush : scene.brushes) {
        if (!HoldsInside(BrushBounds(brush), view, point)) continue;
        brush.selected = !brush.selected;
        if (!brush.selected) continue;
        ClearFaceSelection(brush);
        ClearVertexSelection(brush);
    }
}

void PickVerticesAt(Scene& scene, int view, const Vec3& point, float pickerSize, bool select) {
    SetFlagsAt(scene, view, PickPoints({Flat(view, point)}, pickerSize), select);
}

void PickEdgesAt(Scene& scene, int view, const Vec3& point, float pickerSize, bool select) {
    const PickPoints ends(EdgeEndsAt(scene, view, point, pickerSize), pickerSize);
    SetFlagsAt(scene, view, ends, select);
}

bool IsVertexNear(const Scene& scene, int view, const Vec3& point, float pickerSize) {
    const FlatPoint picked = Flat(view, point);
    const auto isNear = [&](const Vertex& vertex) {
        return IsNear(Flat(view, vertex.Position()), picked, pickerSize);
    };
    return std::ranges::any_of(scene.brushes, [&](const Brush& brush) {
        return brush.selected && std::ranges::any_of(brush.vertices, isNear);
    });
}

bool IsEdgeNear(const Scene& scene, int view, const Vec3& point, float pickerSize) {
    return !EdgeEndsAt(scene, view, point, pickerSize).empty();
}

MoveOrigin OriginOfBrushes(const Scene& scene) {
    return OriginOf(scene, [](const Vertex&) { return true; });
}

MoveOrigin OriginOfVertices(const Scene& scene) {
    return OriginOf(scene, [](const Vertex& vertex) { return bool{vertex.selected}; });
}

bool IsCurrent(const Scene& scene, const MoveOrigin& origin) {
    return std::ranges::all_of(origin.brushes, [&](const MoveOrigin::MovedBrush& moved) {
        if (moved.index >= scene.brushCount()) return false;
        const Brush& brush = scene.brushes[static_cast<std::size_t>(moved.index)];
        return brush.selected && brush.revision == moved.revision;
    });
}

void MoveFromOrigin(Scene& scene, MoveOrigin& origin, const Vec3& delta, float snapSize,
                    const TextureSpace& space) {
    std::size_t next = 0;
    for (MoveOrigin::MovedBrush& moved : origin.brushes) {
        Brush& brush = scene.brushes[static_cast<std::size_t>(moved.index)];
        for (; next < moved.end; ++next) {
            const MoveOrigin::MovedVertex& vertex = origin.vertices[next];
            brush.vertices[static_cast<std::size_t>(vertex.index)].MoveTo(
                MovedPoint(vertex.start, delta, snapSize));
        }
        UpdateBrushNormals(brush);
        UpdateTextureCoords(brush, space);
        moved.revision = brush.revision;
    }
}

Vec3 MovedPoint(const Vec3& point, const Vec3& delta, float snapSize) {
    return SnapToGrid(Difference(delta, point), snapSize);
}

void MoveSelectedBrushes(Scene& scene, const Vec3& delta, float snapSize,
                         const TextureSpace& space) {
    MoveOrigin origin = OriginOfBrushes(scene);
    MoveFromOrigin(scene, origin, delta, snapSize, space);
}

void MoveSelectedVertices(Scene& scene, const Vec3& delta, float snapSize,
                          const TextureSpace& space) {
    MoveOrigin origin = OriginOfVertices(scene);
    MoveFromOrigin(scene, origin, delta, snapSize, space);
}

}  // namespace korvane
