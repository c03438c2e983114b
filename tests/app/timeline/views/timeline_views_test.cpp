// The timeline's screens, offscreen, on a model holding a small generated
// history: each screen follows the model and hands a user's input back to it.

#include "app/map/map_widget.h"
#include "app/map/tile_source.h"
#include "app/shell/data_calendar_button.h"
#include "app/shell/data_calendar_view.h"
#include "app/shell/main_window.h"
#include "app/shell/screenshot.h"
#include "app/shell/shell_menus.h"
#include "app/timeline/timeline_day_list.h"
#include "app/timeline/timeline_day_view.h"
#include "app/timeline/timeline_inspector.h"
#include "app/timeline/timeline_map.h"
#include "app/timeline/timeline_point_table.h"
#include "app/timeline/timeline_point_view.h"
#include "app/timeline/timeline_scope_bar.h"
#include "app/timeline/timeline_view.h"
#include "app/timeline/timeline_workspace.h"
#include "tests/app/timeline/views/timeline_views_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace trackloom {
namespace {

class TimelineScreens : public testing::ApplicationTest {
  protected:
    TimelineScreens() : model(dialogs, *date::locate_zone("UTC")) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void load(const std::vector<TimelinePoint>& points = testing::bonnHistory()) {
        model.load(testing::writeHistory(folder, points));
        testing::settle([this] { return model.busy(); });
        ASSERT_TRUE(model.session());
    }

    template <typename Screen> void show(Screen& screen, QSize size = {900, 600}) {
        screen.resize(size);
        screen.show();
        QCoreApplication::processEvents();
    }

    std::int64_t idOf(TimelinePointKind kind) const {
        for (const auto& point : model.points()) {
            if (point.kind == kind) {
                return point.id;
            }
        }
        ADD_FAILURE() << "no such point shown";
        return -1;
    }

    QTemporaryDir folder;
    testing::ScriptedDialogs dialogs;
    TimelineModel model;
};

TEST_F(TimelineScreens, PointTableSelectionFollowsTheModelBothWaysAlsoWhenSorted) {
    TimelinePointView view(model);
    show(view);
    load();
    QTableView* table = view.table();
    ASSERT_EQ(table->model()->rowCount(), static_cast<int>(model.points().size()));
    const auto* rows = view.rows();
    EXPECT_EQ(rows->headerData(0, Qt::Horizontal).toString(), "Zeit");
    EXPECT_EQ(rows->headerData(5, Qt::Horizontal).toString(), "Ende");

    // Sorting by latitude, descending, puts the rows in another order than the model's.
    table->sortByColumn(TimelinePointTable::latitudeColumn, Qt::DescendingOrder);
    table->selectRow(0);
    double highest = -90;
    for (const auto& point : model.points()) {
        highest = std::max(highest, point.latitude);
    }
    ASSERT_EQ(model.selection().size(), 1u);
    const auto chosen = *model.selection().begin();
    const auto row = rows->rowOf(chosen);
    ASSERT_GE(row, 0);
    EXPECT_DOUBLE_EQ(model.points()[static_cast<std::size_t>(row)].latitude, highest);

    const auto visit = idOf(TimelinePointKind::visit);
    const auto path = model.points().front().id;
    model.setSelection({visit, path});
    const auto selected = table->selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 2);
    std::set<std::int64_t> shown;
    for (const auto& index : selected) {
        shown.insert(index.data(TimelinePointTable::idRole).toLongLong());
    }
    EXPECT_EQ(shown, (std::set<std::int64_t>{visit, path}));

    const auto before = model.points().size();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_EQ(model.points().size(), before - 2);
    EXPECT_EQ(table->model()->rowCount(), static_cast<int>(before - 2));
    EXPECT_TRUE(model.canUndo());
}

TEST_F(TimelineScreens, PointTableTextsComeFromTheModel) {
    TimelinePointTable rows(model);
    load();
    const auto visit = rows.rowOf(idOf(TimelinePointKind::visit));
    ASSERT_GE(visit, 0);
    const auto text = [&](int row, int column) {
        return rows.index(row, column).data().toString();
    };
    EXPECT_EQ(text(visit, TimelinePointTable::kindColumn), "Aufenthalt");
    EXPECT_EQ(text(visit, TimelinePointTable::labelColumn), "Hofgarten");
    EXPECT_EQ(text(visit, TimelinePointTable::latitudeColumn), "50.737400");
    const auto& point = model.points()[static_cast<std::size_t>(visit)];
    EXPECT_EQ(text(visit, TimelinePointTable::timeColumn), model.clockText(point.time));
    EXPECT_EQ(text(visit, TimelinePointTable::endColumn), model.clockText(*point.endTime));
    EXPECT_TRUE(text(0, TimelinePointTable::endColumn).isEmpty()) << "path points have no end";
}

