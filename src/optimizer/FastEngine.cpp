#include "optimizer/FastEngine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "optimizer/BrushTree.h"
#include "optimizer/TargetSight.h"

namespace korvane {
namespace {

constexpr std::int32_t kNone = -1;
constexpr std::int32_t kUnknown = -2;
constexpr std::int32_t kNever = std::numeric_limits<std::int32_t>::max();

/// A point meets the pixel at a depth only if it is no further than this times the distance of the
/// depth: what the steps of a depth amount to far off, many times over.
constexpr double kDepthRoom = 1.001;
/// What single precision does to a line of sight, in parts of the coordinates, many times over.
constexpr double kSightRoom = 1e-5;

/// Everything about the scene that the passes over its brushes share.
struct SampledScene {
    StopCamera camera;
    std::vector<CameraStop> stops;
    std::vector<PickBrush> brushes;
    std::vector<OrbitTarget> orbits;
    BrushTree tree;
};

enum class Sight { Free, Blocked, Unsure };

/// A step through n places that comes by each once and spreads from the start.
std::size_t SpreadStep(std::size_t n) {
    auto step = static_cast<std::size_t>(0.618 * static_cast<double>(n)) | 1U;
    while (std::gcd(step, n) != 1) ++step;
    return step;
}

double LargestCoordinate(const Vec3& p) {
    return std::max({std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)});
}

/// A line of sight from an eye to something at a distance.
struct SightLine {
    Point3 eye;
    Point3 back;          ///< from the other end to the eye, of unit length
    double zNear = 0;     ///< nothing nearer is seen
    double nearest = 0;   ///< the other end lies no nearer than this
    double distance = 0;  ///< and no further than this
    double reach = 0;     ///< of the pixel from the line, rounding included
    double room = 0;      ///< for rounding
};

/// The part of a line that lies within a solid, as distances from the eye.
struct Passage {
    double from = -1e30;
    double to = 1e30;

    /// Cuts off what lies before a plane that the line crosses at a distance, in or out.
    void Cut(bool inwards, double crossing) {
        if (inwards) from = std::max(from, crossing);
        if (!inwards) to = std::min(to, crossing);
    }
    bool IsEmpty() const { return !(from < to); }
};

/// Whether a solid stands in a line of sight, where that is clear without looking at the pixel: by
/// the passage through the solid grown by all that the pixel could meet of it, and through the
/// solid shrunk by what rounding could take from it.
Sight LookThrough(const ConvexSolid& solid, const SightLine& line) {
    constexpr double kParallel = 1e-9;
    const double grow = line.reach + solid.excess;
    const double shrink = line.room + solid.excess;
    Passage grown, shrunk;
    for (const SolidPlane& plane : solid.planes) {
        const double slope = Dot(plane.normal, line.back);
        const double before = plane.Side(line.eye);
        if (std::fabs(slope) < kParallel) {
            if (before > grow) return Sight::Free;
            if (before > -shrink) shrunk.to = shrunk.from;
            continue;
        }
        const double inverse = 1 / slope;
        grown.Cut(slope > 0, (before - grow) * inverse);
        shrunk.Cut(slope > 0, (before + shrink) * inverse);
    }
    if (grown.IsEmpty() || grown.to < 0 || grown.from > line.distance * kDepthRoom + line.room) {
        return Sight::Free;
    }
    const bool clear = grown.from > 2 * line.zNear && !shrunk.IsEmpty() &&
                       shrunk.from * kDepthRoom + line.room < line.nearest;
    return clear ? Sight::Blocked : Sight::Unsure;
}

/// The work on one target. Kept from target to target for the memory of its lists.
class TargetPass {
  public:
    explicit TargetPass(const SampledScene& scene)
        : scene_(scene), sight_(scene.camera, scene.stops) {}

    bool Run(std::int32_t target, std::vector<bool>& invisible, OptimizeWatch& watch) {
        if (scene_.brushes.size() < 2) return true;
        Start(target, invisible, watch);
        if (!sight_.LookAround(*brush_, *orbit_, watch)) return false;
        FindWinners();
        // Until two pairs are through, faces may turn visible and polygons may turn hidden that no
        // brush covers.
        std::int32_t last = kNone;
        for (int pair = 0; pair < 2 && ongoing_; ++pair) {
            last = NextOther(last);
            if (last < Count()) ApplyPair(last);
        }
        HideCovered(last);
        return ongoing_;
    }

