#include "core/base/gpx_error.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::gpx11;
using testing::point;
using testing::readGPX;

std::string refusalOf(std::string_view data) {
    try {
        readGPX(data);
    } catch (const GPXError& error) {
        return error.message();
    }
    return "(read)";
}

const std::string onePoint = "<trk><trkseg>" + point("trkpt", 1, 2) + "</trkseg></trk>";

TEST(GpxReaderRefusals, SizeLimitIsCheckedBeforeParsing) {
    const std::string head = gpx11(onePoint) + "<!--";
    std::string exact = head + std::string(maximumGPXFileSize - head.size() - 3, 'x') + "-->";
    ASSERT_EQ(exact.size(), maximumGPXFileSize);
    EXPECT_EQ(readGPX(exact)->points().size(), 1u);
    // One byte more is refused although the bytes are not even XML.
    EXPECT_EQ(refusalOf(std::string(maximumGPXFileSize + 1, '\0')),
              "Die Datei ist größer als 50 MB. Bitte teile den Track vor dem Import auf.");
}

TEST(GpxReaderRefusals, UnreadableXmlCarriesTheParsersDescription) {
    EXPECT_EQ(refusalOf("<gpx><trk></gpx>"),
              "Die Datei enthält kein lesbares GPX-XML: Opening and ending tag mismatch: trk "
              "line 1 and gpx");
    EXPECT_TRUE(refusalOf("").starts_with("Die Datei enthält kein lesbares GPX-XML: "));
    EXPECT_TRUE(refusalOf("   ").starts_with("Die Datei enthält kein lesbares GPX-XML: "));
}

TEST(GpxReaderRefusals, RootAndNamespace) {
    EXPECT_EQ(refusalOf("<kml xmlns=\"http://www.topografix.com/GPX/1/1\"/>"),
              "Die Datei ist keine GPX-Datei. Das gpx-Wurzelelement fehlt.");
    EXPECT_EQ(refusalOf("<GPX/>"), "Die Datei ist keine GPX-Datei. Das gpx-Wurzelelement fehlt.");
    EXPECT_EQ(refusalOf("<gpx xmlns=\"http://www.topografix.com/GPX/1/2\">" + onePoint + "</gpx>"),
              "Der GPX-Namensraum dieser Datei wird nicht unterstützt.");
    // A prefix on the root does not matter, only the namespace URI does.
    const auto prefixed =
        readGPX("<g:gpx xmlns:g=\"http://www.topografix.com/GPX/1/0\"><g:trk><g:trkseg>"
                "<g:trkpt lat=\"1\" lon=\"2\"/></g:trkseg></g:trk></g:gpx>");
    EXPECT_EQ(prefixed->namespaceURI(), gpx10Namespace);
    EXPECT_EQ(prefixed->points().size(), 1u);
}

TEST(GpxReaderRefusals, CoordinatesAreValidatedStrictlyWithBoundsIncluded) {
    const auto withCoordinates = [](std::string_view lat, std::string_view lon) {
        return refusalOf(gpx11("<trk><trkseg><trkpt lat=\"" + std::string(lat) + "\" lon=\"" +
                               std::string(lon) + "\"/></trkseg></trk>"));
    };
    EXPECT_EQ(withCoordinates("90", "-180"), "(read)");
    EXPECT_EQ(withCoordinates("-9e1", "1.8E2"), "(read)");
    for (const auto* bad : {"90.0000001", "", "NaN", "inf", " 1", "1 ", "1,5", "abc", "--1"}) {
        EXPECT_EQ(withCoordinates(bad, "0"), "Punkt 1 hat ungültige Koordinaten.") << bad;
    }
    EXPECT_EQ(withCoordinates("0", "180.5"), "Punkt 1 hat ungültige Koordinaten.");
    EXPECT_EQ(refusalOf(gpx11("<trk><trkseg><trkpt lat=\"1\"/></trkseg></trk>")),
              "Punkt 1 hat ungültige Koordinaten.");
}

TEST(GpxReaderRefusals, TheFirstFailingPointIsNamedByItsNumber) {
    const auto data = gpx11("<rte>" + point("rtept", 1, 1) +
                            "<rtept lat=\"x\" lon=\"1\"/></rte>"
                            "<trk><trkseg>" +
                            point("trkpt", 1, 1) + point("trkpt", 1, 1) + "</trkseg></trk>");
    // Track points are read before route points whatever the document order.
    EXPECT_EQ(refusalOf(data), "Punkt 4 hat ungültige Koordinaten.");
    const auto twoTimes = gpx11("<trk><trkseg>" + point("trkpt", 1, 1) +
                                "<trkpt lat=\"1\" lon=\"1\"><time>x</time><time>y</time></trkpt>"
                                "</trkseg></trk>");
    EXPECT_EQ(refusalOf(twoTimes), "Punkt 2 enthält mehrere Zeitstempel.");
}

TEST(GpxReaderRefusals, WaypointsAloneAreNotEnough) {
    EXPECT_EQ(refusalOf(gpx11("<wpt lat=\"1\" lon=\"2\"/><trk><trkseg/></trk>")),
              "Die GPX-Datei enthält keine Track- oder Routenpunkte. Einzelne Wegpunkte reichen "
              "nicht aus.");
}

