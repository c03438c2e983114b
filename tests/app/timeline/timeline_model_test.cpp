#include "app/timeline/timeline_model.h"
#include "core/timeline/working_copy.h"
#include "tests/app/support/core_test_application.h"
#include "tests/app/support/scripted_dialogs.h"
#include "tests/core/timeline/timeline_test_support.h"

#include <QCoreApplication>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace trackloom::testing {
namespace {

/// Two walks on 1 June 2025 (Berlin time), a stay over the night into 2 June,
/// and a walk on 3 June.
std::vector<TimelinePoint> history() {
    return {
        pathPoint(0, 1, "2025-06-01T06:00:00Z", 50.70, 7.10),
        pathPoint(1, 1, "2025-06-01T06:10:00Z", 50.71, 7.10),
        pathPoint(2, 1, "2025-06-01T06:20:00Z", 50.72, 7.10),
        visitPoint(3, 2, "2025-06-01T18:00:00Z", "2025-06-02T07:00:00Z", "Hotel am Rhein"),
        pathPoint(4, 3, "2025-06-03T09:00:00Z", 50.73, 7.10),
        pathPoint(5, 3, "2025-06-03T09:05:00Z", 50.74, 7.11),
    };
}

struct RecordingReceiver : TrackReceiver {
    std::vector<TrackHandOver> received;
    void receiveTrack(TrackHandOver track) override { received.push_back(std::move(track)); }
};

class TimelineModelTest : public ::testing::Test {
  protected:
    TimelineModelTest() : model((coreApplication(), dialogs), *zone("Europe/Berlin")) {}

    QString writeFile(const QString& name, const std::string& bytes) {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        return path;
    }

    QString historyFile() { return writeFile("history.gpxhistory", encodeWorkingCopy(history())); }

    void waitUntilIdle() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !model.busy(); }, 20000));
    }

    void loadHistory() {
        model.load(historyFile());
        waitUntilIdle();
        ASSERT_TRUE(model.session());
    }

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    TimelineModel model;
};

TEST_F(TimelineModelTest, LoadingShowsTheNewestDayAndProtectsTheFile) {
    QSignalSpy busy(&model, &TimelineModel::busyChanged);
    EXPECT_EQ(model.status(), "JSON-Zeitachse öffnen oder hierher ziehen.");
    const QString path = historyFile();
    model.load(path);
    EXPECT_EQ(model.status(), "Zeitachse wird im Hintergrund eingelesen …");
    waitUntilIdle();
    EXPECT_EQ(busy.count(), 2);
    EXPECT_EQ(model.importSummary(), "6 Punkte · 3 Tage");
    EXPECT_EQ(model.protectedURLs(), QStringList{path});
    EXPECT_EQ(model.filename(), "history.gpxhistory");
    ASSERT_EQ(model.days().size(), 3u);
    EXPECT_EQ(model.selectedDay(), at("2025-06-02T22:00:00Z"));
    EXPECT_EQ(model.points().size(), 2u);
    EXPECT_GE(model.fitRequest(), 1);

    const auto& first = model.days().front();
    EXPECT_EQ(first.count, 4);
    EXPECT_EQ(first.summary.visits, 1);
    EXPECT_NEAR(first.summary.pathDistance, 2 * 1111.9, 1);
    EXPECT_EQ(model.dayText(first.day), "So., 01.06.2025");
}

TEST_F(TimelineModelTest, AFailedImportKeepsThePreviousSession) {
    loadHistory();
    const auto* session = model.session();
    model.load(writeFile("notes.json", R"({"hello": 1})"));
    waitUntilIdle();
    EXPECT_EQ(model.status(), "Import fehlgeschlagen.");
    EXPECT_EQ(model.error(), QString::fromStdString(unsupportedExport));
    EXPECT_EQ(model.session(), session);
    EXPECT_EQ(model.days().size(), 3u);
}

TEST_F(TimelineModelTest, ANewerImportWinsOverAnOlderOne) {
    const QString older = historyFile();
    auto fewer = history();
    fewer.resize(3);
    const QString newer = writeFile("newer.gpxhistory", encodeWorkingCopy(fewer));
    model.load(older);
    model.load(newer);
    waitUntilIdle();
    QTest::qWait(50);
    EXPECT_EQ(model.filename(), "newer.gpxhistory");
    EXPECT_EQ(model.importSummary(), "3 Punkte · 1 Tage");
}

TEST_F(TimelineModelTest, DaySearchFindsDatesAndVisitLabels) {
    loadHistory();
    model.setDaySearch("rhein");
    const auto byLabel = model.visibleDays();
    // The stay reaches into the second day, which therefore matches too.
    ASSERT_EQ(byLabel.size(), 2u);
    EXPECT_EQ(byLabel.front().day, at("2025-06-01T22:00:00Z"));
    model.setDaySearch("2025-06-03");
    EXPECT_EQ(model.visibleDays().size(), 1u);
    model.setDaySearch("");
    model.setNewestFirst(false);
    EXPECT_EQ(model.visibleDays().front().day, at("2025-05-31T22:00:00Z"));
}