TEST_F(TimelineScreens, DayListSearchesOrdersAndShowsTheClickedDay) {
    TimelineDayView view(model);
    show(view, {300, 500});
    load();
    TimelineDayList* rows = view.rows();
    ASSERT_EQ(rows->rowCount(), 3);
    // Newest first: the shown (newest) day is the first row.
    EXPECT_TRUE(rows->index(0).data(TimelineDayList::shownRole).toBool());
    const QString count = rows->index(0).data(TimelineDayList::countRole).toString();
    const QString times = rows->index(0).data(TimelineDayList::timesRole).toString();
    EXPECT_TRUE(count.startsWith("63 Punkte · ")) << count.toStdString();
    EXPECT_TRUE(count.endsWith(" km") || count.endsWith(" m")) << count.toStdString();
    EXPECT_TRUE(times.startsWith("08:00:00 – ")) << times.toStdString();
    EXPECT_TRUE(times.endsWith(" · 1 Aufenthalt")) << times.toStdString();

    view.order()->setCurrentIndex(1);
    EXPECT_FALSE(model.newestFirst());
    EXPECT_EQ(rows->dayAt(0), Instant(testing::firstDay));

    QTest::keyClicks(view.search(), "poppelsdorf");
    EXPECT_EQ(model.daySearch(), "poppelsdorf");
    ASSERT_EQ(rows->rowCount(), 1);
    const QRect second = view.list()->visualRect(rows->index(0));
    QTest::mouseClick(view.list()->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(model.selectedDay(), Instant(testing::firstDay + 86400));
    EXPECT_TRUE(rows->index(0).data(TimelineDayList::shownRole).toBool());
}

TEST_F(TimelineScreens, ScopeBarStepsSwitchesToARangeAndFollowsTheModel) {
    TimelineScopeBar bar(model);
    show(bar, {1000, 80});
    load();
    EXPECT_EQ(bar.titleText(), model.scopeTitle());
    EXPECT_EQ(bar.calendar()->start(), *model.selectedDay());
    QToolButton* back = nullptr;
    for (auto* button : bar.findChildren<QToolButton*>()) {
        if (button->toolTip() == "Einen Tag zurück") {
            back = button;
        }
    }
    ASSERT_TRUE(back);
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(model.selectedDay(), Instant(testing::firstDay + 86400));
    EXPECT_EQ(bar.titleText(), model.dayText(Instant(testing::firstDay + 86400)));

    EXPECT_FALSE(bar.fromField()->isVisible());
    bar.rangeToggle()->click();
    EXPECT_TRUE(model.rangeMode());
    EXPECT_TRUE(bar.fromField()->isVisible());
    EXPECT_EQ(bar.fromField()->displayFormat(), "dd.MM.yyyy") << "whole days show dates only";
    bar.fromField()->setDateTime(QDateTime(QDate(2025, 6, 1), QTime(0, 0), Qt::UTC));
    bar.toField()->setDateTime(QDateTime(QDate(2025, 6, 2), QTime(0, 0), Qt::UTC));
    bar.applyButton()->click();
    ASSERT_TRUE(model.appliedRange());
    EXPECT_EQ(model.appliedRange()->start, Instant(testing::firstDay));
    EXPECT_EQ(model.appliedRange()->end, Instant(testing::firstDay + 2 * 86400));
    EXPECT_EQ(bar.titleText(), model.scopeTitle());

    bar.wholeDays()->click();
    EXPECT_FALSE(model.wholeDays());
    EXPECT_EQ(bar.fromField()->displayFormat(), "dd.MM.yyyy HH:mm");

    for (auto* box : bar.findChildren<QCheckBox*>()) {
        if (box->text() == "Grobe Fahrt") {
            box->click();
        }
    }
    EXPECT_TRUE(model.showActivities());
}

TEST_F(TimelineScreens, ZoneChooserOnlyTakesKnownZones) {
    TimelineScopeBar bar(model);
    show(bar, {1000, 80});
    load();
    QComboBox* zones = bar.zoneChooser();
    ASSERT_GT(zones->findText("Europe/Berlin"), 0);
    zones->setEditText("Europe/Ber");
    emit zones->textActivated("Europe/Ber");
    EXPECT_EQ(model.zoneIdentifier(), "UTC");
    EXPECT_EQ(zones->currentText(), "UTC");
    emit zones->textActivated("Europe/Berlin");
    testing::settle([this] { return model.busy(); });
    EXPECT_EQ(model.zoneIdentifier(), "Europe/Berlin");
}

class TimelineMapScreen : public TimelineScreens {
  protected:
    void SetUp() override {
        show(screen, {800, 600});
        load();
        testing::settle([this] { return screen.isPreparing(); });
        map = screen.map();
    }

    QPoint screenOf(std::int64_t id) const {
        for (const auto& point : model.points()) {
            if (point.id == id) {
                return map->viewport()
                    .toScreen(Coordinate{point.latitude, point.longitude})
                    .toPoint();
            }
        }
        ADD_FAILURE() << "point " << id << " is not shown";
        return {};
    }

    TimelineMap screen{model, nullptr};
    MapWidget* map = nullptr;
};

TEST_F(TimelineMapScreen, ClicksSelectAndControlClicksToggle) {
    const auto first = model.points().front().id;
    const auto visit = idOf(TimelinePointKind::visit);
    QTest::mouseClick(map, Qt::LeftButton, {}, screenOf(first));
    EXPECT_EQ(model.selection(), std::set<std::int64_t>{first});
    QTest::mouseClick(map, Qt::LeftButton, Qt::ControlModifier, screenOf(visit));
    EXPECT_EQ(model.selection(), (std::set<std::int64_t>{first, visit}));
    QTest::mouseClick(map, Qt::LeftButton, Qt::ControlModifier, screenOf(first));
    EXPECT_EQ(model.selection(), std::set<std::int64_t>{visit});
    // A click on empty map clears the selection, a Ctrl-click there keeps it.
    QTest::mouseClick(map, Qt::LeftButton, Qt::ControlModifier, QPoint(5, 5));
    EXPECT_EQ(model.selection(), std::set<std::int64_t>{visit});
    QTest::mouseClick(map, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_TRUE(model.selection().empty());
}

TEST_F(TimelineMapScreen, ShiftDragSelectsTheBandedPointsWithoutPanning) {
    // The band covers the first walk's first ten points and nothing else.
    const auto& points = model.points();
    const QPoint from = screenOf(points[0].id) + QPoint(-2, 2);
    const QPoint to = screenOf(points[9].id) + QPoint(2, -2);
    const auto viewport = map->viewport();
    QTest::mousePress(map, Qt::LeftButton, Qt::ShiftModifier, from);
    QTest::mouseMove(map, (from + to) / 2);
    QTest::mouseMove(map, to);
    QTest::mouseRelease(map, Qt::LeftButton, Qt::ShiftModifier, to);
    EXPECT_EQ(map->viewport(), viewport);
    std::set<std::int64_t> expected;
    for (int i = 0; i < 10; ++i) {
        expected.insert(points[static_cast<std::size_t>(i)].id);
    }
    EXPECT_EQ(model.selection(), expected);

    // Without Shift the same drag pans and keeps the selection.
    QTest::mousePress(map, Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseMove(map, QPoint(60, 50));
    QTest::mouseRelease(map, Qt::LeftButton, {}, QPoint(60, 50));
    EXPECT_NE(map->viewport(), viewport);
    EXPECT_EQ(model.selection(), expected);
}

TEST_F(TimelineMapScreen, DraggingASelectedPointMovesItInOneUndoStep) {
    const auto id = model.points()[5].id;
    const QPoint from = screenOf(id);
    const auto viewport = map->viewport();
    // An unselected point is not dragged: the map pans instead.
    QTest::mousePress(map, Qt::LeftButton, {}, from);
    QTest::mouseMove(map, from + QPoint(30, 0));
    QTest::mouseRelease(map, Qt::LeftButton, {}, from + QPoint(30, 0));
    EXPECT_FALSE(model.canUndo());
    map->setViewport(viewport);

    model.setSelection({id});
    QTest::mousePress(map, Qt::LeftButton, {}, from);
    QTest::mouseMove(map, from + QPoint(15, 10));
    QTest::mouseMove(map, from + QPoint(30, 20));
    QTest::mouseRelease(map, Qt::LeftButton, {}, from + QPoint(30, 20));
    EXPECT_EQ(map->viewport(), viewport);
    ASSERT_TRUE(model.canUndo());
    EXPECT_FALSE(model.undoName().isEmpty());
    EXPECT_EQ(screenOf(id), from + QPoint(30, 20));
    model.undo();
    EXPECT_FALSE(model.canUndo());
    EXPECT_EQ(screenOf(id), from);
}

TEST_F(TimelineMapScreen, PickingAPositionFillsTheInspectorInsteadOfSelecting) {
    const auto id = model.points()[3].id;
    model.setSelection({id});
    model.setMoveOnMap(true);
    const Coordinate where = map->viewport().toCoordinate(QPointF(100, 120));
    QTest::mouseClick(map, Qt::LeftButton, {}, QPoint(100, 120));
    EXPECT_EQ(model.selection(), std::set<std::int64_t>{id});
    EXPECT_FALSE(model.moveOnMap());
    EXPECT_NEAR(model.latitude().toDouble(), where.latitude, 1e-5);
    EXPECT_NEAR(model.longitude().toDouble(), where.longitude, 1e-5);
}

TEST_F(TimelineMapScreen, ASelectionOffScreenIsPannedToAtTheSameZoom) {
    const auto id = model.points()[0].id;
    model.setSelection({id});
    map->setViewport(map->viewport().panned({2000, 0}));
    const double zoom = map->viewport().zoom();
    screen.revealSelection();
    EXPECT_EQ(map->viewport().zoom(), zoom);
    EXPECT_TRUE(QRect(QPoint(), map->size()).contains(screenOf(id)));
}

TEST_F(TimelineScreens, InspectorOffersWhatTheSelectionAllows) {
    TimelineInspector inspector(model);
    show(inspector, {320, 700});
    load();
    EXPECT_FALSE(inspector.applyButton()->isEnabled());
    EXPECT_FALSE(inspector.deleteButton()->isEnabled());

    model.setSelection({model.points()[4].id});
    EXPECT_TRUE(inspector.applyButton()->isEnabled());
    EXPECT_TRUE(inspector.splitButton()->isEnabled());
    EXPECT_FALSE(inspector.visitEnd()->isVisible()) << "only visits have an end";
    model.setSelection({idOf(TimelinePointKind::visit)});
    EXPECT_TRUE(inspector.visitEnd()->isVisible());
    EXPECT_FALSE(inspector.splitButton()->isEnabled());
    EXPECT_EQ(inspector.label()->text(), "Hofgarten");

    inspector.latitude()->clear();
    QTest::keyClicks(inspector.latitude(), "95");
    EXPECT_EQ(model.latitude(), "95");
    inspector.applyButton()->click();
    EXPECT_EQ(inspector.errorText(), "Bitte gültige Koordinaten eingeben.");
    EXPECT_FALSE(model.canUndo());

    inspector.latitude()->clear();
    QTest::keyClicks(inspector.latitude(), "50,74");
    inspector.label()->clear();
    QTest::keyClicks(inspector.label(), "Rheinaue");
    inspector.applyButton()->click();
    EXPECT_TRUE(inspector.errorText().isEmpty());
    EXPECT_EQ(inspector.statusText(), "Punkt geändert. Die Originaldatei bleibt unverändert.");
    EXPECT_EQ(inspector.label()->text(), "Rheinaue");
}

TEST_F(TimelineScreens, InspectorShowsTheImportWhileItRuns) {
    TimelineInspector inspector(model);
    show(inspector, {320, 700});
    model.load(testing::writeHistory(folder, testing::bonnHistory(40, 400)));
    EXPECT_TRUE(inspector.progressShown());
    EXPECT_EQ(inspector.statusText(), "Zeitachse wird im Hintergrund eingelesen …");
    testing::settle([this] { return model.busy(); });
    EXPECT_FALSE(inspector.progressShown());
    EXPECT_TRUE(inspector.statusText().contains("40 Tage")) << inspector.statusText().toStdString();
}

class TimelineInTheShell : public testing::ApplicationTest {
  protected:
    TimelineInTheShell()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat), settings(store),
          tiles(QString(), QString(), nullptr),
          window(std::make_unique<MainWindow>(settings, dialogs, tiles)) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        auto owned =
            std::make_unique<TimelineWorkspace>(dialogs, nullptr, *date::locate_zone("UTC"));
        workspace = owned.get();
        window->addWorkspace(std::move(owned));
    }

    QTemporaryDir folder;
    QSettings store;
    AppSettings settings;
    TileSource tiles;
    testing::ScriptedDialogs dialogs;
    std::unique_ptr<MainWindow> window;
    TimelineWorkspace* workspace = nullptr;
};

TEST_F(TimelineInTheShell, OpensHistoriesAndNamesItsUndoStepsInTheMenu) {
    EXPECT_EQ(workspace->title(), "Zeitachse");
    EXPECT_TRUE(workspace->canOpen("/tmp/Records.JSON"));
    EXPECT_TRUE(workspace->canOpen("/tmp/Verlauf.gpxhistory"));
    EXPECT_FALSE(workspace->canOpen("/tmp/Runde.gpx"));

    window->openFiles({testing::writeHistory(folder, testing::bonnHistory())});
    testing::settle([this] { return window->isBusy(); });
    TimelineModel& model = workspace->model();
    EXPECT_EQ(model.selectedDay(), Instant(testing::firstDay + 2 * 86400));
    EXPECT_EQ(window->menus().undoAction()->text(), "Rückgängig");
    EXPECT_FALSE(window->menus().undoAction()->isEnabled());

    model.setSelection({model.points().front().id});
    model.deleteSelection();
    EXPECT_EQ(window->menus().undoAction()->text(), "Rückgängig: " + model.undoName());
    ASSERT_TRUE(workspace->unsavedWork());
    EXPECT_EQ(workspace->unsavedWork()->title, "Ungesicherte Änderungen");
    EXPECT_TRUE(window->isWindowModified());
    window->menus().undoAction()->trigger();
    EXPECT_TRUE(window->menus().redoAction()->text().startsWith("Wiederholen: "));

    // Another file asks before the edits are dropped; the default answer keeps them.
    window->openFiles(
        {testing::writeHistory(folder, testing::bonnHistory(1), "Zweiter.gpxhistory")});
    EXPECT_EQ(dialogs.questions.size(), 1u);
    EXPECT_EQ(model.days().size(), 3u);
}

TEST_F(TimelineInTheShell, AScreenshotShowsTheLoadedHistory) {
    window->openFiles({testing::writeHistory(folder, testing::bonnHistory())});
    const QString path = folder.filePath("shot.png");
    const auto error =
        writeScreenshot(*window, {1024, 700}, path, [this] { return window->isBusy(); });
    ASSERT_FALSE(error) << error->toStdString();
    EXPECT_FALSE(window->isBusy());
    EXPECT_EQ(window->activeWorkspace(), workspace);
    EXPECT_EQ(QImage(path).size(), QSize(1024, 700));
    EXPECT_EQ(workspace->model().points().size(), 61u) << "activities are hidden at first";
}

TEST_F(TimelineInTheShell, ShowsADayHandedOverAndStepsWithTheViewMenu) {
    window->openFiles({testing::writeHistory(folder, testing::bonnHistory())});
    testing::settle([this] { return window->isBusy(); });
    TimelineModel& model = workspace->model();
    workspace->showDay(Instant(testing::firstDay), date::locate_zone("UTC"));
    EXPECT_EQ(model.selectedDay(), Instant(testing::firstDay));
    workspace->commandActions().nextDay->trigger();
    EXPECT_EQ(model.selectedDay(), Instant(testing::firstDay + 86400));
    EXPECT_EQ(workspace->commandActions().nextDay->shortcut(),
              QKeySequence(Qt::ALT | Qt::Key_Right));
    EXPECT_TRUE(window->menus()
                    .menu(ShellMenu::view)
                    ->actions()
                    .contains(workspace->commandActions().previousDay));
    EXPECT_FALSE(workspace->commandActions().openInEditor->isEnabled()) << "no editor to receive";
}

} // namespace
} // namespace trackloom
