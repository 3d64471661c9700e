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

TEST(Grid, RangeFollowsTheFormulaWhereThatCovers) {
    // origin, size, zoom: a = Round((origin - half) / zoom), b = Round(half / zoom + a) and
    // c = Int(b - size / zoom) by hand.
    const GridRange centred = GridRangeOf(240, 480, 80);
    EXPECT_EQ(centred.last, 3);
    EXPECT_EQ(centred.first, -3);
    const GridRange panned = GridRangeOf(240 - 160, 480, 80);
    EXPECT_EQ(panned.last, 1);
    EXPECT_EQ(panned.first, -5);
    const GridRange wide = GridRangeOf(100, 200, 10);
    EXPECT_EQ(wide.last, 10);
    EXPECT_EQ(wide.first, -10);
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
    const auto lines = LinesOf({-20, 20});
    const std::map<double, GridLine> expected = {
        {-20, GridLine::Normal}, {-19.5, GridLine::Minor}, {-19, GridLine::Normal},
        {-10, GridLine::Major},  {-0.5, GridLine::Minor},  {0, GridLine::Center},
        {0.5, GridLine::Minor},  {10, GridLine::Major},    {20, GridLine::Major},
    };
    for (const auto& [u, line] : expected) EXPECT_EQ(lines.at(u), line) << u;
}

TEST(Grid, AMajorValueMissedByTheCountersIsNormal) {
    // A pass from 0 looks for 10, and the centre line moves that on to 20.
    const auto lines = LinesOf({0, 20});
    EXPECT_EQ(lines.at(0), GridLine::Center);
    EXPECT_EQ(lines.at(10), GridLine::Normal);
    EXPECT_EQ(lines.at(20), GridLine::Major);
    // A pass from 3 meets both 10 and 20.
    const auto later = LinesOf({3, 20});
    EXPECT_EQ(later.at(10), GridLine::Major);
    EXPECT_EQ(later.at(20), GridLine::Major);
}

TEST(Grid, RulersLabelByZoom) {
    const struct {
        int zoom;
        std::vector<double> labelled, bare;
    } cases[] = {
        {500, {0, 0.5, -1.5, 3}, {}},       {80, {0, 0.5, -1.5, 3}, {}},
        {79, {0, 1, -3}, {0.5, -1.5}},      {40, {0, 1, -3}, {0.5, -1.5}},
        {39, {0, 2, -4}, {1, -3, 0.5}},     {20, {0, 2, -4}, {1, -3, 0.5}},
        {19, {0, 5, -10}, {1, 2, -4, 2.5}}, {10, {0, 5, -10}, {1, 2, -4, 2.5}},
    };
    for (const auto& c : cases) {
        for (const double u : c.labelled) EXPECT_TRUE(RulerLabels(u, c.zoom)) << c.zoom << ' ' << u;
        for (const double u : c.bare) EXPECT_FALSE(RulerLabels(u, c.zoom)) << c.zoom << ' ' << u;
    }
}

}  // namespace
}  // namespace korvane
