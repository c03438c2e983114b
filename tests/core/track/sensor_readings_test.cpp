#include "core/track/sensor_readings.h"
#include "gpx_fixtures.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace trackloom {
namespace {

// One track point with `extensions` inside it, in a GPX 1.1 document that
// declares the vocabularies under prefixes of their own.
TrackPtr pointWith(const std::string& inside) {
    return testing::readGPX(
        "<gpx version=\"1.1\" xmlns=\"http://www.topografix.com/GPX/1/1\" "
        "xmlns:tpx=\"http://www.garmin.com/xmlschemas/TrackPointExtension/v1\" "
        "xmlns:tpx2=\"http://www.garmin.com/xmlschemas/TrackPointExtension/v2\" "
        "xmlns:gpxdata=\"http://www.cluetrust.com/XML/GPXDATA/1/0\" "
        "xmlns:other=\"urn:other\"><trk><trkseg><trkpt lat=\"1\" lon=\"2\">" +
        inside + "</trkpt></trkseg></trk></gpx>");
}

SensorReadings readingsOf(const std::string& inside) {
    return sensorReadings(*pointWith(inside), 0);
}

TEST(SensorReadings, GarminTrackPointExtensions) {
    EXPECT_EQ(readingsOf("<extensions><tpx:TrackPointExtension><tpx:hr>142</tpx:hr>"
                         "<tpx:cad>88</tpx:cad><tpx:atemp>21.5</tpx:atemp>"
                         "</tpx:TrackPointExtension></extensions>"),
              (SensorReadings{142, 88, 21.5, std::nullopt}));
    // v2 adds the speed, in metres per second; water temperature stands in
    // for a missing air temperature.
    EXPECT_EQ(readingsOf("<extensions><tpx2:TrackPointExtension><tpx2:speed>2.5</tpx2:speed>"
                         "<tpx2:wtemp>14</tpx2:wtemp></tpx2:TrackPointExtension></extensions>"),
              (SensorReadings{std::nullopt, std::nullopt, 14, 9}));
    // The Garmin names mean nothing outside their block or in another vocabulary.
    EXPECT_TRUE(readingsOf("<extensions><tpx:hr>150</tpx:hr><other:TrackPointExtension>"
                           "<other:hr>150</other:hr></other:TrackPointExtension></extensions>")
                    .empty());
}

TEST(SensorReadings, CluetrustAndPlainElements) {
    EXPECT_EQ(readingsOf("<extensions><gpxdata:hr>164</gpxdata:hr>"
                         "<gpxdata:cadence>99</gpxdata:cadence><gpxdata:temp>-3</gpxdata:temp>"
                         "</extensions>"),
              (SensorReadings{164, 99, -3, std::nullopt}));
    EXPECT_EQ(readingsOf("<extensions><heartrate>89</heartrate><cad>70</cad><temp>18</temp>"
                         "<speed>1</speed></extensions>"),
              (SensorReadings{89, 70, 18, 3.6}));
    // Plain elements may also sit in no namespace at all.
    EXPECT_EQ(readingsOf("<extensions><hr xmlns=\"\">77</hr></extensions>").heartRate, 77);
    // A point's own speed element, as GPX 1.0 has it.
    EXPECT_EQ(readingsOf("<speed> 5 </speed>").speed, 18);
}

TEST(SensorReadings, GarminWinsOverCluetrustOverPlainAndUnreadableValuesAreAbsent) {
    EXPECT_EQ(readingsOf("<extensions><hr>1</hr><gpxdata:hr>2</gpxdata:hr><cad>3</cad>"
                         "<gpxdata:cadence>4</gpxdata:cadence><temp>5</temp>"
                         "<tpx:TrackPointExtension><tpx:hr>6</tpx:hr></tpx:TrackPointExtension>"
                         "</extensions>"),
              (SensorReadings{6, 4, 5, std::nullopt}));
    EXPECT_TRUE(readingsOf("<extensions><hr>viel</hr><tpx:TrackPointExtension><tpx:cad/>"
                           "</tpx:TrackPointExtension></extensions>")
                    .empty());
}

TEST(SensorReadings, FindsThePointInLaterSectionsAndRoutes) {
    const auto track = testing::readGPX(testing::gpx11(
        "<trk><trkseg><trkpt lat=\"1\" lon=\"1\"><extensions><hr>10</hr></extensions></trkpt>"
        "</trkseg><trkseg/><trkseg><trkpt lat=\"1\" lon=\"2\"/>"
        "<trkpt lat=\"1\" lon=\"3\"><extensions><hr>12</hr></extensions></trkpt></trkseg></trk>"
        "<rte><rtept lat=\"2\" lon=\"1\"/><rtept lat=\"2\" lon=\"2\"><extensions><hr>14</hr>"
        "</extensions></rtept></rte>"));
    const std::vector<std::optional<double>> expected{10, std::nullopt, 12, std::nullopt, 14};
    ASSERT_EQ(track->points().size(), expected.size());
    for (std::size_t id = 0; id < expected.size(); ++id) {
        EXPECT_EQ(sensorReadings(*track, static_cast<std::int64_t>(id)).heartRate, expected[id])
            << id;
    }
    EXPECT_TRUE(sensorReadings(*track, 5).empty());
    EXPECT_TRUE(sensorReadings(*track, -1).empty());
}

TEST(SensorReadings, CorpusFilesOfTheCommonWriters) {
    const auto first = [](const char* name) {
        std::ifstream in(std::string(TRACKLOOM_CORPUS_DIR "/gpx/") + name, std::ios::binary);
        std::stringstream bytes;
        bytes << in.rdbuf();
        return sensorReadings(*GPXTrack::read(bytes.str(), name), 0);
    };
    EXPECT_EQ(first("pytrainer-extensions.gpx"),
              (SensorReadings{164, 99, std::nullopt, std::nullopt}));
    EXPECT_EQ(first("amazfit-huami-watch.gpx").heartRate, 89);
    EXPECT_EQ(first("gpxstudio-with-hr-cad-temp.gpx").temperature, 21);
    EXPECT_EQ(first("qmapshack-tpx-prefix-cns.gpx"), (SensorReadings{90, 60, 20, std::nullopt}));
    EXPECT_DOUBLE_EQ(*first("gpslogger-131-gpx11.gpx").speed, 2.8 * 3.6);
    EXPECT_EQ(first("cruiser-speed-no-namespace.gpx").speed, 18);
}

} // namespace
} // namespace trackloom
