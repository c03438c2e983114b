#include "core/editing/point_edits.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::at;
using testing::gpx11;
using testing::point;
using testing::refusal;
using testing::segment;
using testing::timed;
using testing::trackFrom;

std::vector<std::size_t> sectionSizes(const GPXTrack& track) {
    std::vector<std::size_t> sizes;
    for (const auto& segment : track.segments()) {
        sizes.push_back(segment.pointIDs.size());
    }
    return sizes;
}

// A detailed track and a two-point route joining its ends: an air route. The
// normal route before it makes its index differ from its position after edits.
const std::string withRoutes =
    gpx11("<trk><name>T</name>" + segment(0, 5) + "</trk><rte><name>R</name>" +
          point("rtept", 1, 1) + point("rtept", 1, 2) + point("rtept", 1, 3) + "</rte><rte>" +
          point("rtept", 0, 0.004) + point("rtept", 0, 0) + "</rte>");

TEST(Splitting, BothPartsKeepTheBoundaryPoint) {
    const auto track = trackFrom(gpx11("<trk><name>Tour</name>" + segment(0, 2) + segment(1, 10) +
                                       segment(2, 3) + "</trk>"));
    EXPECT_FALSE(canSplit(*track, 2)) << "first of its section";
    EXPECT_FALSE(canSplit(*track, 11)) << "last of its section";
    EXPECT_FALSE(canSplit(*track, 99));

    const auto result = splitting(*track, 5, " Hin ", "Zurück");

    EXPECT_EQ(sectionSizes(*result), (std::vector<std::size_t>{2, 4, 7, 3}));
    EXPECT_EQ(result->points()[5], (TrackPoint{5, 1, 1, 0.003, std::nullopt, false, std::nullopt}));
    EXPECT_EQ(result->points()[6].longitude, 0.003);
    EXPECT_EQ(result->segments()[1].name, "Hin · Abschnitt 2") << "names are trimmed";
    EXPECT_EQ(result->segments()[2].name, "Zurück · Abschnitt 1");
}

TEST(Splitting, NamesARouteAndKeepsAirRoutesRecognised) {
    const auto track = trackFrom(withRoutes);
    ASSERT_EQ(track->airRoutes().size(), 1u);
    const auto result = splitting(*track, 6, "Erster", "Zweiter");
    EXPECT_EQ(sectionSizes(*result), (std::vector<std::size_t>{5, 2, 2, 2}));
    EXPECT_EQ(result->segments()[1].name, "Erster");
    EXPECT_EQ(result->segments()[2].name, "Zweiter");
    ASSERT_EQ(result->airRoutes().size(), 1u);
    EXPECT_EQ(result->airRoutes()[0].id, 2) << "the air route moved one route down";
}

TEST(Splitting, CreatesAMissingNameAsFirstChildWithoutRepeatingDeclarations) {
    const auto track = trackFrom(
        "<g:gpx xmlns:g=\"http://www.topografix.com/GPX/1/1\"><g:trk><g:trkseg>"
        "<g:trkpt lat=\"0\" lon=\"0\"/><g:trkpt lat=\"0\" lon=\"1\"/><g:trkpt lat=\"0\" lon=\"2\"/>"
        "</g:trkseg></g:trk></g:gpx>");
    const auto bytes = splitting(*track, 1, "A", "B")->data();
    EXPECT_NE(bytes.find("<g:trk><g:name>A</g:name><g:trkseg><g:trkpt lat=\"0\" lon=\"0\"/>"
                         "<g:trkpt lat=\"0\" lon=\"1\"/></g:trkseg></g:trk>"
                         "<g:trk><g:name>B</g:name><g:trkseg><g:trkpt lat=\"0\" lon=\"1\"/>"),
              std::string::npos)
        << bytes;
}

TEST(Splitting, Refusals) {
    const auto track = trackFrom(gpx11("<trk>" + segment(0, 4) + "</trk>"));
    EXPECT_EQ(refusal([&] { splitting(*track, 0, "A", "B"); }),
              "Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.");
    EXPECT_EQ(refusal([&] { splitting(*track, 1, "  ", "B"); }),
              "Bitte gib beiden Abschnitten einen Namen.");
    EXPECT_EQ(refusal([&] { splitting(*track, 1, "A", "\n\u00a0"); }),
              "Bitte gib beiden Abschnitten einen Namen.");
    // Names XML cannot carry are refused as the written file would be on reading.
    const std::string unreadable = "Die Datei enthält kein lesbares GPX-XML: ";
    EXPECT_EQ(refusal([&] { splitting(*track, 1, "A\x01", "B"); }).rfind(unreadable, 0), 0u);
    EXPECT_EQ(refusal([&] { splitting(*track, 1, "A", "\xC3("); }).rfind(unreadable, 0), 0u);
    EXPECT_EQ(refusal([&] { splitting(*track, 1, "A\tB", "Zürich 🚲"); }), "");
}