TEST_F(TimelineModelTest, RangesAreRefusedNamedAndCheckedBeforeExport) {
    loadHistory();
    model.setWholeDays(false);
    model.setRangeFrom(at("2025-06-02T10:00:00Z"));
    model.setRangeTo(at("2025-06-02T10:00:00Z"));
    model.applyRange();
    EXPECT_EQ(model.error(), "Das Ende muss nach dem Beginn liegen.");
    EXPECT_FALSE(model.appliedRange());

    // Midnight to midnight in Berlin: the exclusive end names the day before.
    model.setRangeFrom(at("2025-05-31T22:00:00Z"));
    model.setRangeTo(at("2025-06-02T22:00:00Z"));
    model.applyRange();
    EXPECT_EQ(model.selectionFilename(), "Zeitachse-2025-06-01-bis-2025-06-02");
    EXPECT_TRUE(model.scopeTitle().endsWith(" (Ende ausschließlich)"));
    EXPECT_EQ(model.status(), "Zeitraum angezeigt · 4 Punkte · Original unverändert.");

    model.setRangeFrom(at("2025-06-01T06:00:00Z"));
    model.setRangeTo(at("2025-06-01T07:00:00Z"));
    model.applyRange();
    EXPECT_EQ(model.selectionFilename(), "Zeitachse-2025-06-01");

    model.setRangeTo(at("2025-06-01T08:00:00Z"));
    RecordingReceiver editor;
    model.openInEditor(editor);
    EXPECT_TRUE(editor.received.empty());
    EXPECT_EQ(model.error(), "Der Zeitraum wurde geändert. Bitte zuerst „Anzeigen“ wählen, damit "
                             "Karte und Export dieselbe Auswahl verwenden.");

    model.setWholeDays(true);
    model.setRangeFrom(at("2025-06-01T06:00:00Z"));
    model.setRangeTo(at("2025-06-02T06:00:00Z"));
    model.applyRange();
    EXPECT_FALSE(model.scopeTitle().endsWith(" (Ende ausschließlich)"));
    EXPECT_EQ(model.selectionFilename(), "Zeitachse-2025-06-01-bis-2025-06-02");
}

TEST_F(TimelineModelTest, EditsAreNamedUndoStepsThatFollowTheDayList) {
    loadHistory();
    model.selectDay(at("2025-06-01T12:00:00Z"));
    model.setSelection({1});
    EXPECT_EQ(model.latitude(), "50.710000");
    model.setLatitude("91");
    model.applyEdit();
    EXPECT_EQ(model.error(), "Bitte gültige Koordinaten eingeben.");
    EXPECT_FALSE(model.dirty());

    model.setLatitude("50,715");
    model.applyEdit();
    EXPECT_EQ(model.status(), "Punkt geändert. Die Originaldatei bleibt unverändert.");
    EXPECT_TRUE(model.dirty());
    EXPECT_EQ(model.undoName(), "Punkt ändern");

    model.setSelection({0, 2});
    model.deleteSelection();
    EXPECT_EQ(model.status(), "2 Punkt(e) gelöscht · Rückgängig ist möglich.");
    EXPECT_EQ(model.days().front().count, 2);
    EXPECT_EQ(model.days().front().summary.pathDistance, 0);

    model.undo();
    EXPECT_EQ(model.days().front().count, 4);
    EXPECT_EQ(model.redoName(), "Punkte löschen");
    EXPECT_EQ(model.session()->point(1)->latitude, 50.715);

    model.setSelection({1});
    model.setFirstPartName("Hin");
    model.setSecondPartName("Zurück");
    model.splitSelection();
    EXPECT_EQ(model.status(),
              "Abschnitt geteilt. Der Grenzpunkt bleibt in beiden Teilen erhalten.");
    EXPECT_EQ(model.undoName(), "Abschnitt teilen");
    EXPECT_FALSE(model.canRedo());
}

TEST_F(TimelineModelTest, MovingOnTheMapFillsTheInspectorUntilApplied) {
    loadHistory();
    model.selectDay(at("2025-06-03T12:00:00Z"));
    model.setSelection({4});
    model.setMoveOnMap(true);
    model.setCoordinate(50.8, 7.2);
    EXPECT_EQ(model.status(), "Neue Position gewählt. Mit „Änderung übernehmen“ speichern.");
    EXPECT_FALSE(model.moveOnMap());
    EXPECT_EQ(model.session()->point(4)->latitude, 50.73);
    model.applyEdit();
    EXPECT_EQ(model.session()->point(4)->latitude, 50.8);
    model.movePoint(5, 50.9, 7.3);
    EXPECT_EQ(model.undoName(), "Punkt verschieben");
}

