// Grid lines and ruler labels of the 2D views.
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "views/core/mGrid.h"

namespace korvane {
namespace {

std::map<double, GridLine> LinesOf(const GridRange& range) {
    std::map<double, GridLine> lines;
    WalkGrid(range, [&](double u, GridLine line) { lines[u] = line; });
    return lines;
}

TEST(Grid, EveryHalfUnitInSightHasALine) {
    for (const int zoom : {10, 12, 34, 80, 138, 500})
        for (const int size : {1, 30, 401, 600})
            for (int pan = -260; pan <= 260; pan += 13) {
                const int origin = size / 2 + pan;
                const auto lines = LinesOf(GridRangeOf(origin, size, zoom));
                for (int halves = -200; halves <= 200; ++halves) {
                    const double u = halves * 0.5;
                    const double x = origin - zoom * u;
                    if (x < 0 || x > size - 1) continue;
                    ASSERT_TRUE(lines.count(u)) << zoom << ' ' << size << ' ' << pan << ' ' << u;
                }
                ASSERT_LE(lines.size(), 2 * (static_cast<double>(size) / zoom + 4));
            }
}

TEST(Grid, ColoursFollowTheRunningCounters) {
    const auto expect = [](const GridRange& range, const std::map<double, GridLine>& expected) {
        const auto lines = LinesOf(range);
        for (const auto& [u, line] : expected) EXPECT_EQ(lines.at(u), line) << u;
    };
    expect({-20, 20}, {{-20, GridLine::Normal},
                       {-19.5, GridLine::Minor},
                       {-10, GridLine::Major},
                       {0, GridLine::Center},
                       {0.5, GridLine::Minor},
                       {10, GridLine::Major},
                       {20, GridLine::Major}});
    // A pass from 0 looks for 10, and the centre line moves that on to 20.
    expect({0, 20}, {{0, GridLine::Center}, {10, GridLine::Normal}, {20, GridLine::Major}});
    expect({3, 20}, {{10, GridLine::Major}, {20, GridLine::Major}});
}

TEST(Grid, RulersLabelByZoom) {
    const struct {
        int atMost, atLeast;  // zoom
        std::vector<double> labelled, bare;
    } cases[] = {{500, 80, {0, 0.5, -1.5, 3}, {}},
                 {79, 40, {0, 1, -3}, {0.5, -1.5}},
                 {39, 20, {0, 2, -4}, {1, -3, 0.5}},
                 {19, 10, {0, 5, -10}, {1, 2, -4, 2.5}}};
    for (const auto& c : cases) {
        for (const int zoom : {c.atMost, c.atLeast}) {
            for (const double u : c.labelled) EXPECT_TRUE(RulerLabels(u, zoom)) << zoom << ' ' << u;
            for (const double u : c.bare) EXPECT_FALSE(RulerLabels(u, zoom)) << zoom << ' ' << u;
        }
    }
}

}  // namespace
}  // namespace korvane
