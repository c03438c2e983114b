#include "tests/app/editor/editor_test_support.h"

#include <QSignalSpy>
#include <stdexcept>
#include <utility>

namespace trackloom::testing {
namespace {

using Edits = EditorModelTest;

TEST_F(Edits, SplitsAtTheSelectedPointAndUndoesAndRedoes) {
    openSample();
    model().selectPoint(100);
    model().setFirstPartName("Hin");
    model().setSecondPartName("Zurück");
    model().splitSelected();
    settle();
    ASSERT_EQ(model().track()->segments().size(), 2u);
    EXPECT_EQ(model().track()->segments()[1].name, "Zurück");
    EXPECT_EQ(model().status(),
              "Track geteilt. Beide Abschnitte behalten den gemeinsamen Grenzpunkt.");
    EXPECT_TRUE(model().structuralDirty());
    EXPECT_EQ(model().selectedPointID(), 100);
    EXPECT_TRUE(model().canMerge());

    model().undo();
    settle();
    EXPECT_EQ(model().track()->segments().size(), 1u);
    EXPECT_EQ(model().status(), "Track-Bearbeitung rückgängig gemacht.");
    EXPECT_TRUE(model().canRedo());

    model().redo();
    settle();
    EXPECT_EQ(model().track()->segments().size(), 2u);
    EXPECT_EQ(model().status(), "Track-Bearbeitung wiederhergestellt.");

    model().mergeSegments();
    settle();
    EXPECT_EQ(model().track()->segments().size(), 1u);
}

TEST_F(Edits, ARefusedEditChangesNothing) {
    openSample();
    const auto before = model().track();
    const int revision = model().mapRevision();
    model().selectPoint(0);
    model().splitSelected();
    settle();
    EXPECT_EQ(error(), "Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder "
                       "Ende.");
    EXPECT_EQ(model().track(), before);
    EXPECT_EQ(model().mapRevision(), revision);
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_FALSE(model().canUndo());
    ASSERT_TRUE(model().session());

    model().selectPoint(std::nullopt);
    model().deleteSelected();
    EXPECT_EQ(error(), "Bitte wähle einen Streckenpunkt aus.");

    model().selectPoint(50);
    model().setFirstPartName("  ");
    model().splitSelected();
    settle();
    EXPECT_EQ(error(), "Bitte gib beiden Abschnitten einen Namen.");
}

TEST_F(Edits, AnUnexpectedFailureBecomesTheErrorAndLeavesTheModelUsable) {
    const QString unexpected =
        "Unerwarteter interner Fehler. Die bisherigen Daten bleiben unverändert.";
    openSample();
    // Fails once while the result of the edit is being shown.
    bool failing = true;
    const auto connection = QObject::connect(&model(), &EditorModel::mapPointsChanged, [&] {
        if (std::exchange(failing, false)) {
            throw std::runtime_error("vector::_M_range_check");
        }
    });
    model().selectPoint(5);
    model().deleteSelected();
    settle();
    EXPECT_EQ(error(), unexpected);
    ASSERT_TRUE(model().canEdit());
    model().selectPoint(5);
    model().deleteSelected();
    settle();
    EXPECT_EQ(model().status(), "Punkt gelöscht.");

    failing = true;
    model().load(write("neu.gpx", gpxDocument({walk(4)})));
    settle();
    EXPECT_EQ(error(), unexpected);
    EXPECT_EQ(model().status(), "Import fehlgeschlagen.");
    QObject::disconnect(connection);
}

TEST_F(Edits, AnEditOfAReplacedTrackNeverReachesTheNewOne) {
    openSample();
    model().selectPoint(100);
    model().splitSelected();
    // The edit still runs when the next file is opened.
    EXPECT_TRUE(model().isEditing());
    model().load(write("neu.gpx", gpxDocument({walk(4)})));
    settle();
    EXPECT_EQ(model().track()->points().size(), 4u);
    EXPECT_EQ(model().track()->segments().size(), 1u);
    EXPECT_EQ(model().status(), "4 Punkte geladen.");
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_FALSE(model().canUndo());
    EXPECT_TRUE(model().canEdit());
}

TEST_F(Edits, TheMapIsToldWhatChangedAndRefitsOnlyForANewTrack) {
    openSample();
    QSignalSpy points(&model(), &EditorModel::mapPointsChanged);
    QSignalSpy fits(&model(), &EditorModel::fitRequested);
    QSignalSpy colours(&model(), &EditorModel::coloursChanged);
    model().selectPoint(10);
    model().deleteSelected();
    settle();
    EXPECT_EQ(points.count(), 1);
    EXPECT_EQ(fits.count(), 0);

    model().setColorBySpeed(true);
    EXPECT_EQ(points.count(), 1);
    EXPECT_GE(colours.count(), 1);
    ASSERT_TRUE(model().speedScale());

    dialogs.confirmations = {true};
    openSample();
    EXPECT_EQ(fits.count(), 1);
    EXPECT_EQ(points.count(), 2);
}

TEST_F(Edits, TrimsDeletesAndMovesPoints) {
    openDocument(gpxDocument({walk(10)}));
    model().selectPoint(2);
    model().trimBeforeSelected();
    settle();
    EXPECT_EQ(model().track()->points().size(), 8u);
    EXPECT_EQ(model().selectedPointID(), 0);

    model().selectPoint(5);
    model().trimAfterSelected();
    settle();
    EXPECT_EQ(model().track()->points().size(), 6u);

    model().selectPoint(5);
    model().deleteSelected();
    settle();
    EXPECT_EQ(model().status(), "Punkt gelöscht.");
    EXPECT_EQ(model().track()->points().size(), 5u);
    EXPECT_EQ(model().selectedPointID(), std::nullopt);

    model().dragPoint(1, {48.5, 11.6});
    settle();
    EXPECT_EQ(model().status(), "Punkt verschoben.");
    EXPECT_EQ(model().track()->points()[1].latitude, 48.5);
    EXPECT_EQ(model().mapPoints()[1].coordinate, (Coordinate{48.5, 11.6}));
    EXPECT_EQ(model().track()->points()[1].time, testTime(180));
}

TEST_F(Edits, InsertsPendingPointsAfterTheAnchor) {
    openDocument(gpxDocument({walk(4)}));
    model().selectPoint(1);
    model().mapTool().startInserting();
    EXPECT_EQ(model().mapTool().tool(), MapTool::insert);
    EXPECT_EQ(model().mapTool().insertAnchor(), 1);
    model().mapTool().mapClicked(std::nullopt, {48.1013, 11.5});
    model().mapTool().mapClicked(std::nullopt, {48.1016, 11.5});
    EXPECT_EQ(model().mapTool().pendingPoints().size(), 2u);

    model().mapTool().finishInserting();
    settle();
    EXPECT_EQ(model().status(), "Punkt(e) eingefügt.");
    ASSERT_EQ(model().track()->points().size(), 6u);
    EXPECT_NEAR(model().track()->points()[2].time->secondsSince(testTime(0)), 78, 0.001);
    EXPECT_TRUE(model().mapTool().pendingPoints().empty());
    EXPECT_EQ(model().selectedPointID(), 3);
}

TEST_F(Edits, InsertingOnTheLineNeedsALegAndSaysWhenTimesAreMissing) {
    auto points = walk(3);
    points[2].time.reset();
    openDocument(gpxDocument({points}));
    model().mapTool().setTool(MapTool::insert);
    model().mapTool().mapClicked(std::nullopt, {48.2, 11.5});
    EXPECT_TRUE(model().mapTool().pendingPoints().empty());

    model().mapTool().insertOnLine(2, {48.2, 11.5});
    EXPECT_TRUE(error().startsWith("Wähle einen Punkt, auf den im selben Abschnitt"));
    EXPECT_FALSE(model().mapTool().insertAnchor());

    model().mapTool().insertOnLine(1, {48.1015, 11.5});
    EXPECT_EQ(model().mapTool().insertAnchor(), 1);
    model().mapTool().finishInserting();
    settle();
    EXPECT_EQ(model().status(),
              "Punkt(e) eingefügt, ohne Zeit: Ein Nachbarpunkt hat keine Zeitangabe.");

    model().mapTool().setTool(MapTool::insert);
    model().mapTool().finishInserting();
    EXPECT_EQ(error(), "Es wurden keine Punkte gesetzt.");
}

TEST_F(Edits, SwitchingToolsDropsPendingPoints) {
    openDocument(gpxDocument({walk(4)}));
    model().selectPoint(0);
    model().mapTool().startInserting();
    model().mapTool().mapClicked(std::nullopt, {48.1005, 11.5});
    model().mapTool().setTool(MapTool::move);
    EXPECT_TRUE(model().mapTool().pendingPoints().empty());
    EXPECT_FALSE(model().mapTool().insertAnchor());
    model().mapTool().mapClicked(2, {});
    EXPECT_EQ(model().selectedPointID(), 2);
}

TEST_F(Edits, HidingAirRoutesIsRememberedAndNotAnUndoStep) {
    const auto track = walk(4);
    const std::vector<TestPoint> air{track.front(), track.back()};
    openDocument(gpxDocument({track}, "Flug", {air}));
    EXPECT_EQ(model().track()->points().size(), 4u);

    model().setAirRouteRemoval(false);
    settle();
    EXPECT_EQ(model().track()->points().size(), 6u);
    EXPECT_EQ(model().status(), "Luftlinien-Routen werden angezeigt, mitgerechnet und exportiert.");
    EXPECT_FALSE(model().removeAirRoutes());
    EXPECT_EQ(store.value("removeAirRoutes").toBool(), false);
    EXPECT_FALSE(model().canUndo());
    EXPECT_TRUE(model().mapPoints()[4].airRoute);

    model().selectPoint(4);
    EXPECT_FALSE(model().canEditSelected());
    model().selectPoint(3);
    EXPECT_TRUE(model().canEditSelected());

    model().setAirRouteRemoval(true);
    settle();
    EXPECT_EQ(model().status(), "Luftlinien-Routen ausgeblendet; sie werden beim Export entfernt.");
    EXPECT_EQ(model().track()->points().size(), 4u);
}

TEST_F(Edits, GeneratesTimesFromASpeedOfAtMostOneThousand) {
    model().previewGenerated();
    EXPECT_EQ(error(), "Bitte öffne zuerst einen Track.");

    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setGenerate(true);
    model().timeFields().setNewStart(testTime(3600));
    for (const double refused : {0.0, 1000.0001, -5.0}) {
        model().timeFields().setSyntheticSpeed(refused);
        model().previewGenerated();
        settle();
        EXPECT_EQ(error(),
                  "Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.");
        EXPECT_EQ(model().track()->start(), testTime(0));
    }
    model().timeFields().setSyntheticSpeed(1000);
    model().previewGenerated();
    settle();
    EXPECT_EQ(model().status(), "Zeitstempel mit 1000 km/h erzeugt. Bereit zum Export.");
    EXPECT_EQ(model().track()->start(), testTime(3600));
    EXPECT_TRUE(model().timeFields().applied());
    EXPECT_FALSE(model().canUndo());
    EXPECT_FALSE(model().structuralDirty());
}

TEST_F(Edits, SpreadsTimesBetweenAStartAndAnEnd) {
    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setGenerate(true);
    model().timeFields().setGenerationMode(GenerationMode::startAndEnd);
    model().timeFields().setNewStart(testTime(0));
    model().timeFields().setNewEnd(testTime(-1));
    model().previewGenerated();
    EXPECT_EQ(error(), "Die Endzeit muss nach der Startzeit liegen. Für eine Fahrt über "
                       "Mitternacht wähle auch das passende Enddatum.");

    // 222.4 m in 80 s.
    model().timeFields().setNewEnd(testTime(80));
    ASSERT_TRUE(model().timeFields().impliedSpeed());
    EXPECT_NEAR(*model().timeFields().impliedSpeed(), 10.0, 0.01);
    model().previewGenerated();
    settle();
    EXPECT_EQ(model().status(), "Start und Ende übernommen · Ø 10,0 km/h · Bereit zum Export.");
    EXPECT_EQ(model().track()->end(), testTime(80));
}

TEST_F(Edits, ColoursBySpeedWithTheNinetyFifthPercentileOnTop) {
    openSample();
    EXPECT_FALSE(model().speedScale());
    model().setColorBySpeed(true);
    ASSERT_TRUE(model().speedScale());
    EXPECT_GT(model().speedScaleTop(), 0);
    EXPECT_EQ(model().speedScale()->size(), 240u);
    // The one-second interval into point 152 is the fastest and saturates.
    EXPECT_EQ(model().speedScale()->at(151), 1.0);
}

TEST_F(Edits, RequestsWhileAnEditRunsWaitTheirTurnInOrder) {
    openSample();
    const auto points = model().track()->points().size();
    model().selectPoint(10);
    model().deleteSelected();
    EXPECT_EQ(model().status(), "Punkt wird gelöscht …");
    EXPECT_TRUE(model().canEditSelected()) << "Delete stays available while the first one runs";
    EXPECT_TRUE(model().canUndo());
    model().deleteSelected();
    model().undo();
    EXPECT_EQ(model().queuedRequests(), 2);
    EXPECT_EQ(model().status(), "Punkt wird gelöscht … · 2 weitere Aktionen vorgemerkt");
    settle();

    // Both deletes landed on the undo stack, the undo took back the second.
    EXPECT_EQ(model().track()->points().size(), points - 1);
    EXPECT_EQ(model().status(), "Track-Bearbeitung rückgängig gemacht.");
    EXPECT_TRUE(model().canRedo());
    model().undo();
    settle();
    EXPECT_EQ(model().track()->points().size(), points);
    EXPECT_FALSE(model().canUndo());
}

TEST_F(Edits, WhatCannotWaitIsRefusedAndARefusalDropsWhatWaits) {
    openSample();
    const auto before = model().track();
    model().selectPoint(0);
    model().splitSelected();
    model().dragPoint(3, {50.0, 7.0});
    EXPECT_EQ(error(), "Bitte warte, bis die laufende Bearbeitung fertig ist.");
    model().exports().exportTrack();
    EXPECT_EQ(error(), "Bitte warte, bis die laufende Bearbeitung fertig ist.");
    EXPECT_TRUE(dialogs.saveRequests.empty()) << "no save dialog while an edit runs";
    model().selectPoint(5);
    model().deleteSelected();
    settle();
    EXPECT_EQ(error(), "Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder "
                       "Ende.");
    EXPECT_TRUE(model().status().endsWith("Vorgemerkte Aktionen wurden verworfen."));
    EXPECT_EQ(model().queuedRequests(), 0);
    EXPECT_EQ(model().track(), before);
    EXPECT_FALSE(model().canUndo());
}

} // namespace
} // namespace trackloom::testing
