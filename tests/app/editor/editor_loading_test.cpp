#include "core/base/file_io.h"
#include "tests/app/editor/editor_test_support.h"

#include <QSignalSpy>

namespace trackloom::testing {
namespace {

using Loading = EditorModelTest;

TEST_F(Loading, StartsEmptyWithTheStoredSettingsOrTheirDefaults) {
    EXPECT_FALSE(model().track());
    EXPECT_FALSE(model().colorBySpeed());
    EXPECT_TRUE(model().removeAirRoutes());
    EXPECT_EQ(model().firstPartName(), "Hinweg");
    EXPECT_EQ(model().secondPartName(), "Rückweg");
    EXPECT_EQ(model().timeFields().newEnd().secondsSince(model().timeFields().newStart()), 3600);
    EXPECT_EQ(model().timeFields().syntheticSpeed(), 20);
    EXPECT_EQ(model().threshold(), 80);
    EXPECT_EQ(model().mapTool().tool(), MapTool::select);
    EXPECT_EQ(model().timeFields().generationMode(), GenerationMode::speed);
}

TEST_F(Loading, ReadsStoredSettingsAndTreatsOddValuesAsAbsent) {
    store.setValue("colorBySpeed", true);
    store.setValue("removeAirRoutes", "vielleicht");
    EXPECT_TRUE(model().colorBySpeed());
    EXPECT_TRUE(model().removeAirRoutes());

    model().setAirRouteRemoval(false);
    model().setColorBySpeed(false);
    store.sync();
    QSettings reread(store.fileName(), QSettings::IniFormat);
    EXPECT_EQ(reread.value("removeAirRoutes").toString(), "false");
    EXPECT_EQ(reread.value("colorBySpeed").toString(), "false");
}

TEST_F(Loading, OpensAFileInTheBackgroundAndProtectsIt) {
    const auto path = write("runde.gpx", gpxDocument({walk(5)}));
    QSignalSpy busy(&model(), &EditorModel::busyChanged);
    const int fits = model().mapFitRequest();
    model().load(path);
    EXPECT_TRUE(model().busy());
    EXPECT_EQ(model().status(), "Track wird eingelesen …");
    settle();

    EXPECT_EQ(busy.count(), 2);
    EXPECT_EQ(model().status(), "5 Punkte geladen.");
    EXPECT_EQ(model().filename(), "runde.gpx");
    EXPECT_EQ(model().sourceURL(), path);
    EXPECT_EQ(model().protectedGPXURLs(), QStringList{path});
    EXPECT_EQ(model().mapPoints().size(), 5u);
    EXPECT_EQ(model().mapFitRequest(), fits + 1);
    EXPECT_FALSE(model().isSynthetic());
    ASSERT_TRUE(model().session());
    EXPECT_FALSE(model().structuralDirty());
}

TEST_F(Loading, KeepsThePreviousTrackWhenReadingFails) {
    openDocument(gpxDocument({walk(3)}));
    const auto before = model().track();
    model().load(write("kaputt.gpx", "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"><trk>"));
    settle();
    EXPECT_EQ(model().track(), before);
    EXPECT_EQ(model().status(), "Import fehlgeschlagen.");
    EXPECT_TRUE(error().startsWith("Die Datei enthält kein lesbares GPX-XML: "));

    // The refusal about the broken file goes as soon as the next one is read.
    model().load(write("gut.gpx", gpxDocument({walk(2)})));
    EXPECT_FALSE(model().error());
    settle();
    const auto good = model().track();

    model().load(folder.filePath("fehlt.gpx"));
    settle();
    EXPECT_EQ(model().track(), good);
    EXPECT_EQ(model().status(), "Import fehlgeschlagen.");
}

TEST_F(Loading, RefusesFilesOverTheLimitWithoutReadingThem) {
    const auto path = write("riesig.gpx", "");
    QFile file(path);
    ASSERT_TRUE(file.resize(52428801));
    model().load(path);
    settle();
    EXPECT_FALSE(model().track());
    EXPECT_EQ(error(), "Die Datei ist größer als 50 MB. Bitte teile den Track vor dem Import auf.");
}

TEST_F(Loading, TheNewestRequestWins) {
    const auto first = write("erste.gpx", gpxDocument({walk(400)}, "Erste"));
    const auto second = write("zweite.gpx", gpxDocument({walk(3)}, "Zweite"));
    model().load(first);
    model().load(second);
    settle();
    EXPECT_EQ(model().track()->name(), "Zweite");
    EXPECT_EQ(model().status(), "3 Punkte geladen.");
}

TEST_F(Loading, ShowsTheSampleTrackAsSynthetic) {
    openSample();
    EXPECT_EQ(model().track()->points().size(), 241u);
    EXPECT_EQ(model().status(), "Beispieldaten geladen.");
    EXPECT_TRUE(model().isSynthetic());
    EXPECT_TRUE(model().sourceIsSynthetic());
    EXPECT_FALSE(model().sourceURL());
}

TEST_F(Loading, AsksBeforeUnexportedEditsAreReplaced) {
    openSample();
    model().selectPoint(100);
    model().splitSelected();
    settle();
    ASSERT_TRUE(model().structuralDirty());
    const auto edited = model().track();

    dialogs.confirmations = {false};
    model().demo();
    settle();
    ASSERT_EQ(dialogs.questions.size(), 1u);
    EXPECT_EQ(dialogs.questions[0].title, "Ungesicherte GPX-Bearbeitung");
    EXPECT_EQ(dialogs.questions[0].text,
              "Die bearbeitete GPX-Datei wurde noch nicht vollständig exportiert. Zum Sichern "
              "zuerst abbrechen und „GPX exportieren“ wählen.");
    EXPECT_EQ(dialogs.questions[0].cancelTitle, "Abbrechen");
    EXPECT_EQ(dialogs.questions[0].acceptTitle, "Änderungen verwerfen");
    EXPECT_EQ(model().track(), edited);

    dialogs.confirmations = {true};
    dialogs.filesToOpen = {write("neu.gpx", gpxDocument({walk(4)}))};
    model().open();
    settle();
    EXPECT_EQ(model().track()->points().size(), 4u);
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_FALSE(model().canUndo());
}

TEST_F(Loading, TakesOverATimelineDayAndProtectsTheHistory) {
    const auto history = write("Timeline.json", "[]");
    model().acceptTimelineDay(gpxDocument({walk(6)}), "Google-Zeitachse 2025-06-01", history);
    settle();
    EXPECT_EQ(model().status(),
              "Auswahl aus der Google-Zeitachse übernommen. Zeitfunktionen sind bereit.");
    EXPECT_EQ(model().protectedTimelineURL(), history);
    EXPECT_FALSE(model().sourceURL());

    dialogs.filesToSave = {history};
    model().exports().exportTrack();
    settle();
    EXPECT_EQ(dialogs.protectedPaths.at(0), QStringList{history});
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].second, "Die Originaldatei darf nicht überschrieben werden. "
                                          "Bitte wähle eine andere Datei.");
    EXPECT_EQ(dialogs.saveRequests.at(0).second, "Google-Zeitachse 2025-06-01 (bearbeitet).gpx");
    EXPECT_EQ(readFileBytes(history.toStdString()), "[]");
}

TEST_F(Loading, TimeFieldsFollowTheTrackUntilTheUserSetsThem) {
    openDocument(gpxDocument({walk(5, 0, 60)}));
    EXPECT_EQ(model().timeFields().newStart(), testTime(0));
    EXPECT_EQ(model().timeFields().newEnd(), testTime(240));

    model().selectPoint(1);
    model().trimBeforeSelected();
    settle();
    EXPECT_EQ(model().timeFields().newStart(), testTime(60));

    model().timeFields().setNewStart(testTime(7200));
    model().selectPoint(1);
    model().trimBeforeSelected();
    settle();
    EXPECT_EQ(model().timeFields().newStart(), testTime(7200));
}

TEST_F(Loading, CountsPointsPerDayInTheChosenZone) {
    zoneName = "Europe/Berlin";
    // 21:00 UTC is 23:00 in Berlin, 23:30 UTC already the next day there.
    openDocument(gpxDocument({{{48.1, 11.5, 11 * 3600.0}, {48.2, 11.5, 13.5 * 3600.0}}}));
    EXPECT_EQ(model().timeFields().calendarCounts().size(), 2u);
    model().timeFields().setUseUTC(true);
    const auto counts = model().timeFields().calendarCounts();
    ASSERT_EQ(counts.size(), 1u);
    EXPECT_EQ(counts.begin()->second, 2);

    model().timeFields().pickStartDay(counts.begin()->first.advanced(-86400));
    EXPECT_EQ(model().timeFields().newStart(), testTime(11 * 3600 - 86400));
}

} // namespace
} // namespace trackloom::testing