  private:
    std::int32_t Count() const { return static_cast<std::int32_t>(scene_.brushes.size()); }
    const PickBrush& BrushAt(std::int32_t i) const {
        return scene_.brushes[static_cast<std::size_t>(i)];
    }
    std::int32_t NextOther(std::int32_t i) const { return i + 1 == target_ ? i + 2 : i + 1; }

    void Start(std::int32_t target, std::vector<bool>& invisible, OptimizeWatch& watch);
    void FindWinners();
    StopHit* WinnerAt(std::size_t stop);
    std::size_t FaceOf(const StopHit& hit) const {
        return static_cast<std::size_t>(brush_->triangles[hit.triangle].face);
    }
    void ApplyPair(std::int32_t other);
    void HideCovered(std::int32_t last);
    void HideAllOf(std::int32_t hider);
    std::int32_t FirstHider(std::size_t polygon, std::int32_t after);
    bool IsSeenBeside(std::size_t polygon, std::int32_t other);
    Sight LookPast(std::size_t stop, const PickBrush& other);
    Sight LookFromOutside(std::size_t stop, const PickBrush& other) const;
    bool NeedsEveryPick(std::int32_t other);
    const std::vector<bool>& PickAll(std::int32_t other);
    double SightRoom(const StopView& view) const;

    const SampledScene& scene_;
    const PickBrush* brush_ = nullptr;
    const OrbitTarget* orbit_ = nullptr;
    std::int32_t target_ = 0;
    std::vector<bool>* invisible_ = nullptr;
    OptimizeWatch* watch_ = nullptr;
    bool ongoing_ = true;

    TargetSight sight_;
    std::vector<StopHit*> winners_;  ///< by stop; null where nothing visible is met

    std::vector<std::size_t> firstStop_;  ///< by polygon: where its stretch of stopList_ begins
    std::vector<std::size_t> lastStop_;   ///< and ends; it is empty for a hidden one
    std::vector<std::size_t> stopList_;   ///< stops at which the polygon is nearest
    std::vector<std::int32_t> hiders_;    ///< by polygon: the next brush that hides it
    std::vector<std::int32_t> candidates_;