TEST_F(TimelineModelTest, AZoneChangeKeepsEditsAndUndoAndOnlyMovesDays) {
    loadHistory();
    model.selectDay(at("2025-06-01T12:00:00Z"));
    model.setSelection({0, 1});
    model.deleteSelection();
    model.changeZone("America/New_York");
    EXPECT_EQ(model.status(), "Tage werden für America/New_York neu zugeordnet …");
    EXPECT_FALSE(model.canEdit());
    waitUntilIdle();
    EXPECT_EQ(model.status(), "Zeitzone geändert. Punkte und Rückgängig-Verlauf bleiben erhalten.");
    EXPECT_EQ(model.zoneIdentifier(), "America/New_York");
    EXPECT_FALSE(model.session()->point(0));
    EXPECT_TRUE(model.canUndo());
    EXPECT_EQ(model.selectedDay(), at("2025-06-01T04:00:00Z"));
    model.undo();
    EXPECT_TRUE(model.session()->point(0));
    // 06:00 UTC is 02:00 in New York: the walk still lies on 1 June.
    EXPECT_EQ(model.days().front().day, at("2025-06-01T04:00:00Z"));
}

TEST_F(TimelineModelTest, SavingNeverWritesOverTheOpenedFile) {
    loadHistory();
    const QString source = *model.sourceURL();
    const QByteArray original = [&] {
        QFile file(source);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }();
    // The dialog refuses the opened file before anything else happens.
    dialogs.filesToSave = {source};
    model.saveWorkingCopy(false);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].first, "Gesamte Arbeitskopie sichern");
    // And should a dialog let it through, the model refuses it itself.
    dialogs.skipsProtection = true;
    dialogs.filesToSave = {source};
    model.saveWorkingCopy(false);
    EXPECT_TRUE(model.error().has_value());
    waitUntilIdle();
    dialogs.skipsProtection = false;

    const QString copy = folder.filePath("copy.gpxhistory");
    model.setSelection({0});
    model.selectDay(at("2025-06-01T12:00:00Z"));
    model.setSelection({0});
    model.deleteSelection();
    dialogs.filesToSave = {copy};
    model.saveWorkingCopy(false);
    EXPECT_EQ(model.status(), "Arbeitskopie wird gespeichert …");
    waitUntilIdle();
    EXPECT_EQ(model.status(), "Arbeitskopie gespeichert: copy.gpxhistory");
    EXPECT_FALSE(model.dirty());
    QFile file(source);
    file.open(QIODevice::ReadOnly);
    EXPECT_EQ(file.readAll(), original);
    EXPECT_EQ(TimelineDocument::readFile(copy.toStdString()).points().size(), 5u);
}

TEST_F(TimelineModelTest, UnsavedEditsAreAskedAboutBeforeAnotherFileReplacesThem) {
    loadHistory();
    EXPECT_TRUE(model.mayReplace());
    model.selectDay(at("2025-06-03T12:00:00Z"));
    model.setSelection({4});
    model.deleteSelection();
    dialogs.confirmations = {false};
    EXPECT_FALSE(model.mayReplace());
    ASSERT_EQ(dialogs.questions.size(), 1u);
    EXPECT_EQ(dialogs.questions[0].title, "Ungesicherte Änderungen");
    EXPECT_EQ(dialogs.questions[0].acceptTitle, "Änderungen verwerfen");
}

TEST_F(TimelineModelTest, TheShownDayGoesToTheEditorWithItsSourceFile) {
    loadHistory();
    model.selectDay(at("2025-06-01T12:00:00Z"));
    RecordingReceiver editor;
    model.openInEditor(editor);
    ASSERT_EQ(editor.received.size(), 1u);
    EXPECT_EQ(editor.received[0].sourcePath, model.sourceURL());
    EXPECT_EQ(editor.received[0].title, "Google-Zeitachse 2025-06-01");
    EXPECT_NE(editor.received[0].gpx.find("<trkpt"), std::string::npos);
    // The stay counts only when visits are shown.
    EXPECT_NE(editor.received[0].gpx.find("<wpt"), std::string::npos);
}

TEST_F(TimelineModelTest, CalendarChoicesShowADayOrPrepareARange) {
    loadHistory();
    model.selectCalendarDays(at("2025-06-03T12:00:00Z"), at("2025-06-03T12:00:00Z"), false);
    EXPECT_EQ(model.status(), "2 Punkte am gewählten Tag.");
    model.selectCalendarDays(at("2025-06-05T12:00:00Z"), at("2025-06-05T12:00:00Z"), false);
    EXPECT_EQ(model.status(), "Für diesen Tag sind keine Daten gespeichert.");
    model.stepDay(-1);
    EXPECT_EQ(model.selectedDay(), at("2025-06-02T22:00:00Z"));
    model.selectCalendarDays(at("2025-05-31T22:00:00Z"), at("2025-06-01T22:00:00Z"), true);
    EXPECT_TRUE(model.rangeMode());
    EXPECT_EQ(model.rangeTo(), at("2025-06-01T22:00:00Z"));
}

} // namespace
} // namespace trackloom::testing