TEST(Trimming, RemovesEverythingBeforeOrAfterAcrossSections) {
    const auto track = trackFrom(gpx11("<trk>" + segment(0, 3) + segment(1, 3) + "</trk>"));
    EXPECT_EQ(sectionSizes(*trimmingBefore(*track, 4)), (std::vector<std::size_t>{2}));
    EXPECT_EQ(sectionSizes(*trimmingAfter(*track, 1)), (std::vector<std::size_t>{2}));
}

TEST(Trimming, LeavesAirRoutesAloneAndRefusesWhenNothingIsLeftToTrim) {
    const auto track = trackFrom(withRoutes);
    EXPECT_EQ(sectionSizes(*trimmingAfter(*track, 1)), (std::vector<std::size_t>{2, 2}));
    EXPECT_EQ(refusal([&] { trimmingBefore(*track, 0); }), "Vor diesem Punkt liegt nichts mehr.");
    EXPECT_EQ(refusal([&] { trimmingAfter(*track, 7); }), "Nach diesem Punkt liegt nichts mehr.");
    EXPECT_EQ(refusal([&] { trimmingBefore(*track, 8); }),
              "Dieser Punkt lässt sich nicht als Anfang setzen.");
    EXPECT_EQ(refusal([&] { trimmingAfter(*track, 10); }),
              "Dieser Punkt lässt sich nicht als Ende setzen.");
    EXPECT_EQ(refusal([&] { trimmingAfter(*track, -1); }),
              "Dieser Punkt lässt sich nicht als Ende setzen.");

    const auto three = trackFrom(gpx11("<trk>" + segment(0, 3) + "</trk>"));
    EXPECT_EQ(refusal([&] { trimmingBefore(*three, 2); }),
              "Mindestens zwei Punkte müssen erhalten bleiben.");
}

TEST(RemovingPoints, DropsSectionsTracksAndRoutesLeftEmpty) {
    const auto track = trackFrom(gpx11("<trk><name>A</name>" + segment(0, 2) + "</trk><trk>" +
                                       segment(1, 2) + segment(2, 2) + "</trk><rte>" +
                                       point("rtept", 5, 5) + point("rtept", 5, 6) + "</rte>"));
    const auto result = removingPoints(*track, {0, 1, 4, 5, 6, 7});
    EXPECT_EQ(sectionSizes(*result), (std::vector<std::size_t>{2}));
    const auto bytes = result->data();
    EXPECT_EQ(bytes.find("<name>A</name>"), std::string::npos) << "the emptied trk is gone";
    EXPECT_EQ(bytes.find("<rte"), std::string::npos);
    EXPECT_EQ(bytes.find("<trkseg></trkseg>"), std::string::npos);
}

TEST(RemovingPoints, KeepsAirRoutesAfterARemovedRoute) {
    const auto result = removingPoints(*trackFrom(withRoutes), {5, 6, 7});
    ASSERT_EQ(result->airRoutes().size(), 1u);
    EXPECT_EQ(result->airRoutes()[0].id, 0);
    EXPECT_EQ(result->airRoutePointIDs(), (std::set<std::int64_t>{5, 6}));
}

TEST(RemovingPoints, Refusals) {
    const auto track = trackFrom(withRoutes);
    EXPECT_EQ(refusal([&] { removingPoints(*track, {}); }), "Es ist kein Punkt ausgewählt.");
    EXPECT_EQ(refusal([&] {
                  removingPoints(*track, {0, 8});
              }),
              "Punkte einer Luftlinien-Route lassen sich nicht bearbeiten.");
    EXPECT_EQ(refusal([&] {
                  removingPoints(*track, {0, 1, 2, 3, 4, 5, 6, 7});
              }),
              "")
        << "the air route's two points remain";
    const auto two = trackFrom(gpx11("<trk>" + segment(0, 2) + "</trk>"));
    EXPECT_EQ(refusal([&] { removingPoints(*two, {1}); }),
              "Mindestens zwei Punkte müssen erhalten bleiben.");
}

