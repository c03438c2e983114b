#include "core/base/gpx_error.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::point;
using testing::readGPX;

// A file with everything a section export must drop or keep: metadata with a
// bounding box, a waypoint, two tracks (the first with two segments and point
// extensions), a route, comments and a foreign namespace.
const std::string head = "<?xml version='1.0' encoding='UTF-8'?>\n"
                         "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' "
                         "creator='t' xmlns:x='urn:x'>\n";
const std::string metadata = "  <metadata><name>Datei</name>";
const std::string metadataBounds = "<bounds minlat='1' minlon='1' maxlat='9' maxlon='9'/>";
const std::string waypoint = "<wpt lat='5' lon='5'><name>W</name></wpt>";
const std::string firstSegment = "<trkseg>\n      " + point("trkpt", 1, 1, "2024-05-01T10:00:00Z") +
                                 "\n      <trkpt lat='1.1' lon='1'><extensions><x:hr>90</x:hr>"
                                 "</extensions></trkpt>\n    </trkseg>";
const std::string secondSegment = "<trkseg>" + point("trkpt", 2, 2) + "</trkseg>";
const std::string secondTrack = "<trk><name>Zweiter</name><trkseg>" + point("trkpt", 3, 3) +
                                point("trkpt", 3.1, 3) + "</trkseg></trk>";
const std::string route =
    "<rte><name>Weg</name>" + point("rtept", 4, 4) + point("rtept", 4.1, 4) + "</rte>";
const std::string file = head + metadata + metadataBounds + "</metadata>\n  " + waypoint +
                         "\n  <!-- erster -->\n  <trk><name>Erster</name>\n    " + firstSegment +
                         "\n    " + secondSegment + "\n  </trk>\n  " + secondTrack + "\n  " +
                         route + "\n</gpx>\n";

/// `text` without each of `parts` (each must occur exactly once).
std::string without(std::string text, std::initializer_list<std::string> parts) {
    for (const auto& part : parts) {
        const auto at = text.find(part);
        EXPECT_NE(at, std::string::npos) << part;
        EXPECT_EQ(text.find(part, at + 1), std::string::npos) << part;
        text.erase(at, part.size());
    }
    return text;
}

TEST(SectionExport, KeepsOnlyTheChosenSegmentAndEverythingAroundIt) {
    const auto track = readGPX(file);
    ASSERT_EQ(track->segments().size(), 4u);

    const auto first = track->exportingSegment(0);
    EXPECT_EQ(first->data(),
              without(file, {metadataBounds, waypoint, secondSegment, secondTrack, route}));
    EXPECT_EQ(first->name(), "Erster");
    EXPECT_EQ(first->points().size(), 2u);
    EXPECT_EQ(first->segments()[0].name, "Erster");

    // The second track goes with its name; the route survives alone.
    const auto second = track->exportingSegment(2);
    EXPECT_EQ(second->name(), "Zweiter");
    EXPECT_EQ(second->points()[0].latitude, 3);
    const auto alone = track->exportingSegment(3);
    EXPECT_EQ(alone->data().find("<trk>"), std::string::npos);
    EXPECT_EQ(alone->name(), "Weg");
    ASSERT_EQ(alone->points().size(), 2u);
    EXPECT_EQ(alone->points()[1].id, 1);
    EXPECT_EQ(alone->segments()[0].pointIDs, (std::vector<std::int64_t>{0, 1}));
}

TEST(SectionExport, DropsRootBoundsAndReadsBackUnderTheCurrentName) {
    const std::string gpx10 =
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/0\" version=\"1.0\">"
        "<time>2024-05-01T10:00:00Z</time><bounds minlat=\"1\" minlon=\"1\" maxlat=\"2\" "
        "maxlon=\"2\"/><trk><trkseg>" +
        point("trkpt", 1, 1) + "</trkseg><trkseg>" + point("trkpt", 2, 2) + "</trkseg></trk></gpx>";
    const auto track = readGPX(gpx10, "Abendrunde.gpx");
    const auto exported = track->exportingSegment(1);
    EXPECT_EQ(exported->data().find("<bounds"), std::string::npos);
    EXPECT_NE(exported->data().find("<time>2024-05-01T10:00:00Z</time>"), std::string::npos);
    EXPECT_EQ(exported->name(), "Abendrunde");
    EXPECT_EQ(exported->segments()[0].name, "Track");
}

TEST(SectionExport, RefusesSegmentsThatDoNotExist) {
    const auto track = readGPX(
        testing::gpx11("<trk><trkseg/><trkseg>" + point("trkpt", 1, 1) + "</trkseg></trk>"));
    for (const std::int64_t id : {0, 2, -1}) {
        try {
            track->exportingSegment(id);
            ADD_FAILURE() << id;
        } catch (const GPXError& error) {
            EXPECT_EQ(error.message(), "Kein Abschnitt ausgewählt.");
        }
    }
    EXPECT_EQ(track->exportingSegment(1)->points().size(), 1u);
}

TEST(PointNodes, FollowTheReadingOrderOfPointIds) {
    const auto track = readGPX(file);
    auto copy = track->editableCopy();
    const auto nodes = GPXTrack::pointNodes(copy.root, track->namespaceURI());
    ASSERT_EQ(nodes.size(), track->points().size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_EQ(std::stod(*nodes[i].element.attribute("lat")), track->points()[i].latitude);
        EXPECT_EQ(nodes[i].route.has_value(), i >= 5) << i;
    }
    EXPECT_EQ(nodes.back().route, 0);
}

TEST(EditableCopy, EditsLeaveTheTrackAndTheRestOfTheFileAlone) {
    const auto track = readGPX(file);
    auto copy = track->editableCopy();
    const auto nodes = GPXTrack::pointNodes(copy.root, track->namespaceURI());
    nodes[0].element.firstChild("time", track->namespaceURI())->setText("2025-06-01T08:30:00Z");
    const auto edited = GPXTrack::read(copy.document.serialize(), track->name());
    EXPECT_EQ(edited->data(),
              testing::replacing(file, "2024-05-01T10:00:00Z", "2025-06-01T08:30:00Z"));
    EXPECT_EQ(track->data(), file);
}

} // namespace
} // namespace trackloom
