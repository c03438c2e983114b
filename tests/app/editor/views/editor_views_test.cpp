// One smoke test per editor screen, offscreen: each is built on a model holding
// the sample track and answers the model's changes and a user's input.

#include "app/editor/edit_panel.h"
#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"
#include "app/editor/editor_view.h"
#include "app/editor/editor_workspace.h"
#include "app/editor/interval_table_model.h"
#include "app/editor/interval_table_view.h"
#include "app/editor/map_editor.h"
#include "app/editor/speed_legend.h"
#include "app/editor/speed_profile_view.h"
#include "app/editor/summary_view.h"
#include "app/editor/time_panel.h"
#include "app/map/map_widget.h"
#include "tests/app/editor/views/editor_screens.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

namespace trackloom {
namespace {

using testing::EditorScreens;

TEST_F(EditorScreens, EditorViewSwitchesFromTheInvitationToTheTrack) {
    EditorView view(model, commands, nullptr);
    show(view);
    EXPECT_FALSE(view.mapEditor()->isVisible());
    loadSample();
    EXPECT_TRUE(view.mapEditor()->isVisible());
    EXPECT_EQ(view.statusText(), "Beispieldaten geladen.");
    model.selectPoint(0);
    model.splitSelected();
    settle();
    EXPECT_TRUE(view.errorText().startsWith("Wähle einen Punkt innerhalb eines Abschnitts"));
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(EditorScreens, MapEditorSelectsAndInsertsWhereTheUserClicks) {
    MapEditor editor(model, nullptr);
    show(editor);
    loadSample();
    while (editor.isPreparing()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    MapWidget* map = editor.map();
    const auto screenOf = [&](std::size_t i) {
        return map->viewport().toScreen(model.mapPoints()[i].coordinate).toPoint();
    };
    QTest::mouseClick(map, Qt::LeftButton, {}, screenOf(30));
    EXPECT_EQ(model.selectedPointID(), 30);

    model.mapTool().setTool(MapTool::insert);
    const QPointF between = (QPointF(screenOf(60)) + QPointF(screenOf(61))) / 2;
    QTest::mouseClick(map, Qt::LeftButton, {}, between.toPoint());
    EXPECT_EQ(model.mapTool().insertAnchor(), 60);
    EXPECT_EQ(model.mapTool().pendingPoints().size(), 1u);
}

TEST_F(EditorScreens, IntervalTableFollowsAndSetsTheSelection) {
    IntervalTableView view(model);
    show(view);
    loadSample();
    EXPECT_EQ(view.rows()->rowCount(), 240);
    view.table()->selectRow(5);
    EXPECT_EQ(model.selectedPointID(), 5);
    model.selectPoint(151);
    EXPECT_EQ(view.table()->currentIndex().row(), 151);

    // Another file opens at its top, however far down the last one was.
    model.selectPoint(230);
    ASSERT_GT(view.table()->verticalScrollBar()->value(), 0);
    loadSample();
    EXPECT_EQ(view.table()->verticalScrollBar()->value(), 0);
    model.selectPoint(151);

    model.setThreshold(50);
    view.findChild<QCheckBox*>()->setChecked(true);
    ASSERT_EQ(view.rows()->rowCount(), 1);
    EXPECT_EQ(view.rows()->leg(0)->from, 151);
    EXPECT_EQ(view.table()->currentIndex().row(), 0);
}

TEST_F(EditorScreens, SpeedProfileSelectsTheIntervalUnderAClick) {
    SpeedProfileView view(model);
    show(view, {600, 200});
    loadSample();
    // The axis follows the ride, not the far higher threshold, which only a
    // marker names until it comes into range.
    EXPECT_LT(view.axisTop(), 40);
    EXPECT_GT(view.axisTop(), 15);
    EXPECT_FALSE(view.thresholdShown());
    model.setThreshold(20);
    EXPECT_TRUE(view.thresholdShown());
    EXPECT_LT(view.axisTop(), 40);
    model.setThreshold(80);
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(view.width() - 14, 100));
    ASSERT_TRUE(model.selectedPointID());
    EXPECT_GT(*model.selectedPointID(), 230);
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(EditorScreens, SummaryShowsTheFiguresOfTheTrack) {
    SummaryView view(model);
    show(view, {400, 500});
    EXPECT_EQ(view.value("Punkte"), "–");
    loadSample();
    EXPECT_EQ(view.value("Punkte"), "241");
    EXPECT_EQ(view.value("Start"), "01.06.2025 08:30:00 UTC");
    EXPECT_EQ(view.value("Gültige Intervalle"), "240");
}

TEST_F(EditorScreens, TimePanelShowsTheImpliedSpeedAndGeneratesOnRequest) {
    TimePanel panel(model);
    show(panel, {400, 500});
    loadSample();
    model.timeFields().setGenerate(true);
    model.timeFields().setGenerationMode(GenerationMode::startAndEnd);
    model.timeFields().setNewEnd(model.timeFields().newStart().advanced(3600));
    EXPECT_TRUE(panel.feedback().startsWith("Ø 11,3 km/h")) << panel.feedback().toStdString();
    model.timeFields().setNewEnd(model.timeFields().newStart());
    EXPECT_TRUE(panel.feedback().startsWith("Die Endzeit muss nach der Startzeit liegen."));

    model.timeFields().setGenerationMode(GenerationMode::speed);
    panel.applyButton()->click();
    settle();
    EXPECT_EQ(model.status(), "Zeitstempel mit 20 km/h erzeugt. Bereit zum Export.");
    EXPECT_TRUE(panel.feedback().endsWith("Übernommen."));
}

TEST_F(EditorScreens, TypedDigitsSetTheStartAfterAClick) {
    TimePanel panel(model);
    show(panel, {400, 500});
    loadSample();
    QDateTimeEdit* start = panel.startEdit();
    QTest::mouseClick(start, Qt::LeftButton, {}, QPoint(6, start->height() / 2));
    QTest::keyClicks(start, "10.05.2025 08:00:00");
    EXPECT_EQ(start->dateTime().toString("dd.MM.yyyy HH:mm:ss"), "10.05.2025 08:00:00");
    EXPECT_EQ(model.timeFields().newStart(), *GPXTrack::parseTime("2025-05-10T08:00:00Z"));
}

TEST_F(EditorScreens, EditPanelPassesTheSplitNamesOn) {
    EditPanel panel(model, commands);
    show(panel, {350, 700});
    auto* first = panel.findChildren<QLineEdit*>().at(0);
    first->selectAll();
    QTest::keyClicks(first, "Aufstieg");
    EXPECT_EQ(model.firstPartName(), "Aufstieg");
    EXPECT_FALSE(commands.split->isEnabled());
    loadSample();
    model.selectPoint(10);
    EXPECT_TRUE(commands.split->isEnabled());
}

TEST_F(EditorScreens, LegendNamesTheTopSpeed) {
    SpeedLegend legend;
    legend.setTop(34.56);
    EXPECT_EQ(legend.text(),
              "34,6 km/h (95 % der Abschnitte sind langsamer) · grau: ohne gültige Zeit");
    EXPECT_FALSE(legend.isHidden());
    legend.setTop(std::nullopt);
    EXPECT_TRUE(legend.isHidden());
}

TEST_F(EditorScreens, WorkspaceAnswersTheShell) {
    EditorWorkspace workspace(store, dialogs, nullptr, *date::locate_zone("UTC"));
    EXPECT_TRUE(workspace.canOpen("/tmp/Runde.GPX"));
    EXPECT_FALSE(workspace.canOpen("/tmp/Timeline.json"));
    ASSERT_TRUE(workspace.openSample());
    while (workspace.isBusy()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    EXPECT_FALSE(workspace.unsavedWork());
    EXPECT_EQ(workspace.documentName(), "Beispielrunde.gpx");
    workspace.model().selectPoint(0);
    workspace.model().deleteSelected();
    while (workspace.isBusy()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    ASSERT_TRUE(workspace.unsavedWork());
    EXPECT_EQ(workspace.unsavedWork()->title, "Ungesicherte GPX-Bearbeitung");
    EXPECT_TRUE(workspace.canUndo());

    workspace.model().timeFields().setGenerate(true);
    workspace.model().timeFields().setSyntheticSpeed(0);
    workspace.model().previewGenerated();
    ASSERT_FALSE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.messages.back().second,
              "Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.");
}

} // namespace
} // namespace trackloom