TEST(MovingPoint, ChangesOnlyThePosition) {
    const auto track =
        trackFrom(gpx11("<trk><trkseg><trkpt lat=\"1\" lon=\"2\"><ele>7</ele>" +
                        timed("2024-05-01T10:00:00Z") + "<name>P</name></trkpt></trkseg></trk>"));
    const auto moved = movingPoint(*track, 0, {90.0, -0.1});
    EXPECT_NE(moved->data().find("<trkpt lat=\"90\" lon=\"-0.1\"><ele>7</ele><time>2024-05-01T10:"
                                 "00:00Z</time><name>P</name></trkpt>"),
              std::string::npos);
    EXPECT_EQ(refusal([&] {
                  movingPoint(*track, 0, {90.000001, 0});
              }),
              "Die neue Position ist ungültig.");
    EXPECT_EQ(refusal([&] {
                  movingPoint(*track, 0, {0, std::nan("")});
              }),
              "Die neue Position ist ungültig.");
    EXPECT_EQ(refusal([&] {
                  movingPoint(*track, 1, {0, 0});
              }),
              "Dieser Punkt lässt sich nicht verschieben.");
    EXPECT_EQ(refusal([&] {
                  movingPoint(*trackFrom(withRoutes), 8, {0, 0});
              }),
              "Dieser Punkt lässt sich nicht verschieben.");
}

TEST(Inserting, InterpolatesTimesAlongTheNewPoints) {
    const auto track = trackFrom(
        gpx11("<trk><trkseg>" + point("trkpt", 0, 0, timed("2024-05-01T10:00:00Z")) +
              point("trkpt", 0, 0.003, timed("2024-05-01T10:00:30Z")) + "</trkseg></trk>"));
    const auto result = inserting(*track, {{0, 0.001}, {0, 0.002}}, 0);
    ASSERT_EQ(result->points().size(), 4u);
    EXPECT_NEAR(result->points()[1].time->secondsSince(at("2024-05-01T10:00:00Z")), 10, 1e-6);
    EXPECT_NEAR(result->points()[2].time->secondsSince(at("2024-05-01T10:00:00Z")), 20, 1e-6);
    EXPECT_EQ(result->points()[2].longitude, 0.002);
}

TEST(Inserting, GivesNoTimeWithoutTimedNeighboursAndKeepsThePointKind) {
    const auto track = trackFrom(gpx11("<rte>" + point("rtept", 0, 0) + point("rtept", 0, 1) +
                                       point("rtept", 0, 2) + "</rte>"));
    const auto result = inserting(*track, {{0.5, 0.5}}, 0);
    EXPECT_NE(result->data().find("<rtept lat=\"0.5\" lon=\"0.5\"/>"), std::string::npos);
}

TEST(Inserting, Refusals) {
    const auto track = trackFrom(gpx11("<trk>" + segment(0, 2) + segment(1, 2) + "</trk>"));
    const std::string atSectionEnd =
        "Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. Am Ende eines "
        "Abschnitts lässt sich nichts einfügen; verbinde vorher die Abschnitte.";
    EXPECT_FALSE(canInsert(*track, 1)) << "another section follows";
    EXPECT_EQ(refusal([&] { inserting(*track, {{0, 0}}, 1); }), atSectionEnd);
    EXPECT_EQ(refusal([&] { inserting(*track, {{0, 0}}, 3); }), atSectionEnd);
    EXPECT_EQ(refusal([&] { inserting(*track, {}, 0); }), "Es wurden keine Punkte gesetzt.");
    EXPECT_EQ(refusal([&] {
                  inserting(*track, {{0, 0}, {0, 181}}, 0);
              }),
              "Mindestens ein gesetzter Punkt ist ungültig.");
    EXPECT_FALSE(canInsert(*trackFrom(withRoutes), 8)) << "between air-route points";
}

TEST(SourcePointID, SkipsAirRoutePointsWhenTheyAreHidden) {
    const auto track = trackFrom(gpx11("<rte>" + point("rtept", 0, 0) + point("rtept", 0, 0.002) +
                                       "</rte><trk>" + segment(0, 3) + "</trk>"));
    ASSERT_EQ(track->airRoutePointIDs(), (std::set<std::int64_t>{3, 4}));
    EXPECT_EQ(sourcePointID(*track, 3, false), 3);
    EXPECT_EQ(sourcePointID(*track, 2, true), 2);
    EXPECT_EQ(sourcePointID(*track, 3, true), std::nullopt);
    EXPECT_EQ(sourcePointID(*track, -1, false), std::nullopt);
}

} // namespace
} // namespace trackloom
