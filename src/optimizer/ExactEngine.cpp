#include "optimizer/ExactEngine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <optional>
#include <tuple>

#include "optimizer/BrushTree.h"
#include "optimizer/mSolid.h"

namespace korvane {
namespace {

/// A flat convex polygon.
using Piece = std::vector<Point3>;

/// Faces whose normals agree by more than this look the same way (the cosine of about 25 degrees).
constexpr double kSameWay = 0.9;

/// What is left of a face: pieces that no solid tried so far covers.
struct OpenPiece {
    Piece corners;
    std::size_t next = 0;  ///< the first solid that it has not been tried on
};

/// Where the corners of a piece lie, seen from a plane. Within kTouching they lie on it.
struct Sides {
    bool before = false;
    bool behind = false;
};

int SideOf(const SolidPlane& plane, const Point3& p) {
    const double side = plane.Side(p);
    if (side > kTouching) return 1;
    return side < -kTouching ? -1 : 0;
}

Sides SidesOf(const SolidPlane& plane, const Piece& piece) {
    Sides sides;
    for (const Point3& p : piece) {
        const int side = SideOf(plane, p);
        sides.before |= side > 0;
        sides.behind |= side < 0;
    }
    return sides;
}

/// Cuts a piece that lies on both sides of a plane.
void Split(const SolidPlane& plane, const Piece& piece, Piece& before, Piece& behind) {
    before.clear();
    behind.clear();
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const Point3& p = piece[i];
        const Point3& q = piece[(i + 1) % piece.size()];
        const int sideP = SideOf(plane, p);
        if (sideP >= 0) before.push_back(p);
        if (sideP <= 0) behind.push_back(p);
        if (sideP * SideOf(plane, q) >= 0) continue;
        const double t = plane.Side(p) / (plane.Side(p) - plane.Side(q));
        const Point3 crossing = Along(p, Along(q, p, -1), t);
        before.push_back(crossing);
        behind.push_back(crossing);
    }
}

/// Whether no point of the piece can lie in the solid, or only its level faces do.
bool IsBeside(const ConvexSolid& solid, const Piece& piece, const Point3& normal) {
    return std::any_of(solid.planes.begin(), solid.planes.end(), [&](const SolidPlane& plane) {
        const Sides sides = SidesOf(plane, piece);
        if (sides.behind) return false;
        return sides.before || Dot(plane.normal, normal) > kSameWay;
    });
}

/// Takes from the piece what the solid covers and adds the rest to `rest`. False: it covers
/// nothing, and nothing was added.
bool Subtract(const ConvexSolid& solid, const Point3& normal, Piece piece,
              std::vector<Piece>& rest) {
    if (IsBeside(solid, piece, normal)) return false;
    const std::size_t restBefore = rest.size();
    Piece before, behind;
    for (const SolidPlane& plane : solid.planes) {
        const Sides sides = SidesOf(plane, piece);
        if (!sides.before) continue;
        if (!sides.behind) {  // what is left touches the solid in a line at most
            rest.resize(restBefore);
            return false;
        }
        Split(plane, piece, before, behind);
        rest.push_back(before);
        piece.swap(behind);
    }
    return true;
}

Bounds BoundsAround(const Piece& piece) {
    const auto lower = [](double x) { return static_cast<float>(x - 2 * kTouching); };
    const auto upper = [](double x) { return static_cast<float>(x + 2 * kTouching); };
    constexpr float kFar = std::numeric_limits<float>::max();
    Bounds b{{kFar, kFar, kFar}, {-kFar, -kFar, -kFar}};
    for (const Point3& p : piece) {
        b.min = {std::min(b.min.x, lower(p.x)), std::min(b.min.y, lower(p.y)),
                 std::min(b.min.z, lower(p.z))};
        b.max = {std::max(b.max.x, upper(p.x)), std::max(b.max.y, upper(p.y)),
                 std::max(b.max.z, upper(p.z))};
    }
    return b;
}

bool Meet(const Bounds& a, const Bounds& b) {
    return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y &&
           a.min.z <= b.max.z && b.min.z <= a.max.z;
}

class ExactEngine final : public OptimizeEngine {
  public:
    explicit ExactEngine(const Scene& scene)
        : scene_(scene), bounds_(BoundsOf(scene)), tree_(bounds_), solids_(scene.brushes.size()) {
        RankByPlace();
    }

    bool OptimizeBrush(std::int32_t brush, std::vector<bool>& invisible,
                       OptimizeWatch& watch) override {
        const Brush& target = scene_.brushes[static_cast<std::size_t>(brush)];
        struct Cover {
            bool any = false;
            bool whole = true;
        };
        std::map<std::int32_t, Cover> polygons;
        for (const BrushFace& face : target.faces) {
            Cover& polygon = polygons[face.polygonId];
            const std::optional<Piece> corners = CornersOf(target, face);
            if (!corners || !polygon.whole) continue;
            polygon.any = true;
            polygon.whole = IsCovered(brush, *corners, watch);
            if (!watch.GoOn(0)) return false;
        }
        for (std::size_t i = 0; i < invisible.size(); ++i) {
            const Cover& polygon = polygons[target.faces[i].polygonId];
            invisible[i] = polygon.any && polygon.whole;
        }
        return true;
    }