TEST(GpxReaderStructure, IdsFollowReadingOrderAndEmptyContainersLeaveGaps) {
    const auto track =
        readGPX(gpx11("<rte><name>R</name>" + point("rtept", 5, 5) +
                      "</rte>"
                      "<trk><trkseg>" +
                      point("trkpt", 1, 1) +
                      "</trkseg><trkseg/></trk>"
                      "<trk><trkseg>" +
                      point("trkpt", 2, 2) + point("trkpt", 2, 3) + "</trkseg><trkseg>" +
                      point("trkpt", 3, 3) + "</trkseg></trk>"));
    ASSERT_EQ(track->points().size(), 5u);
    EXPECT_EQ(track->points().back().latitude, 5);
    std::vector<std::int64_t> ids;
    for (const auto& segment : track->segments()) {
        ids.push_back(segment.id);
    }
    EXPECT_EQ(ids, (std::vector<std::int64_t>{0, 2, 3, 4}));
    EXPECT_EQ(track->segments()[1].pointIDs, (std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(track->points()[4].segment, 4);
}

TEST(GpxReaderStructure, OnlyGpxElementsOfTheRootsNamespaceArePoints) {
    const auto track =
        readGPX(gpx11("<trk><trkpt lat=\"9\" lon=\"9\"/><trkseg>" + point("trkpt", 1, 1) +
                      "<extensions><trkpt lat=\"8\" lon=\"8\"/></extensions>"
                      "<x:trkpt xmlns:x=\"urn:other\" lat=\"7\" lon=\"7\"/></trkseg></trk>"));
    EXPECT_EQ(track->points().size(), 1u);

    const auto unqualified = readGPX("<gpx><trk><trkseg><trkpt lat=\"1\" lon=\"2\"/>"
                                     "<trkpt xmlns=\"http://www.topografix.com/GPX/1/1\" "
                                     "lat=\"3\" lon=\"4\"/></trkseg></trk></gpx>");
    EXPECT_EQ(unqualified->namespaceURI(), "");
    EXPECT_EQ(unqualified->points().size(), 1u);
}

TEST(GpxReaderStructure, SegmentAndTrackNames) {
    const auto track =
        readGPX(gpx11("<trk><trkseg>" + point("trkpt", 1, 1) + "</trkseg><trkseg>" +
                      point("trkpt", 1, 1) + "</trkseg><trkseg>" + point("trkpt", 1, 1) +
                      "</trkseg></trk>"
                      "<trk><name>Morgenrunde</name><trkseg>" +
                      point("trkpt", 1, 1) +
                      "</trkseg></trk>"
                      "<rte>" +
                      point("rtept", 1, 1) + "</rte>"));
    std::vector<std::string> names;
    for (const auto& segment : track->segments()) {
        names.push_back(segment.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Track · Abschnitt 1", "Track · Abschnitt 2",
                                               "Track · Abschnitt 3", "Morgenrunde", "Route"}));
    // The first trk has no name and the first rte none either: metadata decides.
    const auto fromMetadata = readGPX(gpx11("<metadata><name>Meta</name></metadata><trk><trkseg>" +
                                            point("trkpt", 1, 1) + "</trkseg></trk>"));
    EXPECT_EQ(fromMetadata->name(), "Meta");
    EXPECT_EQ(track->name(), "test");
    EXPECT_EQ(readGPX(gpx11(onePoint), "tour.2024.gpx")->name(), "tour.2024");
    // An empty name element exists and wins.
    EXPECT_EQ(
        readGPX(gpx11("<trk><name/><trkseg>" + point("trkpt", 1, 1) + "</trkseg></trk>"))->name(),
        "");
}

TEST(GpxReaderTimes, UnreadableTimesAreFlaggedNeverRefused) {
    const auto track =
        readGPX("<gpx xmlns=\"http://www.topografix.com/GPX/1/0\"><time>gestern</time>"
                "<wpt lat=\"1\" lon=\"1\"><time>bald</time></wpt><trk><trkseg>" +
                point("trkpt", 1, 1, "2024-05-01T10:00:00") +
                point("trkpt", 1, 1, "  2024-05-01T10:00:00.5+02:00\n") + point("trkpt", 1, 1) +
                "</trkseg></trk></gpx>");
    const auto& points = track->points();
    EXPECT_TRUE(points[0].invalidTime);
    EXPECT_FALSE(points[0].time);
    EXPECT_EQ(points[1].time, Instant::fromUnixSeconds(1714550400.5));
    EXPECT_FALSE(points[2].invalidTime);
    EXPECT_EQ(track->auxiliaryInvalidTimes(), 2);
    EXPECT_EQ(track->analysis().invalidTimes, 1);
    EXPECT_EQ(track->analysis().missingTimes, 1);
    EXPECT_EQ(track->start(), points[1].time);
    EXPECT_EQ(track->end(), points[1].time);
}

} // namespace
} // namespace trackloom
