#include "core/track/elevation.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

// Points 0.001° of latitude apart (about 111 m); `nan` stands for a point
// without elevation.
std::vector<TrackPoint> climb(const std::vector<std::vector<double>>& sections) {
    std::vector<TrackPoint> points;
    for (std::size_t segment = 0; segment < sections.size(); ++segment) {
        for (const double elevation : sections[segment]) {
            TrackPoint point;
            point.id = static_cast<std::int64_t>(points.size());
            point.segment = static_cast<std::int64_t>(segment);
            point.latitude = 0.001 * static_cast<double>(points.size());
            if (!std::isnan(elevation)) {
                point.elevation = elevation;
            }
            points.push_back(point);
        }
    }
    return points;
}

constexpr double none = std::numeric_limits<double>::quiet_NaN();

TEST(ElevationGain, JitterBelowTheThresholdIsNoClimb) {
    EXPECT_EQ(elevationGain(climb({{100, 102, 99, 101, 103, 98, 100, 104, 97}})),
              (ElevationGain{0, 0}));
}

TEST(ElevationGain, CountsChangesOnceTheyLeaveTheNoise) {
    // 100 → 106 → 112 → 120 up, 120 → 105 → 95 down; the small dips between
    // never move far enough from the last counted elevation to count.
    EXPECT_EQ(elevationGain(climb({{100, 103, 101, 106, 112, 110, 120, 118, 105, 95}})),
              (ElevationGain{20, 25}));
    std::vector<double> steady;
    for (int metre = 0; metre <= 100; ++metre) {
        steady.push_back(metre);
    }
    EXPECT_EQ(elevationGain(climb({steady})).ascent, 100);
    // A steady climb in steps smaller than the threshold still adds up.
    EXPECT_EQ(elevationGain(climb({steady}), 10).ascent, 100);
}

TEST(ElevationGain, SectionsAndMissingElevationsAreNoSteps) {
    // The drop from 200 to 50 lies between two sections.
    EXPECT_EQ(elevationGain(climb({{100, 150, 200}, {50, 60}})), (ElevationGain{110, 0}));
    EXPECT_EQ(elevationGain(climb({{100, none, none, 110, none}})), (ElevationGain{10, 0}));
    EXPECT_EQ(elevationGain(climb({{none, none}})), (ElevationGain{0, 0}));
}

TEST(ElevationProfile, PlacesSamplesAlongTheTrackAndBreaksTheLineAtGaps) {
    const auto points = climb({{100, 101, none, 103}, {200, 201}});
    const auto analysis = TrackAnalysis::analyze(points);
    const auto profile = elevationProfile(points, analysis);
    ASSERT_EQ(profile.size(), 5u);
    const auto& legs = analysis.legs;
    EXPECT_EQ(profile[0], (ElevationSample{0, 0, 100, true}));
    EXPECT_EQ(profile[1], (ElevationSample{1, legs[0].cumulativeDistance, 101, false}));
    EXPECT_EQ(profile[2], (ElevationSample{3, legs[2].cumulativeDistance, 103, true}));
    // The next section starts where the last one ended: the gap is no distance.
    EXPECT_EQ(profile[3], (ElevationSample{4, legs[2].cumulativeDistance, 200, true}));
    EXPECT_EQ(profile[4], (ElevationSample{5, analysis.distance, 201, false}));
}

TEST(ElevationReading, TakesTheEleElementAndLeavesUnreadableOnesOut) {
    const auto track = testing::readGPX(testing::gpx11(
        "<trk><trkseg><trkpt lat=\"1\" lon=\"2\"><ele> 512.5\n</ele></trkpt>"
        "<trkpt lat=\"1\" lon=\"2.1\"><ele></ele></trkpt><trkpt lat=\"1\" lon=\"2.2\"/>"
        "<trkpt lat=\"1\" lon=\"2.3\"><ele>hoch</ele></trkpt></trkseg></trk>"));
    ASSERT_EQ(track->points().size(), 4u);
    EXPECT_EQ(track->points()[0].elevation, 512.5);
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_FALSE(track->points()[i].elevation) << i;
    }
}

} // namespace
} // namespace trackloom
