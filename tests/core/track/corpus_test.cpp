// Every real-world GPX file of the corpus either reads or is refused with the
// message its content calls for; none may crash the reader.

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/track/gpx_track.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace trackloom {
namespace {

namespace fs = std::filesystem;

const std::string noPoints = "Die GPX-Datei enthält keine Track- oder Routenpunkte. Einzelne "
                             "Wegpunkte reichen nicht aus.";
const std::string unreadable = "Die Datei enthält kein lesbares GPX-XML: ";

// Files that hold only waypoints, are broken on purpose, or are not XML at all,
// with the start of the message each must be refused with.
const std::map<std::string, std::string> expectedRefusals = {
    {"bare-gpx-utf8-bom-no-namespace.gpx", noPoints},
    {"comments-around-elements.gpx", noPoints},
    {"garmin-oregon-400t-empty-name.gpx", noPoints},
    {"gpsbabel-extreme-years.gpx", noPoints},
    {"gpsbabel-metadata.gpx", noPoints},
    {"gpsbabel-multiple-links.gpx", noPoints},
    {"gpsbabel-replacement-char-utf8.gpx", noPoints},
    {"gpsvisualizer-utf8-bom-no-encoding.gpx", noPoints},
    {"gpxpy-custom-schema-locations.gpx", noPoints},
    {"gpxpy-extensions-namespaced.gpx", noPoints},
    {"gpxpy-extensions-without-namespaces.gpx", noPoints},
    {"groundspeak-geocache-gc7fa4-gpx10.gpx", noPoints},
    {"groundspeak-geocache-gcgca8-nasty.gpx", noPoints},
    {"link2gps-waypoints-only.gpx", noPoints},
    {"mapsource-empty.gpx", noPoints},
    {"osmand-empty-trk.gpx", noPoints},
    {"osmtracker-android-unicode.gpx", noPoints},
    {"oziexplorer-iso8859-1.gpx", noPoints},
    {"routeconverter-single-line-no-namespace.gpx", noPoints},
    {"runkeeper-garmin-extension.gpx", noPoints},
    {"viking-single-waypoint-gpx10.gpx", noPoints},
    {"viking-waypoint-symbols.gpx", noPoints},
    {"xcode-waypoints-only.gpx", noPoints},
    // A point at latitude 100 and 200: out of range.
    {"opentracks-pause-resume-segments.gpx", "Punkt 4 hat ungültige Koordinaten."},
    {"osmand-bad-coordinates.gpx", "Punkt 1 hat ungültige Koordinaten."},
    // A blank line before the XML declaration is not well-formed.
    {"osmand-router-multiple-tracks.gpx", unreadable},
    {"malformed-xml-unclosed-tag.gpx", unreadable},
    {"osm-website-bzip2-disguised-as-gpx.gpx", unreadable},
    {"osm-website-gzip-disguised-as-gpx.gpx", unreadable},
    {"osm-website-jpeg-disguised-as-gpx.gpx", unreadable},
    {"osm-website-zip-disguised-as-gpx.gpx", unreadable},
};

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(TRACKLOOM_CORPUS_DIR "/gpx")) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

class GpxCorpus : public ::testing::TestWithParam<fs::path> {};

TEST_P(GpxCorpus, ReadsOrIsRefusedAsExpected) {
    const auto name = GetParam().filename().string();
    const auto bytes = readFileBytes(GetParam());
    const auto expected = expectedRefusals.find(name);
    try {
        const auto track = GPXTrack::read(bytes, name);
        EXPECT_EQ(expected, expectedRefusals.end()) << "read although refusal expected";
        EXPECT_FALSE(track->points().empty());
        EXPECT_EQ(track->analysis().segmentCount,
                  static_cast<std::int64_t>(track->segments().size()));
    } catch (const GPXError& error) {
        ASSERT_NE(expected, expectedRefusals.end()) << error.message();
        EXPECT_TRUE(error.message().starts_with(expected->second)) << error.message();
    }
}

INSTANTIATE_TEST_SUITE_P(Files, GpxCorpus, ::testing::ValuesIn(corpusFiles()),
                         [](const auto& info) {
                             auto name = info.param.stem().string();
                             for (auto& c : name) {
                                 if (!std::isalnum(static_cast<unsigned char>(c))) {
                                     c = '_';
                                 }
                             }
                             return name;
                         });

} // namespace
} // namespace trackloom
