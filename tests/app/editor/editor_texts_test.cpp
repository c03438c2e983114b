#include "app/editor/editor_texts.h"
#include "app/editor/interval_table_model.h"
#include "core/track/sample_track.h"
#include "tests/app/editor/editor_test_support.h"

namespace trackloom::testing {
namespace {

TEST(EditorTexts, SuggestedExportNamesNeverRepeatTheOpenedName) {
    coreApplication();
    EXPECT_EQ(editedExportName("Runde.am.See.gpx"), "Runde.am.See (bearbeitet).gpx");
    EXPECT_EQ(editedExportName(""), "Track (bearbeitet).gpx");
    EXPECT_EQ(singleTrackExportName("a.gpx"), "a (ein Track).gpx");
    EXPECT_EQ(sectionExportName("a.gpx", "Hin/Rück: 2"), "a – Hin-Rück- 2.gpx");
}

TEST(EditorTexts, AppendReportWithoutAPreviousTrackIsOnlyTheCount) {
    coreApplication();
    EXPECT_EQ(appendReport(nullptr, *sampleTrack(), 241),
              "Track angehängt · 241 Punkte · Rückgängig ist möglich.");
    const auto sample = sampleTrack();
    // The sample is a closed loop: appended to itself it starts where it ended.
    EXPECT_EQ(appendReport(sample.get(), *sample, 482),
              "Track angehängt · 482 Punkte · Rückgängig ist möglich. Abstand am Übergang: 0,0 m. "
              "Achtung: Der neue Track beginnt 55 min 42 s vor dem Ende des bisherigen Tracks.");
}

class IntervalTable : public ::testing::Test {
  protected:
    IntervalTable() { coreApplication(); }
    IntervalTableModel table;
};

TEST_F(IntervalTable, ShowsEveryLegOrOnlyTheSuspiciousOnes) {
    const auto track = GPXTrack::read(
        gpxDocument({walk(4, 0, 60), {{48.2, 11.5, 600}, {48.201, 11.5, 600}}}), "t.gpx");
    table.setTrack(track);
    EXPECT_EQ(table.rowCount(), 4);
    EXPECT_EQ(table.data(table.index(0, IntervalTableModel::fromColumn)).toString(), "1");
    EXPECT_EQ(table.data(table.index(3, IntervalTableModel::speedColumn)).toString(),
              "Identische Zeitstempel");
    EXPECT_EQ(table.data(table.index(2, IntervalTableModel::totalColumn)).toString(), "0,334");
    // One decimal in every row, also for whole seconds, so that the column lines up.
    EXPECT_EQ(table.data(table.index(0, IntervalTableModel::secondsColumn)).toString(), "60,0");

    table.setFilter(true, 6);
    ASSERT_EQ(table.rowCount(), 4);
    table.setFilter(true, 7);
    ASSERT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.leg(0)->id, 3);
    EXPECT_TRUE(table.data(table.index(0, 0), IntervalTableModel::suspiciousRole).toBool());

    table.setFilter(false, 7);
    EXPECT_FALSE(table.data(table.index(0, 0), IntervalTableModel::suspiciousRole).toBool());
}

TEST_F(IntervalTable, FindsTheRowOfAPoint) {
    const auto track =
        GPXTrack::read(gpxDocument({walk(3), {{48.2, 11.5, 600}, {48.3, 11.5, 601}}}), "t.gpx");
    table.setTrack(track);
    EXPECT_EQ(table.rowForPoint(0), 0);
    // The last point of a section shows the leg into it.
    EXPECT_EQ(table.rowForPoint(2), 1);
    EXPECT_EQ(table.rowForPoint(3), 2);
    EXPECT_EQ(table.rowForPoint(9), -1);
    table.setFilter(true, 80);
    EXPECT_EQ(table.rowForPoint(3), 0);
    EXPECT_EQ(table.rowForPoint(0), -1);
}

} // namespace
} // namespace trackloom::testing