  private:
    static constexpr std::size_t kWorkOfSolid = 20;  ///< of a face, in triangles of the watch

    /// The order in which solids are tried: by where they lie, so that it does not hang on the
    /// order of brushes.
    void RankByPlace() {
        std::vector<std::size_t> order(bounds_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        const auto place = [](const Vertex& v) { return std::tuple(v.x, v.y, v.z); };
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return std::ranges::lexicographical_compare(
                scene_.brushes[a].vertices, scene_.brushes[b].vertices, {}, place, place);
        });
        rank_.resize(order.size());
        for (std::size_t i = 0; i < order.size(); ++i) rank_[order[i]] = i;
    }

    /// A triangle with an area.
    static std::optional<Piece> CornersOf(const Brush& brush, const BrushFace& face) {
        Piece corners;
        const auto count = static_cast<std::int32_t>(brush.vertices.size());
        for (const std::int32_t v : {face.a, face.b, face.c}) {
            if (v < 0 || v >= count) return std::nullopt;
            corners.push_back(ToPoint3(brush.vertices[static_cast<std::size_t>(v)].Position()));
        }
        const Point3 normal = NormalOf(corners);
        if (!(Dot(normal, normal) > 0)) return std::nullopt;
        return corners;
    }

    static Point3 NormalOf(const Piece& triangle) {
        const Point3 normal =
            Cross(Along(triangle[1], triangle[0], -1), Along(triangle[2], triangle[0], -1));
        const double length = std::sqrt(Dot(normal, normal));
        return length > 0 ? Along({}, normal, 1 / length) : Point3{};
    }

    /// Nothing once the run has ended.
    const ConvexSolid& SolidOf(std::int32_t brush, OptimizeWatch& watch) {
        static const ConvexSolid kNothing;
        auto& solid = solids_[static_cast<std::size_t>(brush)];
        if (solid) return *solid;
        const Brush& source = scene_.brushes[static_cast<std::size_t>(brush)];
        if (!watch.GoOn(kWorkOfSolid * source.faces.size())) return kNothing;
        solid = FindSolid(source, std::numeric_limits<std::size_t>::max());
        return *solid;
    }

    /// The brushes that may cover part of a piece.
    void FindCandidates(std::int32_t target, const Piece& piece, OptimizeWatch& watch) {
        candidates_.clear();
        tree_.FindInBox(BoundsAround(piece), candidates_);
        std::erase_if(candidates_, [&](std::int32_t brush) {
            return brush == target || SolidOf(brush, watch).planes.empty();
        });
        std::sort(candidates_.begin(), candidates_.end(), [this](std::int32_t a, std::int32_t b) {
            return rank_[static_cast<std::size_t>(a)] < rank_[static_cast<std::size_t>(b)];
        });
    }

    /// Whether solids cover all of a triangle. The rest of one solid is tried on the next before
    /// anything else, so that an open piece is found soon.
    bool IsCovered(std::int32_t target, const Piece& triangle, OptimizeWatch& watch) {
        FindCandidates(target, triangle, watch);
        const Point3 normal = NormalOf(triangle);
        open_.assign(1, {triangle, 0});
        while (!open_.empty()) {
            const OpenPiece piece = std::move(open_.back());
            open_.pop_back();
            if (!CoverPart(piece, normal, watch)) return false;
        }
        return true;
    }

    /// Finds the next solid that covers part of the piece and opens the rest. False: there is none.
    bool CoverPart(const OpenPiece& piece, const Point3& normal, OptimizeWatch& watch) {
        const Bounds bounds = BoundsAround(piece.corners);
        for (std::size_t i = piece.next; i < candidates_.size(); ++i) {
            const auto brush = static_cast<std::size_t>(candidates_[i]);
            if (!watch.GoOn(1)) return false;
            if (!Meet(bounds, bounds_[brush])) continue;
            rest_.clear();
            if (!Subtract(*solids_[brush], normal, piece.corners, rest_)) continue;
            for (Piece& left : rest_) open_.push_back({std::move(left), i + 1});
            return true;
        }
        return false;
    }

    const Scene& scene_;
    std::vector<Bounds> bounds_;
    BrushTree tree_;
    std::vector<std::size_t> rank_;                   ///< by brush
    std::vector<std::optional<ConvexSolid>> solids_;  ///< by brush, once it was asked for
    std::vector<std::int32_t> candidates_;            ///< of the triangle being worked on
    std::vector<OpenPiece> open_;
    std::vector<Piece> rest_;
};

}  // namespace

std::unique_ptr<OptimizeEngine> MakeExactEngine(const Scene& scene) {
    return std::make_unique<ExactEngine>(scene);
}

}  // namespace korvane
