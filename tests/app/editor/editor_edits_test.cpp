#include "tests/app/editor/editor_test_support.h"

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

    model().undoSplit();
    settle();
    EXPECT_EQ(model().track()->segments().size(), 1u);
    EXPECT_EQ(model().status(), "Track-Bearbeitung rückgängig gemacht.");
    EXPECT_TRUE(model().canRedo());

    model().redoSplit();
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
    model().startInserting();
    EXPECT_EQ(model().mapTool(), MapTool::insert);
    EXPECT_EQ(model().insertAnchor(), 1);
    model().mapClicked(std::nullopt, {48.1013, 11.5});
    model().mapClicked(std::nullopt, {48.1016, 11.5});
    EXPECT_EQ(model().pendingPoints().size(), 2u);

    model().finishInserting();
    settle();
    EXPECT_EQ(model().status(), "Punkt(e) eingefügt.");
    ASSERT_EQ(model().track()->points().size(), 6u);
    EXPECT_NEAR(model().track()->points()[2].time->secondsSince(testTime(0)), 78, 0.001);
    EXPECT_TRUE(model().pendingPoints().empty());
    EXPECT_EQ(model().selectedPointID(), 3);
}

TEST_F(Edits, InsertingOnTheLineNeedsALegAndSaysWhenTimesAreMissing) {
    auto points = walk(3);
    points[2].time.reset();
    openDocument(gpxDocument({points}));
    model().setMapTool(MapTool::insert);
    model().mapClicked(std::nullopt, {48.2, 11.5});
    EXPECT_TRUE(model().pendingPoints().empty());

    model().insertOnLine(2, {48.2, 11.5});
    EXPECT_TRUE(error().startsWith("Wähle einen Punkt, auf den im selben Abschnitt"));
    EXPECT_FALSE(model().insertAnchor());

    model().insertOnLine(1, {48.1015, 11.5});
    EXPECT_EQ(model().insertAnchor(), 1);
    model().finishInserting();
    settle();
    EXPECT_EQ(model().status(),
              "Punkt(e) eingefügt, ohne Zeit: Ein Nachbarpunkt hat keine Zeitangabe.");

    model().setMapTool(MapTool::insert);
    model().finishInserting();
    EXPECT_EQ(error(), "Es wurden keine Punkte gesetzt.");
}

TEST_F(Edits, SwitchingToolsDropsPendingPoints) {
    openDocument(gpxDocument({walk(4)}));
    model().selectPoint(0);
    model().startInserting();
    model().mapClicked(std::nullopt, {48.1005, 11.5});
    model().setMapTool(MapTool::move);
    EXPECT_TRUE(model().pendingPoints().empty());
    EXPECT_FALSE(model().insertAnchor());
    model().mapClicked(2, {});
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

} // namespace
} // namespace trackloom::testing
