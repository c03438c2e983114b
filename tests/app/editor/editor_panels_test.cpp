// The figures behind the editor's section list and point details, without widgets.

#include "app/editor/point_details.h"
#include "app/editor/point_texts.h"
#include "app/editor/section_table_model.h"
#include "editor_test_support.h"

namespace trackloom::testing {
namespace {

class EditorPanels : public EditorModelTest {};

// Three points of one section: one with elevation only, one with Garmin
// readings, one far away with nothing but its position.
const std::string withReadings =
    R"(<?xml version="1.0"?><gpx version="1.1" xmlns="http://www.topografix.com/GPX/1/1" )"
    R"(xmlns:tpx="http://www.garmin.com/xmlschemas/TrackPointExtension/v2"><trk><name>Runde)"
    R"(</name><trkseg><trkpt lat="48.1" lon="11.5"><ele>519</ele>)"
    R"(<time>2025-06-01T10:00:00Z</time></trkpt><trkpt lat="48.101" lon="11.5"><ele>520.5</ele>)"
    R"(<time>2025-06-01T10:01:00Z</time><extensions><tpx:TrackPointExtension><tpx:hr>142</tpx:hr>)"
    R"(<tpx:atemp>21.5</tpx:atemp><tpx:speed>2.5</tpx:speed></tpx:TrackPointExtension>)"
    R"(</extensions></trkpt><trkpt lat="-33" lon="-70.5"/></trkseg></trk></gpx>)";

TEST_F(EditorPanels, SectionsListTheirPointsDistanceAndTimedDuration) {
    // Two timed sections of a track, then an untimed route.
    auto untimed = walk(2, 0, 60, 48.2);
    for (auto& point : untimed) {
        point.time.reset();
    }
    openDocument(gpxDocument({walk(3), walk(4, 3600, 90, 48.3)}, "Runde", {untimed}));
    SectionTableModel rows;
    rows.setTrack(model().track());
    ASSERT_EQ(rows.rowCount(), 3);
    const auto cell = [&](int row, int column) {
        return rows.data(rows.index(row, column)).toString();
    };
    EXPECT_EQ(cell(0, SectionTableModel::nameColumn), "Runde · Abschnitt 1");
    EXPECT_EQ(cell(1, SectionTableModel::pointsColumn), "4");
    EXPECT_EQ(cell(0, SectionTableModel::distanceColumn), "222 m");
    EXPECT_EQ(cell(1, SectionTableModel::distanceColumn), "334 m");
    EXPECT_EQ(cell(1, SectionTableModel::durationColumn), "4 min 30 s");
    EXPECT_EQ(cell(2, SectionTableModel::durationColumn), "–");
    EXPECT_EQ(rows.rowForPoint(0), 0);
    EXPECT_EQ(rows.rowForPoint(3), 1);
    EXPECT_EQ(rows.rowForPoint(8), 2);
    EXPECT_EQ(rows.rowForPoint(9), -1);
    EXPECT_EQ(rows.section(1)->pointIDs.front(), 3);
}

TEST(PointTexts, EveryNameOfUTCReadsUTC) {
    for (const char* name : {"UTC", "Etc/UTC", "Etc/Zulu", "Universal"}) {
        EXPECT_EQ(zoneText(*date::locate_zone(name)), "UTC") << name;
    }
    EXPECT_EQ(zoneText(*date::locate_zone("Europe/Berlin")), "Europe/Berlin");
    EXPECT_EQ(zoneText(*date::locate_zone("Etc/GMT+2")), "Etc/GMT+2");
}

TEST_F(EditorPanels, PointDetailsNameTheZoneAndShowOnlyTheReadingsPresent) {
    openDocument(withReadings);
    const auto& zone = *date::locate_zone("Europe/Berlin");
    const auto details = pointDetails(*model().track(), 1, zone);
    const std::vector<PointDetail> expected{
        {"Punkt", "2 von 3"},
        {"Abschnitt", "Runde"},
        {"Zeit", "01.06.2025 12:01:00 Europe/Berlin"},
        {"Koordinaten", "48,10100° N, 11,50000° O"},
        {"Höhe", "520,5 m"},
        {"Herzfrequenz", "142 /min"},
        {"Temperatur", "21,5 °C"},
        {"Geschwindigkeit", "9 km/h"},
    };
    EXPECT_EQ(details, expected);
    // A point without elevation or readings keeps its fixed rows only.
    const auto plain = pointDetails(*model().track(), 2, zone);
    ASSERT_EQ(plain.size(), 5u);
    EXPECT_EQ(plain[2].value, "–");
    EXPECT_EQ(plain[3].value, "33,00000° S, 70,50000° W");
    EXPECT_EQ(plain[4].value, "–");
    EXPECT_TRUE(pointDetails(*model().track(), 3, zone).empty());
}

} // namespace
} // namespace trackloom::testing
