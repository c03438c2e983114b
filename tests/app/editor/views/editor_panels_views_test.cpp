// The editor's data panels offscreen: the lists, the elevation profile and the
// point details on real documents, and how each passes a choice on to the
// model or the map.

#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"
#include "app/editor/elevation_profile_view.h"
#include "app/editor/point_details_view.h"
#include "app/editor/section_list_view.h"
#include "app/editor/section_table_model.h"
#include "app/editor/summary_view.h"
#include "app/editor/waypoint_list_view.h"
#include "app/editor/waypoint_table_model.h"
#include "app/map/map_widget.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace trackloom {
namespace {

// Two sections climbing 100 m and falling 30 m, with a stretch without
// elevation in the second, and two waypoints.
const char* hike = R"(<?xml version="1.0"?>
<gpx version="1.1" xmlns="http://www.topografix.com/GPX/1/1">
 <wpt lat="48.1" lon="11.5"><name>Parkplatz</name><time>2025-06-01T10:00:00Z</time></wpt>
 <wpt lat="48.105" lon="11.51"><name>Hütte</name></wpt>
 <trk><name>Tour</name>
  <trkseg>
   <trkpt lat="48.100" lon="11.5"><ele>600</ele><time>2025-06-01T10:00:00Z</time></trkpt>
   <trkpt lat="48.101" lon="11.5"><ele>650</ele><time>2025-06-01T10:10:00Z</time></trkpt>
   <trkpt lat="48.102" lon="11.5"><ele>700</ele><time>2025-06-01T10:20:00Z</time></trkpt>
  </trkseg>
  <trkseg>
   <trkpt lat="48.103" lon="11.5"><ele>700</ele><time>2025-06-01T10:30:00Z</time></trkpt>
   <trkpt lat="48.104" lon="11.5"><time>2025-06-01T10:40:00Z</time></trkpt>
   <trkpt lat="48.105" lon="11.5"><ele>670</ele><time>2025-06-01T10:50:00Z</time></trkpt>
  </trkseg>
 </trk>
</gpx>)";

const char* flat = R"(<?xml version="1.0"?>
<gpx version="1.1" xmlns="http://www.topografix.com/GPX/1/1"><trk><trkseg>
 <trkpt lat="48.1" lon="11.5"/><trkpt lat="48.2" lon="11.5"/>
</trkseg></trk></gpx>)";

class EditorPanelScreens : public testing::ApplicationTest {
  protected:
    EditorPanelScreens()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat),
          model(store, dialogs, *date::locate_zone("UTC")), commands(model) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void open(const char* content, const QString& name = "tour.gpx") {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        model.load(file.fileName());
        settle();
        ASSERT_TRUE(model.track()) << model.error().value_or("").toStdString();
    }

    void settle() {
        const QDeadlineTimer deadline(30000);
        while (model.busy() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        QCoreApplication::processEvents();
        ASSERT_FALSE(model.busy());
    }

    template <typename Screen> void show(Screen& screen, QSize size = {700, 300}) {
        screen.resize(size);
        screen.show();
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    QSettings store;
    testing::ScriptedDialogs dialogs;
    EditorModel model;
    EditorCommands commands;
};

TEST_F(EditorPanelScreens, WaypointsAreListedAndCentreTheMap) {
    MapWidget map(nullptr);
    map.resize(400, 300);
    WaypointListView view(model, &map);
    show(view);
    EXPECT_TRUE(view.showsEmptyNote());
    open(hike);
    ASSERT_FALSE(view.showsEmptyNote());
    ASSERT_EQ(view.rows()->rowCount(), 2);
    const auto cell = [&](int row, int column) {
        return view.rows()->data(view.rows()->index(row, column)).toString();
    };
    EXPECT_EQ(cell(0, WaypointTableModel::nameColumn), "Parkplatz");
    EXPECT_EQ(cell(0, WaypointTableModel::timeColumn), "01.06.2025 10:00:00 UTC");
    EXPECT_EQ(cell(1, WaypointTableModel::coordinateColumn), "48,10500° N, 11,51000° O");

    const double zoom = map.viewport().zoom();
    view.table()->selectRow(1);
    const MapPoint centre = map.viewport().centre();
    const MapPoint hut = project(Coordinate{48.105, 11.51});
    EXPECT_NEAR(centre.x, hut.x, 1e-9);
    EXPECT_NEAR(centre.y, hut.y, 1e-9);
    EXPECT_EQ(map.viewport().zoom(), zoom);

    open(flat, "flach.gpx");
    EXPECT_TRUE(view.showsEmptyNote());
}

TEST_F(EditorPanelScreens, SectionsSelectTheirFirstPointAndExportTheChosenOne) {
    SectionListView view(model, commands.exportSection);
    show(view);
    open(hike);
    ASSERT_EQ(view.rows()->rowCount(), 2);
    view.table()->selectRow(1);
    EXPECT_EQ(model.selectedPointID(), 3);
    // A point chosen elsewhere selects its section here.
    model.selectPoint(1);
    EXPECT_EQ(view.table()->selectionModel()->selectedRows().value(0).row(), 0);
    model.selectPoint(std::nullopt);
    EXPECT_TRUE(view.table()->selectionModel()->selectedRows().isEmpty());

    view.table()->selectRow(1);
    const QString destination = folder.filePath("abschnitt.gpx");
    dialogs.filesToSave.push_back(destination);
    auto* button = view.findChild<QToolButton*>();
    ASSERT_TRUE(button && button->isEnabled());
    button->click();
    settle();
    QFile written(destination);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly)) << model.error().value_or("").toStdString();
    const auto section = GPXTrack::read(written.readAll().toStdString(), "abschnitt.gpx");
    ASSERT_EQ(section->points().size(), 3u);
    EXPECT_EQ(section->points().front().latitude, 48.103);
}

TEST_F(EditorPanelScreens, ElevationProfileSpansTheTrackAndSelectsByClick) {
    ElevationProfileView view(model);
    show(view);
    open(flat, "flach.gpx");
    EXPECT_TRUE(view.isEmpty());
    open(hike);
    ASSERT_FALSE(view.isEmpty());
    EXPECT_LE(view.axisBottom(), 600);
    EXPECT_GE(view.axisTop(), 700);
    EXPECT_LT(view.axisTop() - view.axisBottom(), 150);
    // The right end is the last point; it has an elevation.
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(view.width() - 13, view.height() / 2));
    EXPECT_EQ(model.selectedPointID(), 5);
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(2, view.height() / 2));
    EXPECT_EQ(model.selectedPointID(), 0);
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(EditorPanelScreens, PointDetailsFollowTheSelection) {
    PointDetailsView view(model);
    show(view, {320, 400});
    open(hike);
    EXPECT_EQ(view.value("Punkt"), QString());
    model.selectPoint(4);
    EXPECT_EQ(view.value("Punkt"), "5 von 6");
    EXPECT_EQ(view.value("Zeit"), "01.06.2025 10:40:00 UTC");
    EXPECT_EQ(view.value("Höhe"), "–");
    model.selectPoint(5);
    EXPECT_EQ(view.value("Höhe"), "670 m");
    EXPECT_EQ(view.value("Herzfrequenz"), QString());
}

TEST_F(EditorPanelScreens, SummaryAddsAscentAndDescent) {
    SummaryView view(model);
    show(view, {320, 600});
    open(hike);
    EXPECT_EQ(view.value("Anstieg"), "100 m");
    EXPECT_EQ(view.value("Abstieg"), "30 m");
    open(flat, "flach.gpx");
    EXPECT_EQ(view.value("Anstieg"), "–");
}

} // namespace
} // namespace trackloom
