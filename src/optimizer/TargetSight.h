// What the camera meets of one target at every stop, while the target stands alone.
#pragma once

#include <span>
#include <vector>

#include "optimizer/OptimizeEngine.h"
#include "optimizer/mPick.h"

namespace korvane {

/// A triangle of the target that lies under the pixel at a stop.
struct StopHit {
    std::size_t triangle = 0;   ///< place in PickBrush::triangles
    float nearest = 0;          ///< what the pixel meets of it lies no nearer to the eye than this
    float distance = 0;         ///< and its nearest point no further off
    PickDepth depth = kMissed;  ///< kMissed: not asked for yet
};

/// The hits of one target at all stops. Kept from target to target for the memory of its lists.
class TargetSight {
  public:
    TargetSight(const StopCamera& camera, const std::vector<CameraStop>& stops)
        : camera_(camera), stops_(stops) {}

    /// Finds the triangles under the pixel at every stop, those of invisible faces too. The brush
    /// must live as long as its hits are asked for. False: the watch ended the run.
    bool LookAround(const PickBrush& brush, const OrbitTarget& orbit, OptimizeWatch& watch);

    std::size_t StopCount() const { return firstHit_.size() - 1; }
    const StopView& ViewAt(std::size_t stop) const { return views_[stop]; }

    /// The hits at a stop, nearest first; of equal depths the lower face comes first.
    std::span<StopHit> HitsAt(std::size_t stop) {
        return std::span(hits_).subspan(firstHit_[stop], firstHit_[stop + 1] - firstHit_[stop]);
    }

    /// The depth of one of the hits at a stop. Most are never asked for.
    PickDepth DepthOf(std::size_t stop, StopHit& hit) const;

  private:
    enum class Cover { Nothing, Part, All };

    void LookFrom(std::size_t stop);
    Cover CoverOf(const ClipPoint& a, const ClipPoint& b, const ClipPoint& c) const;
    bool AddWholeHit(std::size_t stop, std::size_t triangle);
    void SortHits(std::size_t stop);

    const StopCamera& camera_;
    const std::vector<CameraStop>& stops_;
    const PickBrush* brush_ = nullptr;
    std::vector<StopView> views_;        ///< by stop
    std::vector<std::size_t> firstHit_;  ///< by stop, and the end
    std::vector<StopHit> hits_;
    std::vector<ClipPoint> clip_;  ///< the target's points as one stop sees them, without z
    std::vector<unsigned> beside_;
};

}  // namespace korvane