    std::int32_t askedMoved_ = kNone;  ///< the other brush that answerMoved_ is about
    bool answerMoved_ = false;
    std::int32_t pickedBeside_ = kNone;  ///< the other brush that picked_ is about
    std::vector<bool> picked_;
};

void TargetPass::Start(std::int32_t target, std::vector<bool>& invisible, OptimizeWatch& watch) {
    target_ = target;
    brush_ = &BrushAt(target);
    orbit_ = &scene_.orbits[static_cast<std::size_t>(target)];
    invisible_ = &invisible;
    watch_ = &watch;
    ongoing_ = true;
    askedMoved_ = pickedBeside_ = kNone;
}

StopHit* TargetPass::WinnerAt(std::size_t stop) {
    for (StopHit& hit : sight_.HitsAt(stop)) {
        if (!(*invisible_)[FaceOf(hit)]) return &hit;
    }
    return nullptr;
}

/// Which polygon is nearest at each stop while the target stands alone, and where each is.
void TargetPass::FindWinners() {
    winners_.resize(sight_.StopCount());
    firstStop_.assign(brush_->polygonCount + 1, 0);
    const auto polygonAt = [this](std::size_t stop) {
        return brush_->polygonOf[FaceOf(*winners_[stop])];
    };
    for (std::size_t stop = 0; stop < winners_.size(); ++stop) {
        winners_[stop] = WinnerAt(stop);
        if (winners_[stop]) ++firstStop_[polygonAt(stop) + 1];
    }
    std::partial_sum(firstStop_.begin(), firstStop_.end(), firstStop_.begin());
    stopList_.resize(firstStop_.back());
    lastStop_.assign(firstStop_.begin(), firstStop_.end() - 1);
    for (std::size_t stop = 0; stop < winners_.size(); ++stop) {
        if (winners_[stop]) stopList_[lastStop_[polygonAt(stop)]++] = stop;
    }
    pickedBeside_ = kNone;
}

/// One pair as it is defined: every polygon that is nearest at some stop is visible, all others
/// become invisible.
void TargetPass::ApplyPair(std::int32_t other) {
    std::vector<bool> seen(brush_->polygonCount);
    for (std::size_t face = 0; face < brush_->polygonOf.size() && ongoing_; ++face) {
        const std::size_t polygon = brush_->polygonOf[face];
        if (!(*invisible_)[face] && !seen[polygon]) seen[polygon] = IsSeenBeside(polygon, other);
    }
    bool changed = false;
    for (std::size_t face = 0; face < brush_->polygonOf.size(); ++face) {
        const bool hidden = !seen[brush_->polygonOf[face]];
        changed |= (*invisible_)[face] != hidden;
        (*invisible_)[face] = hidden;
    }
    if (changed) FindWinners();
}

/// The pairs after the first two, which can only hide. Brushes that hide nothing leave no trace, so
/// it is enough to find, again and again, the next one that does.
void TargetPass::HideCovered(std::int32_t last) {
    hiders_.assign(brush_->polygonCount, kUnknown);
    while (ongoing_) {
        std::int32_t next = kNever;
        for (std::size_t p = 0; p < brush_->polygonCount; ++p) {
            if (firstStop_[p] == lastStop_[p]) continue;  // hidden already
            if (hiders_[p] == kUnknown) hiders_[p] = FirstHider(p, last);
            next = std::min(next, hiders_[p]);
        }
        if (next == kNever || !ongoing_) return;
        HideAllOf(next);
        last = next;
    }
}

/// Hides the polygons that a brush hides, and finds out what appears behind them.
void TargetPass::HideAllOf(std::int32_t hider) {
    for (std::size_t face = 0; face < brush_->polygonOf.size(); ++face) {
        if (hiders_[brush_->polygonOf[face]] == hider) (*invisible_)[face] = true;
    }
    bool uncovers = false;
    for (std::size_t p = 0; p < brush_->polygonCount; ++p) {
        if (hiders_[p] != hider) continue;
        for (std::size_t i = firstStop_[p]; i < lastStop_[p]; ++i) {
            uncovers = uncovers || WinnerAt(stopList_[i]) != nullptr;
        }
        lastStop_[p] = firstStop_[p];
    }
    pickedBeside_ = kNone;
    if (!uncovers) return;
    const std::vector<std::size_t> first = firstStop_;
    const std::vector<std::size_t> last = lastStop_;
    FindWinners();
    // With more stops than before a polygon may survive what would have hidden it.
    for (std::size_t p = 0; p < brush_->polygonCount; ++p) {
        if (lastStop_[p] - firstStop_[p] != last[p] - first[p]) hiders_[p] = kUnknown;
    }
}

double TargetPass::SightRoom(const StopView& view) const {
    return kSightRoom * (LargestCoordinate(view.eye) + orbit_->distance);
}

/// The first brush after an index that hides the polygon.
std::int32_t TargetPass::FirstHider(std::size_t polygon, std::int32_t after) {
    const std::size_t stop = stopList_[firstStop_[polygon]];
    const StopView& view = sight_.ViewAt(stop);
    const Vec3& back = scene_.stops[stop].back;
    const double distance = winners_[stop]->distance;
    const double room = SightRoom(view);
    candidates_.clear();
    scene_.tree.FindAlong({{view.eye.x, view.eye.y, view.eye.z},
                           {-back.x, -back.y, -back.z},
                           distance * kDepthRoom,
                           distance * scene_.camera.PixelReach() + room},
                          candidates_);
    std::sort(candidates_.begin(), candidates_.end());
    for (const std::int32_t other : candidates_) {
        if (other > after && other != target_ && !IsSeenBeside(polygon, other)) return other;
    }
    return kNever;
}

/// Whether the polygon is nearest at some stop with the other brush standing by.
bool TargetPass::IsSeenBeside(std::size_t polygon, std::int32_t other) {
    const PickBrush& standing = BrushAt(other);
    const std::size_t first = firstStop_[polygon];
    const std::size_t count = lastStop_[polygon] - first;
    const std::size_t step = SpreadStep(count);
    // The first stop comes last: most candidates were found by standing in its way.
    for (std::size_t i = 0, place = step; i < count; ++i, place += step) {
        ongoing_ = watch_->GoOn(standing.triangles.size());
        if (!ongoing_) return true;
        const Sight sight = LookPast(stopList_[first + place % count], standing);
        if (sight == Sight::Free) return true;
        if (sight == Sight::Unsure) return PickAll(other)[polygon];
    }
    return NeedsEveryPick(other) && PickAll(other)[polygon];
}

/// Whether the other brush stands before what is nearest at the stop.
Sight TargetPass::LookPast(std::size_t stop, const PickBrush& other) {
    const StopView& view = sight_.ViewAt(stop);
    StopHit& hit = *winners_[stop];
    const Point3 back = ToPoint3(scene_.stops[stop].back);
    const Point3 away = Along(ToPoint3(view.eye), other.centre, -1);
    const double along = Dot(back, away);
    const double apart = Dot(away, away) - along * along;
    const double room = SightRoom(view);
    const double reach = hit.distance * scene_.camera.PixelReach() + room;
    const double within = other.radius + reach;
    if (apart > within * within || along < -within) return Sight::Free;
    if (along - other.radius > hit.distance * kDepthRoom + room) return Sight::Free;
    if (IsInside(other, view.eye)) return LookFromOutside(stop, other);
    if (!other.solid.planes.empty()) {
        const Sight sight = LookThrough(other.solid, {ToPoint3(view.eye), back, view.range.zNear,
                                                      hit.nearest, hit.distance, reach, room});
        if (sight != Sight::Unsure) return sight;
    }
    const PickDepth depth = sight_.DepthOf(stop, hit);
    for (const PickTriangle& triangle : other.triangles) {
        if (HitTriangle(view, other, triangle).depth < depth) return Sight::Blocked;
    }
    return Sight::Free;
}

/// The same where the camera has to leave the other brush first. What is nearest of the target may
/// be another face from there, so only a clear answer counts.
Sight TargetPass::LookFromOutside(std::size_t stop, const PickBrush& other) const {
    const StopView view = ViewBeside(scene_.camera, scene_.stops[stop], *orbit_, other);
    if (view.eye == sight_.ViewAt(stop).eye)
        return Sight::Free;  // no way out: nothing of it is turned here
    const double safe = (Distance(view.eye, orbit_->centre) - orbit_->radius) / 2;
    for (const PickTriangle& triangle : other.triangles) {
        const PixelHit hit = HitTriangle(view, other, triangle);
        if (hit.depth != kMissed && hit.distance < safe) return Sight::Blocked;
    }
    return Sight::Unsure;
}

/// Whether the camera has to leave the other brush at some stop and may see the target from there.
bool TargetPass::NeedsEveryPick(std::int32_t other) {
    if (askedMoved_ == other) return answerMoved_;
    askedMoved_ = other;
    const PickBrush& standing = BrushAt(other);
    const Point3 away = Along(ToPoint3(orbit_->centre), standing.centre, -1);
    const double reach = standing.radius + std::sqrt(Dot(away, away));
    answerMoved_ = false;
    if (reach < 0.99 * orbit_->distance) return false;  // no stop lies as near as the other brush
    for (std::size_t stop = 0; stop < sight_.StopCount() && !answerMoved_; ++stop) {
        answerMoved_ = IsInside(standing, sight_.ViewAt(stop).eye) &&
                       LookFromOutside(stop, standing) == Sight::Unsure;
    }
    return answerMoved_;
}

/// The pair picked stop by stop: which polygons are seen.
const std::vector<bool>& TargetPass::PickAll(std::int32_t other) {
    if (pickedBeside_ == other) return picked_;
    pickedBeside_ = other;
    const PickBrush& standing = BrushAt(other);
    picked_.assign(brush_->polygonCount, false);
    for (const CameraStop& stop : scene_.stops) {
        const StopView view = ViewBeside(scene_.camera, stop, *orbit_, standing);
        const std::int32_t face = PickAtStop(view, *brush_, *invisible_, standing);
        if (face >= 0) picked_[brush_->polygonOf[static_cast<std::size_t>(face)]] = true;
        ongoing_ = watch_->GoOn(brush_->triangles.size() + standing.triangles.size());
        if (!ongoing_) break;
    }
    return picked_;
}

class FastEngine final : public OptimizeEngine {
  public:
    FastEngine(const Scene& scene, const OptimizeOptions& options)
        : source_(scene),
          scene_{StopCamera(options), CameraStops(options), {}, {}, BrushTree(BoundsOf(scene))},
          pass_(scene_) {
        for (const Brush& brush : scene.brushes) scene_.orbits.push_back(OrbitOf(brush));
    }

    bool OptimizeBrush(std::int32_t brush, std::vector<bool>& invisible,
                       OptimizeWatch& watch) override {
        return MakePickBrushes(source_, scene_.brushes, watch) &&
               pass_.Run(brush, invisible, watch);
    }

  private:
    const Scene& source_;
    SampledScene scene_;
    TargetPass pass_;
};

}  // namespace

std::unique_ptr<OptimizeEngine> MakeFastEngine(const Scene& scene, const OptimizeOptions& options) {
    return std::make_unique<FastEngine>(scene, options);
}

}  // namespace korvane
