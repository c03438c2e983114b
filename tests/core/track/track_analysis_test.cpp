#include "core/track/speed_scale.h"
#include "core/track/track_analysis.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

TrackPoint at(std::int64_t id, std::int64_t segment, double latitude,
              std::optional<double> unixTime, bool invalidTime = false) {
    TrackPoint point{id, segment, latitude, 0, std::nullopt, invalidTime, std::nullopt};
    if (unixTime) {
        point.time = Instant::fromUnixSeconds(*unixTime);
    }
    return point;
}

TEST(TrackAnalysis, SinglePointHasNoLegsNorSpeeds) {
    const auto analysis = TrackAnalysis::analyze({at(0, 0, 1, 0)});
    EXPECT_TRUE(analysis.legs.empty());
    EXPECT_EQ(analysis.distance, 0);
    EXPECT_FALSE(analysis.averageSpeed());
    EXPECT_FALSE(analysis.maxSpeed());
    EXPECT_EQ(analysis.segmentCount, 1);
}

TEST(TrackAnalysis, ProblemsAreJudgedInOrder) {
    const auto analysis = TrackAnalysis::analyze({
        at(0, 0, 0.0, std::nullopt, true),
        at(1, 0, 0.1, std::nullopt), // unreadable beside missing: unreadable wins
        at(2, 0, 0.2, 100),          // missing
        at(3, 0, 0.3, 50),           // backwards
        at(4, 0, 0.4, 50),           // identical
        at(5, 0, 0.5, 60),           // valid
    });
    ASSERT_EQ(analysis.legs.size(), 5u);
    const std::vector<std::optional<std::string>> problems = {
        "Ungültiger Zeitstempel", "Zeitstempel fehlt", "Zeit läuft rückwärts",
        "Identische Zeitstempel", std::nullopt};
    for (std::size_t i = 0; i < problems.size(); ++i) {
        EXPECT_EQ(analysis.legs[i].problem, problems[i]) << i;
        EXPECT_EQ(analysis.legs[i].speed.has_value(), !problems[i].has_value()) << i;
    }
    EXPECT_EQ(analysis.legs[3].seconds, 0.0);
    EXPECT_EQ(analysis.legs[2].seconds, -50.0);
    EXPECT_EQ(analysis.timedSeconds, 10);
    EXPECT_EQ(analysis.timedDistance, analysis.legs[4].distance);
    EXPECT_EQ(analysis.validIntervals(), 1);
    EXPECT_EQ(analysis.invalidIntervals(), 4);
    EXPECT_EQ(analysis.invalidTimes, 1);
    EXPECT_EQ(analysis.missingTimes, 1);
}

TEST(TrackAnalysis, LegsNeverCrossSegmentsButDistanceAccumulates) {
    const auto analysis = TrackAnalysis::analyze(
        {at(0, 0, 0, 0), at(1, 0, 0.01, 10), at(2, 3, 5, 20), at(3, 3, 5.01, 30)});
    ASSERT_EQ(analysis.legs.size(), 2u);
    EXPECT_EQ(analysis.legs[1].from, 2);
    EXPECT_EQ(analysis.legs[1].segment, 3);
    EXPECT_DOUBLE_EQ(analysis.legs[1].cumulativeDistance,
                     analysis.legs[0].distance + analysis.legs[1].distance);
    EXPECT_EQ(analysis.segmentCount, 2);
    // Distance-weighted, not the mean of the leg speeds.
    EXPECT_DOUBLE_EQ(*analysis.averageSpeed(), analysis.distance / 20 * 3.6);
}

TEST(TrackAnalysis, SuspiciousIsStrictlyAboveTheThresholdOrInvalid) {
    TrackAnalysis analysis;
    const auto leg = [](std::optional<double> speed) {
        TrackLeg result;
        result.speed = speed;
        if (!speed) {
            result.problem = "Zeitstempel fehlt";
        }
        return result;
    };
    analysis.legs = {leg(30), leg(30.0001), leg(std::nullopt), leg(5)};
    const auto suspicious = analysis.suspicious(30);
    ASSERT_EQ(suspicious.size(), 2u);
    EXPECT_EQ(suspicious[0].speed, 30.0001);
    EXPECT_FALSE(suspicious[1].speed);
    EXPECT_EQ(analysis.suspicious(-1).size(), 4u);
    EXPECT_EQ(analysis.maxSpeed(), 30.0001);
}

TEST(SpeedScale, TopIsTheNinetyFifthPercentileAndFasterLegsSaturate) {
    TrackAnalysis analysis;
    for (int speed = 100; speed >= 1; --speed) {
        TrackLeg leg;
        leg.from = speed;
        leg.speed = speed;
        analysis.legs.push_back(leg);
    }
    TrackLeg withoutSpeed;
    withoutSpeed.from = 500;
    withoutSpeed.problem = "Zeitstempel fehlt";
    analysis.legs.push_back(withoutSpeed);
    const auto scale = SpeedScale::of(analysis);
    EXPECT_EQ(scale.top, 95);
    EXPECT_DOUBLE_EQ(scale.values.at(1), 0);
    EXPECT_DOUBLE_EQ(scale.values.at(48), 47.0 / 94.0);
    EXPECT_EQ(scale.values.at(100), 1);
    EXPECT_FALSE(scale.values.contains(500));
}

TEST(SpeedScale, EmptyAndSingleLeg) {
    EXPECT_EQ(SpeedScale::of(TrackAnalysis{}).top, 0);
    TrackAnalysis one;
    TrackLeg leg;
    leg.from = 7;
    leg.speed = 12.5;
    one.legs.push_back(leg);
    const auto scale = SpeedScale::of(one);
    EXPECT_EQ(scale.top, 12.5);
    EXPECT_EQ(scale.values.at(7), 0);
}

} // namespace
} // namespace trackloom
