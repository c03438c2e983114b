#include "core/base/geodesy.h"
#include "core/editing/time_operations.h"
#include "core/editing/time_transfer.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::at;
using testing::gpx11;
using testing::point;
using testing::refusal;
using testing::timed;
using testing::trackFrom;

// A three-point track and a two-point route joining its ends: an air route.
const std::string withAirRoute =
    gpx11("<metadata><time>2000-01-01T00:00:00Z</time></metadata><trk><trkseg>" +
          point("trkpt", 0, 0) + point("trkpt", 0, 0.01) + point("trkpt", 0, 0.02) +
          "</trkseg></trk><rte>" + point("rtept", 0, 0.02) + point("rtept", 0, 0) + "</rte>");

TEST(MaterializingTimes, WritesTheDisplayedTimesAndSkipsHiddenAirRoutes) {
    const auto source = trackFrom(withAirRoute);
    ASSERT_EQ(source->airRoutes().size(), 1u);
    const auto shown = source->removingAirRoutes();
    const auto display = GPXTrack::read(generated(*shown, at("2024-05-01T10:00:00Z"), 20.0), "x");

    const auto result = materializingTimes(*source, *display, true);

    ASSERT_EQ(result->points().size(), 5u);
    for (std::size_t id = 0; id < 3; ++id) {
        EXPECT_EQ(result->points()[id].time, display->points()[id].time);
    }
    EXPECT_FALSE(result->points()[3].time);
    EXPECT_FALSE(result->points()[4].time);
    EXPECT_EQ(result->airRoutes().size(), 1u) << "the air route is still recognised";
    EXPECT_NE(result->data().find("<metadata><time>2024-05-01T10:00:00.000000Z</time>"),
              std::string::npos);
}

TEST(MaterializingTimes, RefusesWhenTheTimesDoNotCoverThePoints) {
    const auto source = trackFrom(withAirRoute);
    const auto shown = source->removingAirRoutes();
    const auto display = GPXTrack::read(generated(*shown, at("2024-05-01T10:00:00Z"), 20.0), "x");
    const std::string incomplete =
        "Die erzeugten Zeiten konnten nicht vollständig übernommen werden.";

    EXPECT_EQ(refusal([&] { materializingTimes(*source, *display, false); }), incomplete)
        << "with air routes shown, five times are needed";
    EXPECT_EQ(refusal([&] { materializingTimes(*source, *source, false); }), incomplete)
        << "a point of the display has no time";
    EXPECT_EQ(refusal([&] {
                  const auto longer =
                      GPXTrack::read(generated(*source, at("2024-05-01T10:00:00Z"), 20.0), "x");
                  materializingTimes(*source, *longer, true);
              }),
              "Die Punktanzahl stimmt nicht mit den erzeugten Zeiten überein.");
}

TrackPoint timedPoint(double latitude, double longitude, std::optional<Instant> time) {
    return TrackPoint{0, 0, latitude, longitude, time, false, std::nullopt};
}

double fractionOf(Instant time, Instant from, Instant to) {
    return time.secondsSince(from) / to.secondsSince(from);
}

TEST(InterpolatedTimes, SpreadsByDistanceAlongThePath) {
    const auto a = timedPoint(0, 0, at("2024-05-01T10:00:00Z"));
    const auto b = timedPoint(0, 0.03, at("2024-05-01T10:00:30Z"));
    const auto times = interpolatedTimes(a, b, {{0, 0.01}, {0, 0.02}});
    ASSERT_TRUE(times);
    ASSERT_EQ(times->size(), 2u);
    EXPECT_NEAR((*times)[0].secondsSince(*a.time), 10, 1e-6);
    EXPECT_NEAR((*times)[1].secondsSince(*a.time), 20, 1e-6);

    // A detour counts: the first new point is far away, so it takes most of the time.
    const auto detour = interpolatedTimes(a, b, {{0.1, 0.01}});
    const double toDetour = haversineDistance(0, 0, 0.1, 0.01);
    EXPECT_NEAR(fractionOf((*detour)[0], *a.time, *b.time),
                toDetour / (toDetour + haversineDistance(0.1, 0.01, 0, 0.03)), 1e-7);
}

TEST(InterpolatedTimes, SpacesEvenlyWhenAllPointsCoincide) {
    const auto a = timedPoint(5, 5, at("2024-05-01T10:00:00Z"));
    const auto b = timedPoint(5, 5, at("2024-05-01T10:01:00Z"));
    const auto times = interpolatedTimes(a, b, {{5, 5}, {5, 5}, {5, 5}});
    ASSERT_TRUE(times);
    const std::vector<double> expected{0.25, 0.5, 0.75};
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_DOUBLE_EQ(fractionOf((*times)[k], *a.time, *b.time), expected[k]);
    }
}

TEST(InterpolatedTimes, GivesNothingWithoutUsableNeighbourTimes) {
    const auto early = timedPoint(0, 0, at("2024-05-01T10:00:00Z"));
    const auto late = timedPoint(0, 1, at("2024-05-01T11:00:00Z"));
    const auto untimed = timedPoint(0, 1, std::nullopt);
    EXPECT_FALSE(interpolatedTimes(early, untimed, {{0, 0.5}}));
    EXPECT_FALSE(interpolatedTimes(untimed, late, {{0, 0.5}}));
    EXPECT_FALSE(interpolatedTimes(late, early, {{0, 0.5}})) << "times running backwards";

    const auto same = interpolatedTimes(early, timedPoint(0, 1, early.time), {{0, 0.5}});
    ASSERT_TRUE(same) << "equal times are accepted";
    EXPECT_EQ((*same)[0], *early.time);
    const auto none = interpolatedTimes(early, late, {});
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
}

} // namespace
} // namespace trackloom
