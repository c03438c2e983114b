#include "app/map/simplified_path.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace trackloom {
namespace {

const MapRect everywhere{-1, -1, 2, 2};

std::vector<Coordinate> randomWalk(std::size_t count) {
    std::mt19937 random(7);
    std::normal_distribution<double> step(0, 0.0005);
    std::vector<Coordinate> points{{50.0, 7.0}};
    while (points.size() < count) {
        const Coordinate& last = points.back();
        points.push_back({last.latitude + step(random), last.longitude + 0.0002 + step(random)});
    }
    return points;
}

TEST(SimplifiedPath, NoDroppedPointStraysFurtherThanTheTolerance) {
    // Spans several chunks, so the shared chunk ends are exercised too.
    const SimplifiedPath path(randomWalk(3500));
    for (double tolerance : {1e-8, 1e-7, 1e-6, 1e-5}) {
        const auto runs = path.visibleRuns(everywhere, tolerance);
        ASSERT_EQ(runs.size(), 1u);
        const auto& kept = runs.front();
        EXPECT_EQ(kept.front(), 0u);
        EXPECT_EQ(kept.back(), path.points().size() - 1);
        for (std::size_t k = 0; k + 1 < kept.size(); ++k) {
            for (std::size_t i = kept[k] + 1; i < kept[k + 1]; ++i) {
                ASSERT_LE(segmentDistance(path.points()[i], path.points()[kept[k]],
                                          path.points()[kept[k + 1]]),
                          tolerance * (1 + 1e-5))
                    << "point " << i << " at tolerance " << tolerance;
            }
        }
    }
    // A coarser tolerance never needs more points.
    EXPECT_LT(path.visibleRuns(everywhere, 1e-5)[0].size(),
              path.visibleRuns(everywhere, 1e-7)[0].size());
}

TEST(SimplifiedPath, StraightLinesCollapseToTheirEnds) {
    std::vector<Coordinate> line;
    for (int i = 0; i <= 100; ++i) {
        line.push_back({0, i * 0.01});
    }
    const auto runs = SimplifiedPath(line).visibleRuns(everywhere, 1e-12);
    EXPECT_EQ(runs, (std::vector<std::vector<std::size_t>>{{0, 100}}));
    EXPECT_TRUE(SimplifiedPath({}).visibleRuns(everywhere, 0).empty());
    EXPECT_TRUE(SimplifiedPath({{1, 1}}).visibleRuns(everywhere, 0).empty());
}

TEST(SimplifiedPath, ChunksOutsideTheViewAreSkippedAndSplitTheLine) {
    // East along the equator, two chunks far up north, and back along the
    // equator: the chunk wholly up north is skipped and splits the line in two.
    constexpr int chunk = static_cast<int>(SimplifiedPath::chunkLength);
    std::vector<Coordinate> points;
    for (int i = 0; i < 4 * chunk; ++i) {
        const int leg = i / chunk;
        const double longitude = (i % chunk) * 0.01;
        points.push_back(
            {leg == 1 || leg == 2 ? 60.0 : 0.0, leg == 3 ? 30 - longitude : longitude});
    }
    const SimplifiedPath path(points);
    const MapRect equator = MapRect::spanning(project({-1, -1}), project({1, 31}));
    const auto runs = path.visibleRuns(equator, 0);
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].front(), 0u);
    EXPECT_EQ(runs[0].back(), static_cast<std::size_t>(chunk));
    EXPECT_EQ(runs[1].front(), static_cast<std::size_t>(2 * chunk));
    EXPECT_EQ(runs[1].back(), points.size() - 1);
}

TEST(SimplifiedPath, FindsTheNearestLegWithinReach) {
    const SimplifiedPath path({{0, 0}, {0, 1}, {1, 1}, {1, 2}});
    const MapPoint nearSecondLeg = project({0.5, 1.0001});
    const double reach = 100 * mapUnitsPerMetre(0); // the point lies about 11 m beside it
    const auto leg = path.nearestLeg(nearSecondLeg, reach);
    ASSERT_TRUE(leg);
    EXPECT_EQ(leg->index, 1u);
    EXPECT_FALSE(path.nearestLeg(project({-5, -5}), reach));
}

} // namespace
} // namespace trackloom
