#include "core/base/cancellation.h"
#include "core/places/heat_cells.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace trackloom {
namespace {

std::vector<HeatCell> sorted(std::vector<HeatCell> cells) {
    std::sort(cells.begin(), cells.end(),
              [](const HeatCell& a, const HeatCell& b) { return a.x < b.x; });
    return cells;
}

TEST(HeatSampleProjection, MapsTheWorldOntoTheUnitSquare) {
    EXPECT_EQ(HeatSample::projecting({0, 0}), (HeatSample{0.5, 0.5}));
    EXPECT_EQ(HeatSample::projecting({89, 180}), (HeatSample{1, 0}));
    EXPECT_EQ(HeatSample::projecting({-89, -180}), (HeatSample{0, 1}));
    EXPECT_EQ(HeatSample::projecting({89, 0}).y, HeatSample::projecting({85.05112878, 0}).y);
    EXPECT_NEAR(HeatSample::projecting({50.7, 7.1}).y, 0.33610, 1e-5);
    EXPECT_GT(HeatSample::projecting({0, 190}).x, 1);
}

TEST(HeatCells, InvalidRegionOrCellSizeGivesNoCells) {
    const std::vector samples{HeatSample{0.5, 0.5}};
    const HeatRegion world{0, 0, 1, 1};
    const double inf = std::numeric_limits<double>::infinity();
    for (const double size : {0.0, -0.1, double(NAN), inf, 1e-300}) {
        EXPECT_TRUE(PlaceAnalysis::heatCells(samples, world, size).empty()) << size;
    }
    EXPECT_TRUE(PlaceAnalysis::heatCells(samples, {0, 0, 0, 1}, 0.1).empty());
    EXPECT_TRUE(PlaceAnalysis::heatCells(samples, {0, 0, 1, -1}, 0.1).empty());
    EXPECT_TRUE(PlaceAnalysis::heatCells(samples, {NAN, 0, 1, 1}, 0.1).empty());
}

TEST(HeatCells, BoundsAreInclusiveAndCellsReportCentroids) {
    const std::vector samples{HeatSample{0.1, 0.1}, HeatSample{0.3, 0.3}, HeatSample{0.5, 0.5},
                              HeatSample{0.5000001, 0.2}, HeatSample{0.2, NAN}};
    const auto cells = PlaceAnalysis::heatCells(samples, {0, 0, 0.5, 0.5}, 1);
    ASSERT_EQ(cells.size(), 1u);
    EXPECT_DOUBLE_EQ(cells[0].x, 0.3);
    EXPECT_DOUBLE_EQ(cells[0].y, 0.3);
    EXPECT_EQ(cells[0].count, 3);
}

TEST(HeatCells, KeysUseFloorSoCellsLeftOfTheOriginAreSeparate) {
    const std::vector samples{HeatSample{0.9, 0.5}, HeatSample{0.1, 0.5}};
    // Centred on x = 0, the sample at 0.9 wraps to -0.1.
    const auto cells = sorted(PlaceAnalysis::heatCells(samples, {-0.2, 0.4, 0.4, 0.2}, 0.5));
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_DOUBLE_EQ(cells[0].x, -0.1);
    EXPECT_DOUBLE_EQ(cells[1].x, 0.1);
}

TEST(HeatCells, SamplesWrapToTheWorldCopyNearestTheView) {
    const std::vector samples{HeatSample{0.3, 0.5}, HeatSample{0.75, 0.5}};
    const auto cells = sorted(PlaceAnalysis::heatCells(samples, {0.7, 0, 1, 1}, 0.01));
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_DOUBLE_EQ(cells[0].x, 0.75);
    EXPECT_DOUBLE_EQ(cells[1].x, 1.3);

    // A view across the 180° meridian shows points from both sides.
    const std::vector acrossMeridian{HeatSample::projecting({-17, 179.5}),
                                     HeatSample::projecting({-17, -179.5})};
    const auto fiji =
        sorted(PlaceAnalysis::heatCells(acrossMeridian, {0.99, 0.5, 0.02, 0.1}, 0.001));
    ASSERT_EQ(fiji.size(), 2u);
    EXPECT_LT(fiji[0].x, 1);
    EXPECT_GT(fiji[1].x, 1);
}

TEST(HeatCells, StoppedBinningThrows) {
    std::stop_source source;
    source.request_stop();
    const std::vector samples{HeatSample{0.5, 0.5}};
    EXPECT_THROW(PlaceAnalysis::heatCells(samples, {0, 0, 1, 1}, 0.1, source.get_token()),
                 CancellationError);
}

} // namespace
} // namespace trackloom
