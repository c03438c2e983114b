#include "core/track/waypoints.h"
#include "gpx_fixtures.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace trackloom {
namespace {

const std::string trackBody = "<trk><trkseg><trkpt lat=\"1\" lon=\"2\"/></trkseg></trk>";

TEST(Waypoints, ReadsNameTimeAndElevationInDocumentOrder) {
    const auto track = testing::readGPX(testing::gpx11(
        "<wpt lat=\"48.1\" lon=\"11.5\"><ele>519</ele><time>2025-06-01T10:00:00Z</time>"
        "<name>  Gipfel\n</name></wpt>" +
        trackBody + "<wpt lat=\"-33.9\" lon=\"151.2\"><time>gestern</time></wpt>"));
    const auto waypoints = waypointsOf(*track);
    ASSERT_EQ(waypoints.size(), 2u);
    EXPECT_EQ(waypoints[0],
              (Waypoint{"Gipfel", {48.1, 11.5}, GPXTrack::parseTime("2025-06-01T10:00:00Z"), 519}));
    EXPECT_EQ(waypoints[1], (Waypoint{"", {-33.9, 151.2}, std::nullopt, std::nullopt}));
}

TEST(Waypoints, LeavesOutWhatCannotBePlaced) {
    const auto track = testing::readGPX(
        testing::gpx11("<wpt lat=\"91\" lon=\"0\"><name>Jenseits</name></wpt><wpt lon=\"3\"/>"
                       "<wpt lat=\"x\" lon=\"3\"/><wpt lat=\"1\" lon=\"3\"><name>Da</name></wpt>" +
                       trackBody));
    const auto waypoints = waypointsOf(*track);
    ASSERT_EQ(waypoints.size(), 1u);
    EXPECT_EQ(waypoints[0].name, "Da");
    // Only the root's own waypoints: elements of another vocabulary do not count.
    const auto foreign = testing::readGPX(testing::gpx11(
        "<extensions><wpt xmlns=\"urn:x\" lat=\"1\" lon=\"1\"/></extensions>" + trackBody));
    EXPECT_TRUE(waypointsOf(*foreign).empty());
}

TEST(Waypoints, CorpusFilesInBothVersions) {
    const auto read = [](const char* name) {
        std::ifstream in(std::string(TRACKLOOM_CORPUS_DIR "/gpx/") + name, std::ios::binary);
        std::stringstream bytes;
        bytes << in.rdbuf();
        return waypointsOf(*GPXTrack::read(bytes.str(), name));
    };
    const auto gpx10 = read("expertgps-blue-hills-gpx10.gpx");
    EXPECT_EQ(gpx10.size(), 46u);
    const auto gpx11 = read("gpxstudio-with-waypoint.gpx");
    ASSERT_EQ(gpx11.size(), 1u);
    EXPECT_EQ(gpx11[0].name, "Waypoint");
    EXPECT_EQ(gpx11[0].elevation, 122.0);
}

} // namespace
} // namespace trackloom
