#include "core/base/geodesy.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::gpx11;
using testing::point;
using testing::readGPX;

// One degree of latitude is about 111,195 m, so these offsets put a route's
// ends about 240 m and 260 m away from the track's ends.
constexpr double near = 240.0 / 111195.0;
constexpr double far = 260.0 / 111195.0;

std::string threePointTrack() {
    return "<trk><name>Detail</name><trkseg>" + point("trkpt", 50, 7) +
           point("trkpt", 50.01, 7.01) + point("trkpt", 50.02, 7) + "</trkseg></trk>";
}

std::string route(double offset, bool reversed, std::string_view name = {}) {
    const auto a = point("rtept", 50 + offset, 7);
    const auto b = point("rtept", 50.02 + offset, 7);
    std::string body = name.empty() ? "" : "<name>" + std::string(name) + "</name>";
    return "<rte>" + body + (reversed ? b + a : a + b) + "</rte>";
}

TEST(AirRoutes, TwoPointRouteNearBothEndsInEitherDirection) {
    for (const bool reversed : {false, true}) {
        const auto track = readGPX(gpx11(threePointTrack() + route(near, reversed)));
        ASSERT_EQ(track->airRoutes().size(), 1u);
        EXPECT_EQ(track->airRoutes()[0].name, "Route 1");
        EXPECT_EQ(track->airRoutes()[0].id, 0);
        EXPECT_EQ(track->airRoutePointIDs(), (std::set<std::int64_t>{3, 4}));
        EXPECT_NEAR(track->airRoutes()[0].distance, haversineDistance(50, 7, 50.02, 7), 1e-6);
        // The route stays a segment of its own.
        EXPECT_EQ(track->segments().size(), 2u);
    }
    EXPECT_TRUE(readGPX(gpx11(threePointTrack() + route(far, false)))->airRoutes().empty());
}

TEST(AirRoutes, ShortTracksAndLongerRoutesNeverCount) {
    const auto twoPointTrack =
        "<trk><trkseg>" + point("trkpt", 50, 7) + point("trkpt", 50.02, 7) + "</trkseg></trk>";
    EXPECT_TRUE(readGPX(gpx11(twoPointTrack + route(0, false)))->airRoutes().empty());
    const auto threePointRoute = "<rte>" + point("rtept", 50, 7) + point("rtept", 50.01, 7) +
                                 point("rtept", 50.02, 7) + "</rte>";
    EXPECT_TRUE(readGPX(gpx11(threePointTrack() + threePointRoute))->airRoutes().empty());
}

TEST(AirRoutes, KnownRouteIndicesReplaceTheGeometry) {
    const auto data = gpx11(threePointTrack() + "<rte>" + point("rtept", 1, 1) +
                            point("rtept", 2, 2) + "</rte>" + route(0, false, "Luftlinie"));
    const auto detected = readGPX(data);
    ASSERT_EQ(detected->airRoutes().size(), 1u);
    EXPECT_EQ(detected->airRoutes()[0].id, 1);
    EXPECT_EQ(detected->airRoutes()[0].name, "Luftlinie");

    const auto known = GPXTrack::read(data, "x.gpx", std::set<std::int64_t>{0});
    ASSERT_EQ(known->airRoutes().size(), 1u);
    EXPECT_EQ(known->airRoutes()[0].name, "Route 1");
    EXPECT_TRUE(GPXTrack::read(data, "x.gpx", std::set<std::int64_t>{})->airRoutes().empty());
}

TEST(AirRoutes, RemovingThemRereadsTheDocument) {
    const auto plain = readGPX(gpx11(threePointTrack()));
    EXPECT_EQ(plain->removingAirRoutes(), plain);

    const auto track = readGPX(gpx11(threePointTrack() + route(0, false) + route(0.5, false)));
    const auto removed = track->removingAirRoutes();
    EXPECT_TRUE(removed->airRoutes().empty());
    EXPECT_TRUE(removed->airRoutePointIDs().empty());
    EXPECT_EQ(removed->segments().size(), track->segments().size() - 1);
    // The ordinary route after the removed one moves down.
    EXPECT_EQ(removed->points().size(), 5u);
    EXPECT_EQ(removed->points()[3].latitude, 50.5);
    EXPECT_EQ(removed->name(), "Detail");
}

} // namespace
} // namespace trackloom
