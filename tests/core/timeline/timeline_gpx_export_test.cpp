#include "core/timeline/timeline_session.h"
#include "core/track/gpx_track.h"
#include "timeline_test_support.h"

namespace trackloom {
namespace {

using testing::at;
using testing::pathPoint;
using testing::refusal;
using testing::visitPoint;
using testing::zone;

TimelinePoint activityPoint(std::int64_t segment, const std::string& time) {
    return {0,        segment,     TimelinePointKind::activity, 51, 8, at(time), std::nullopt,
            "IN_BUS", std::nullopt};
}

class TimelineExportTest : public ::testing::Test {
  protected:
    // Berlin is two hours ahead of UTC in May.
    TimelineSession session{
        TimelineDocument({pathPoint(0, 10, "2024-05-01T06:00:00Z", 50.5, 7.25),
                          pathPoint(0, 10, "2024-05-01T06:10:00.5Z", 50.6, 7.5),
                          activityPoint(20, "2024-05-01T07:00:00Z"),
                          activityPoint(20, "2024-05-01T07:30:00Z"),
                          visitPoint(0, 30, "2024-05-01T08:00:00Z", "2024-05-01T21:00:00Z", ""),
                          visitPoint(0, 40, "2024-05-03T08:00:00Z", "2024-05-03T09:00:00Z",
                                     "Caf\xc3\xa9 <Ecke> & Co\x01")},
                         {}),
        zone("Europe/Berlin")};
};

TEST_F(TimelineExportTest, TitleNamesTheDayOrTheFirstAndLastDay) {
    const TimelineCalendar berlin(zone("Europe/Berlin"));
    const auto day = *berlin.dayInterval(at("2024-05-01T12:00:00Z"));
    EXPECT_EQ(timelineExportTitle(day, berlin), "Google-Zeitachse 2024-05-01");
    const DateInterval range{*berlin.startOfDate(2024, 5, 1), *berlin.startOfDate(2024, 5, 4)};
    EXPECT_EQ(timelineExportTitle(range, berlin),
              "Google-Zeitachse 2024-05-01 \xe2\x80\x93 2024-05-03");
}

TEST_F(TimelineExportTest, DayBecomesOneTrackPerSegmentAndWaypointsForVisits) {
    const auto gpx = session.gpxOn(at("2024-05-01T12:00:00Z"), true, true);
    EXPECT_EQ(gpx.waypoints, 1);
    EXPECT_EQ(gpx.tracks, 2);
    EXPECT_EQ(gpx.trackPoints, 4);
    const auto& text = gpx.data;
    EXPECT_NE(text.find(R"(<metadata><name>Google-Zeitachse 2024-05-01</name></metadata>)"),
              std::string::npos);
    // The stay lasts until 23:00 in Berlin: within the day, so no note about clipping.
    EXPECT_NE(text.find(R"(<wpt lat="50" lon="7"><time>2024-05-01T08:00:00.000000Z</time>)"
                        R"(<name>Aufenthalt</name><desc>Aufenthalt bis 2024-05-01T21:00:00.000000Z)"
                        R"(</desc></wpt>)"),
              std::string::npos);
    EXPECT_NE(text.find(R"(<trk><name>Google-Zeitachse 2024-05-01</name><trkseg>)"
                        R"(<trkpt lat="50.5" lon="7.25"><time>2024-05-01T06:00:00.000000Z</time>)"),
              std::string::npos);
    EXPECT_NE(text.find("<trk><name>Grobe Fahrt \xe2\x80\x93 nur gespeicherte Endpunkte</name>"
                        "<desc>Keine aufgezeichnete Wegstrecke; Google hat nur Start und Ziel "
                        "gespeichert.</desc>"),
              std::string::npos);

    const auto track = GPXTrack::read(text, "export.gpx");
    ASSERT_EQ(track->segments().size(), 2u);
    EXPECT_EQ(track->points().size(), 4u);
    EXPECT_EQ(track->points()[1].time, at("2024-05-01T06:10:00.5Z"));
    EXPECT_EQ(track->points()[1].longitude, 7.5);
}

TEST_F(TimelineExportTest, SelectionFollowsTheKindsAndTheSegmentAsked) {
    const auto day = at("2024-05-01T12:00:00Z");
    EXPECT_EQ(session.gpxOn(day, false, false).trackPoints, 2);
    EXPECT_EQ(session.gpxOn(day, false, false).waypoints, 0);
    const auto range = *session.calendar().dayInterval(day);
    EXPECT_EQ(session.gpxIn(range, true, true, 20).trackPoints, 2);
    EXPECT_EQ(session.gpxIn(range, true, true, 20).waypoints, 0);

    const std::string nothing = "Für diese Auswahl gibt es keine Punkte zum Exportieren.";
    EXPECT_EQ(refusal([&] { session.gpxOn(at("2024-05-03T12:00:00Z"), true, false); }), nothing);
    EXPECT_EQ(refusal([&] { session.gpxIn(range, false, true, 20); }), nothing);
    EXPECT_EQ(refusal([&] { session.gpxOn(Instant(1e300), true, true); }), "Ungültiger Tag.");
}

TEST_F(TimelineExportTest, StayBeyondTheExportedDayIsMarkedAsClipped) {
    session.changeTimeZone(zone("UTC"));
    const auto gpx = session.gpxOn(at("2024-05-01T12:00:00Z"), false, true);
    EXPECT_NE(gpx.data.find("<desc>Aufenthalt bis 2024-05-01T21:00:00.000000Z</desc>"),
              std::string::npos);
    session.changeTimeZone(zone("Asia/Tokyo"));
    const auto clipped = session.gpxOn(at("2024-05-01T12:00:00Z"), false, true);
    EXPECT_NE(clipped.data.find("<desc>Aufenthalt bis 2024-05-01T21:00:00.000000Z; für den "
                                "ausgewählten Tag begrenzt.</desc>"),
              std::string::npos);
}

TEST_F(TimelineExportTest, LabelsAreEscapedAndStayReadable) {
    const auto gpx = session.gpxOn(at("2024-05-03T12:00:00Z"), false, true);
    EXPECT_NE(gpx.data.find("<name>Caf\xc3\xa9 &lt;Ecke&gt; &amp; Co\xef\xbf\xbd</name>"),
              std::string::npos);
    // A waypoint alone is no track, but it must still be well-formed GPX.
    EXPECT_NO_THROW(xml::Document::parse(gpx.data));
}

} // namespace
} // namespace trackloom
