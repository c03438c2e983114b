#include "core/editing/segment_merging.h"
#include "core/editing/track_append.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::gpx11;
using testing::point;
using testing::refusal;
using testing::segment;
using testing::trackFrom;

TEST(Appending, KeepsBothFilesInSchemaOrderWithSectionsApart) {
    const auto first = trackFrom(gpx11(
        "<metadata><name>M</name><bounds minlat=\"0\" minlon=\"0\" maxlat=\"1\" maxlon=\"1\"/>"
        "</metadata>" +
        point("wpt", 1, 1) + "<trk><name>A</name>" + segment(0, 3) + "</trk><rte>" +
        point("rtept", 0, 0.002) + point("rtept", 0, 0) + "</rte><extensions><e/></extensions>"));
    const auto second =
        trackFrom(gpx11("<rte><name>R</name>" + point("rtept", 2, 0) + point("rtept", 2, 1) +
                        point("rtept", 2, 2) + "</rte>" + point("wpt", 3, 3)));
    ASSERT_EQ(first->airRoutes().size(), 1u);

    const auto result = appending(*first, *second);

    const auto bytes = result->data();
    EXPECT_NE(bytes.find("<metadata><name>M</name></metadata><wpt lat=\"1.000000\""),
              std::string::npos)
        << bytes;
    EXPECT_LT(bytes.find("<wpt lat=\"3.000000\""), bytes.find("<rte>"));
    EXPECT_LT(bytes.find("<rte>"), bytes.find("<trk>"));
    EXPECT_NE(bytes.find("</trk><extensions><e/></extensions></gpx>"), std::string::npos);
    ASSERT_EQ(result->segments().size(), 3u);
    EXPECT_EQ(result->segments()[1].name, "R") << "the normal route became a track";
    EXPECT_EQ(result->segments()[1].pointIDs.size(), 3u);
    EXPECT_EQ(result->analysis().legs.size(), 2u + 2u + 1u) << "no leg across the files";
    ASSERT_EQ(result->airRoutes().size(), 1u);
    EXPECT_EQ(result->name(), "A");
}

TEST(Appending, ChecksTheGPXVersion) {
    const std::string body = "<trk>" + segment(0, 2) + "</trk>";
    const auto versionless =
        trackFrom("<gpx xmlns=\"http://www.topografix.com/GPX/1/1\">" + body + "</gpx>");
    const auto gpx10 =
        trackFrom("<gpx xmlns=\"http://www.topografix.com/GPX/1/0\">" + body + "</gpx>");
    EXPECT_EQ(refusal([&] { appending(*versionless, *trackFrom(gpx11(body))); }), "");
    EXPECT_EQ(refusal([&] { appending(*gpx10, *trackFrom(gpx11(body))); }),
              "Zum Anhängen müssen beide Dateien dieselbe GPX-Version verwenden (1.0 oder 1.1).");
}

TEST(Appending, MovesTheOtherFileIntoThisNamespaceAndKeepsExtensionsWellFormed) {
    const auto first =
        trackFrom("<g:gpx xmlns:g=\"http://www.topografix.com/GPX/1/1\"><g:trk><g:trkseg>"
                  "<g:trkpt lat=\"0\" lon=\"0\"/></g:trkseg></g:trk></g:gpx>");
    const auto second = trackFrom(
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" xmlns:hr=\"urn:heart\"><trk><trkseg>"
        "<trkpt lat=\"1\" lon=\"1\"><extensions><hr:beat>90</hr:beat><plain/></extensions>"
        "</trkpt></trkseg></trk></gpx>");

    const auto result = appending(*first, *second);

    const auto bytes = result->data();
    EXPECT_NE(bytes.find("xmlns:hr=\"urn:heart\""), std::string::npos);
    // <plain/> is extension content in the GPX namespace: it keeps it, declared
    // where it is needed, not on the root where it would claim our own names.
    EXPECT_NE(bytes.find("<g:trk xmlns=\"http://www.topografix.com/GPX/1/1\"><g:trkseg><g:trkpt "
                         "lat=\"1\" lon=\"1\"><g:extensions><hr:beat>90</hr:beat><plain/>"
                         "</g:extensions>"),
              std::string::npos)
        << bytes;
    EXPECT_EQ(result->points().size(), 2u);
}

TEST(Appending, KeepsThePointsOfAVersionOneZeroFileBehindAMislabelledOne) {
    // Written by some apps: the GPX 1.1 namespace under version="1.0".
    const auto first = trackFrom("<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.0\">"
                                 "<trk>" +
                                 segment(0, 2) + "</trk></gpx>");
    const auto second =
        trackFrom("<gpx xmlns=\"http://www.topografix.com/GPX/1/0\" version=\"1.0\"><trk><name>B"
                  "</name>" +
                  segment(1, 3) + "</trk></gpx>");
    const auto result = appending(*first, *second);
    ASSERT_EQ(result->points().size(), 5u) << result->data();
    EXPECT_EQ(result->segments()[1].name, "B");
    EXPECT_EQ(result->data().find("GPX/1/0"), std::string::npos) << result->data();
}

TEST(Appending, EveryElementLaterCreatedCarriesThePrefixOfThisFile) {
    const auto first =
        trackFrom("<gpx:gpx xmlns:gpx=\"http://www.topografix.com/GPX/1/1\"><gpx:trk><gpx:trkseg>"
                  "<gpx:trkpt lat=\"0\" lon=\"0\"/></gpx:trkseg></gpx:trk></gpx:gpx>");
    const auto second = trackFrom(gpx11("<trk><name>B</name>" + segment(1, 2) + "</trk><rte>" +
                                        point("rtept", 5, 5) + point("rtept", 5, 6) + "</rte>"));
    const auto merged = mergingSegments(*appending(*first, *second));
    const auto bytes = merged->data();
    EXPECT_EQ(bytes.find("xmlns=\""), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("<name"), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("<trk"), std::string::npos) << bytes;
    EXPECT_EQ(merged->points().size(), 5u);
}

TEST(Appending, JoinsAFileWithoutNamespace) {
    const auto first = trackFrom(gpx11("<trk>" + segment(0, 2) + "</trk>"));
    const auto second = trackFrom("<gpx><trk><name>B</name>" + segment(1, 2) + "</trk></gpx>");
    const auto result = appending(*first, *second);
    ASSERT_EQ(result->segments().size(), 2u);
    EXPECT_EQ(result->segments()[1].name, "B");
    EXPECT_EQ(result->points().size(), 4u);

    // The other way round the other file's namespace must not become ours.
    const auto reversed = appending(*second, *first);
    EXPECT_EQ(reversed->points().size(), 4u) << reversed->data();
    EXPECT_EQ(reversed->namespaceURI(), "");
}

} // namespace
} // namespace trackloom
