// What every way of finding hidden faces has in common: the engine works out one brush, and a watch
// lets the caller look in and end the run at any time.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace korvane {

/// How far a run is.
struct OptimizeProgress {
    std::int32_t brush = 0;       ///< index of the brush being worked on
    std::int32_t brushCount = 0;  ///< brushes of the object
    double shareOfBrush = 0;      ///< of the work on that brush, 0..1
};

/// Called every few milliseconds of a run; it may take its time, as a pause does. False ends the
/// run at once.
using OptimizePoll = std::function<bool(const OptimizeProgress&)>;

/// Calls the poll when it is time, so that engines can ask after every bit of work.
class OptimizeWatch {
  public:
    explicit OptimizeWatch(OptimizePoll poll) : poll_(std::move(poll)) {}

    /// To be called after each bit of work, with about how many triangles it dealt with. False: the
    /// run has ended, and so it stays.
    bool GoOn(std::size_t triangles) {
        work_ += triangles + 1;
        return work_ < kWorkBetweenLooks ? !ended_ : Look();
    }

    /// Tells the poll at once, whatever the time.
    bool Report() {
        ended_ = ended_ || (poll_ && !poll_(progress));
        lastPoll_ = std::chrono::steady_clock::now();
        return !ended_;
    }

    OptimizeProgress progress;

  private:
    static constexpr std::size_t kWorkBetweenLooks = 5000;
    static constexpr std::chrono::milliseconds kBetweenPolls{15};

    bool Look() {
        work_ = 0;
        return std::chrono::steady_clock::now() - lastPoll_ < kBetweenPolls ? !ended_ : Report();
    }

    OptimizePoll poll_;
    std::size_t work_ = kWorkBetweenLooks;  ///< the first call looks at once
    bool ended_ = false;
    std::chrono::steady_clock::time_point lastPoll_{};
};

/// Finds out which faces of a brush are hidden. Made for one scene, which must outlive it and whose
/// geometry must not change meanwhile.
class OptimizeEngine {
  public:
    virtual ~OptimizeEngine() = default;

    /// Works out the faces of the brush at an index of the scene. `invisible` holds the face's
    /// flags as they are and receives what they become. False: the watch ended the run, and the
    /// flags are not to be used.
    virtual bool OptimizeBrush(std::int32_t brush, std::vector<bool>& invisible,
                               OptimizeWatch& watch) = 0;
};

}  // namespace korvane
