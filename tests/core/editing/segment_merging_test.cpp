#include "core/editing/segment_merging.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::gpx11;
using testing::point;
using testing::pointsAt;
using testing::refusal;
using testing::segment;
using testing::trackFrom;

// The air route joins the ends of the first track; the normal route before it
// shifts its index.
const std::string mixed = gpx11(
    "<metadata><name>M</name><bounds minlat=\"0\" minlon=\"0\" maxlat=\"1\" maxlon=\"1\"/>"
    "</metadata>" +
    point("wpt", 5, 5) + "<trk><name>Erste</name><desc>weg</desc>" + segment(0, 3) +
    segment(0.01, 2) + "</trk><trk><name>Zweite</name>" + segment(0.02, 2) +
    "</trk><rte><name>Normal</name>" + pointsAt("rtept", 0.03, 3) + "</rte><rte>" +
    point("rtept", 0.01, 0.001) + point("rtept", 0, 0) + "</rte><extensions><x/></extensions>");

TEST(MergingSegments, MovesAllPointsButAirRoutesIntoOneTrack) {
    const auto track = trackFrom(mixed);
    ASSERT_EQ(track->airRoutes().size(), 1u);

    const auto merged = mergingSegments(*track);

    ASSERT_EQ(merged->segments().size(), 2u);
    EXPECT_EQ(merged->segments()[0].name, "Erste");
    EXPECT_EQ(merged->segments()[0].pointIDs.size(), 10u);
    EXPECT_EQ(merged->points()[9].latitude, 0.03) << "route points come last, as track points";
    ASSERT_EQ(merged->airRoutes().size(), 1u);
    EXPECT_EQ(merged->airRoutes()[0].id, 0);
    const auto bytes = merged->data();
    EXPECT_EQ(bytes.find("<desc>weg</desc>"), std::string::npos);
    EXPECT_EQ(bytes.find("Normal"), std::string::npos);
    EXPECT_NE(bytes.find("</trk><extensions><x/></extensions></gpx>"), std::string::npos);
}

TEST(MergingSegments, NamesTheTrackAfterTheFileWhenTheFirstTrackHasNoName) {
    const auto track = trackFrom(gpx11("<metadata><name>Datei</name></metadata><trk>" +
                                       segment(0, 2) + segment(1, 2) + "</trk>"));
    EXPECT_EQ(mergingSegments(*track)->name(), "Datei");
}

TEST(MergingSegments, RefusesOneSectionBesideAirRoutes) {
    const auto track = trackFrom(gpx11(
        "<trk>" + segment(0, 3) + "</trk><rte>" + point("rtept", 0, 0) + point("rtept", 0, 0.002) +
        "</rte><rte>" + point("rtept", 0, 0.002) + point("rtept", 0, 0) + "</rte>"));
    ASSERT_EQ(track->airRoutes().size(), 2u);
    EXPECT_EQ(refusal([&] { mergingSegments(*track); }),
              "Der Track besteht nur aus einem Abschnitt.");
}

TEST(SingleTrack, MergesAndDropsWaypointsRoutesAndMetadataBounds) {
    const auto result = singleTrack(*trackFrom(mixed), "Export");
    EXPECT_EQ(result->segments().size(), 1u);
    EXPECT_EQ(result->points().size(), 10u);
    EXPECT_EQ(result->name(), "Export");
    const auto bytes = result->data();
    EXPECT_EQ(bytes.find("<wpt"), std::string::npos);
    EXPECT_EQ(bytes.find("<rte"), std::string::npos);
    EXPECT_EQ(bytes.find("<bounds"), std::string::npos);
}

TEST(SingleTrack, TurnsALoneRouteIntoATrackAndKeepsRootBounds) {
    const auto track = trackFrom(
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/0\" version=\"1.0\"><bounds minlat=\"0\" "
        "minlon=\"0\" maxlat=\"1\" maxlon=\"1\"/>" +
        point("wpt", 1, 1) + "<rte><name>Alt</name>" + pointsAt("rtept", 0, 3) + "</rte></gpx>");
    const auto result = singleTrack(*track, "Neu");
    EXPECT_EQ(result->segments().size(), 1u);
    EXPECT_EQ(result->points().size(), 3u);
    const auto bytes = result->data();
    EXPECT_NE(bytes.find("<bounds "), std::string::npos) << "the root's bounds stay";
    EXPECT_NE(bytes.find("<trk><name>Neu</name><trkseg><trkpt lat="), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("rte"), std::string::npos);
}

TEST(SingleTrack, LeavesASingleSegmentAloneAndTheNameWhenNoneIsGiven) {
    const auto track =
        trackFrom(gpx11(point("wpt", 1, 1) + "<trk><name>Tour</name>" + segment(0, 3) + "</trk>"));
    const auto result = singleTrack(*track, "");
    EXPECT_EQ(result->name(), "Tour");
    EXPECT_EQ(result->data(),
              trackFrom(gpx11("<trk><name>Tour</name>" + segment(0, 3) + "</trk>"))->data());
}

} // namespace
} // namespace trackloom
