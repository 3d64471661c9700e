#include "optimizer/TargetSight.h"

#include <cmath>

namespace korvane {

bool TargetSight::LookAround(const PickBrush& brush, const OrbitTarget& orbit,
                             OptimizeWatch& watch) {
    brush_ = &brush;
    views_.clear();
    hits_.clear();
    firstHit_.assign(1, 0);
    clip_.resize(brush.points.size());
    beside_.resize(brush.points.size());
    for (std::size_t stop = 0; stop < stops_.size(); ++stop) {
        views_.push_back(camera_.ViewAt(stops_[stop], orbit));
        LookFrom(stop);
        if (!watch.GoOn(brush.triangles.size())) return false;
    }
    return true;
}

void TargetSight::LookFrom(std::size_t stop) {
    const StopView& view = views_[stop];
    for (std::size_t i = 0; i < clip_.size(); ++i) {
        clip_[i] = ToClipXYW(view, brush_->points[i]);
        beside_[i] = BesidePixel(clip_[i]);
    }
    for (std::size_t i = 0; i < brush_->triangles.size(); ++i) {
        const PickTriangle& triangle = brush_->triangles[i];
        const auto [a, b, c] = triangle.corners;
        if (beside_[a] & beside_[b] & beside_[c]) continue;
        if (!(triangle.Side(view.eye) > 0)) continue;
        const Cover cover = CoverOf(clip_[a], clip_[b], clip_[c]);
        if (cover == Cover::Nothing || (cover == Cover::All && AddWholeHit(stop, i))) continue;
        const PixelHit hit = HitInPixel(view, *brush_, triangle, {clip_[a], clip_[b], clip_[c]},
                                        beside_[a] | beside_[b] | beside_[c]);
        if (hit.depth != kMissed) hits_.push_back({i, hit.distance, hit.distance, hit.depth});
    }
    firstHit_.push_back(hits_.size());
    SortHits(stop);
}

/// How much of the pixel a triangle that is turned to the eye covers, by the sides that its edges
/// have the pixel on. Part also where it is a close thing.
TargetSight::Cover TargetSight::CoverOf(const ClipPoint& a, const ClipPoint& b,
                                        const ClipPoint& c) const {
    constexpr double kClear = 1.05;  // in reaches of the pixel from its centre
    const auto side = [](const ClipPoint& p, const ClipPoint& q) {
        const double centre = double{p.x} * q.y - double{p.y} * q.x;
        const double reach = std::fabs(double{p.y} * q.w - double{p.w} * q.y) +
                             std::fabs(double{p.w} * q.x - double{p.x} * q.w);
        if (centre > kClear * reach) return 1;
        return centre < -kClear * reach ? -1 : 0;
    };
    const int ab = side(a, b);
    const int bc = side(b, c);
    const int ca = side(c, a);
    if (ab < 0 || bc < 0 || ca < 0) return Cover::Nothing;
    return ab > 0 && bc > 0 && ca > 0 ? Cover::All : Cover::Part;
}

/// Adds a triangle that covers the whole pixel, at a distance that its plane tells. False where the
/// plane is too steep or too close to the ends of the range for that.
bool TargetSight::AddWholeHit(std::size_t stop, std::size_t triangle) {
    constexpr double kSteep = 0.05;  // of the distance, over the reach of the pixel
    constexpr double kRoom = 1.1;
    const StopView& view = views_[stop];
    const PickTriangle& hit = brush_->triangles[triangle];
    const double slope = Dot(hit.normal, ToPoint3(stops_[stop].back));
    const double unevenness = kRoom * camera_.PixelReach() / slope;
    if (!(slope > 0) || unevenness > kSteep) return false;
    const double distance = hit.Side(view.eye) / slope;
    const double nearest = distance * (1 - unevenness);
    if (nearest < kRoom * view.range.zNear || distance * kRoom > view.range.zFar) return false;
    hits_.push_back({triangle, static_cast<float>(nearest), static_cast<float>(distance), kMissed});
    return true;
}

PickDepth TargetSight::DepthOf(std::size_t stop, StopHit& hit) const {
    if (hit.depth == kMissed) {
        const PixelHit exact = HitTriangle(views_[stop], *brush_, brush_->triangles[hit.triangle]);
        hit.depth = exact.depth;
    }
    return hit.depth;
}

/// There is rarely more than one.
void TargetSight::SortHits(std::size_t stop) {
    const std::span<StopHit> hits = HitsAt(stop);
    if (hits.size() < 2) return;
    for (StopHit& hit : hits) DepthOf(stop, hit);
    for (std::size_t i = 1; i < hits.size(); ++i) {
        const StopHit hit = hits[i];
        std::size_t place = i;
        for (; place > 0 && hit.depth < hits[place - 1].depth; --place) {
            hits[place] = hits[place - 1];
        }
        hits[place] = hit;
    }
}

}  // namespace korvane
