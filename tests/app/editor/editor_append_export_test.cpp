#include "core/base/file_io.h"
#include "tests/app/editor/editor_test_support.h"

namespace trackloom::testing {
namespace {

class AppendAndExport : public EditorModelTest {
  protected:
    TrackPtr readBack(const QString& path) {
        return GPXTrack::read(readFileBytes(path.toStdString()), "zurück.gpx");
    }

    void append(const std::string& document) {
        dialogs.filesToOpen = {write("weiter.gpx", document)};
        model().appendTrack();
        settle();
    }
};

TEST_F(AppendAndExport, ReportsTheGapInSpaceAndTime) {
    openDocument(gpxDocument({walk(3, 0, 60)}));
    // Starts 1 km north of the end, 1 h 1 min 5 s after it.
    append(gpxDocument({walk(2, 120 + 3665, 60, 48.102 + 0.009)}));
    ASSERT_TRUE(model().status().startsWith("Track angehängt · 5 Punkte · Rückgängig ist möglich. "
                                            "Abstand am Übergang: "))
        << model().status().toStdString();
    EXPECT_TRUE(model().status().endsWith(" m. Zeit zwischen den Tracks: 1 h 1 min"));
    EXPECT_EQ(model().appendSummary(), model().status());
    EXPECT_EQ(dialogs.openTitles.back(), "Nächsten GPX-Track anhängen");
    EXPECT_EQ(model().protectedGPXURLs().size(), 2);
    EXPECT_TRUE(model().structuralDirty());

    model().undo();
    settle();
    EXPECT_EQ(model().track()->points().size(), 3u);
}

TEST_F(AppendAndExport, WarnsWhenTheNewTrackStartsBeforeTheOldOneEnds) {
    openDocument(gpxDocument({walk(3, 0, 60)}));
    append(gpxDocument({walk(2, 120 - 75.4)}));
    EXPECT_TRUE(model().status().endsWith(
        " Achtung: Der neue Track beginnt 1 min 15 s vor dem Ende des bisherigen Tracks."))
        << model().status().toStdString();

    openDocument(gpxDocument({walk(3)}));
    auto untimed = walk(2);
    untimed[0].time.reset();
    append(gpxDocument({untimed}));
    EXPECT_TRUE(model().status().endsWith(" Am Übergang fehlen Zeitangaben."));
}

TEST_F(AppendAndExport, ARefusedAppendKeepsTheTrack) {
    openDocument(gpxDocument({walk(3)}));
    const auto before = model().track();
    append(gpxDocument({walk(2)}, "Alt", {}, "1.0"));
    EXPECT_EQ(error(), "Zum Anhängen müssen beide Dateien dieselbe GPX-Version verwenden (1.0 "
                       "oder 1.1).");
    EXPECT_EQ(model().status(), "Anhängen fehlgeschlagen. Der bisherige Track bleibt erhalten.");
    EXPECT_EQ(model().track(), before);
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_EQ(model().protectedGPXURLs().size(), 1);

    const auto huge = write("riesig.gpx", "");
    QFile(huge).resize(52428801);
    dialogs.filesToOpen = {huge};
    model().appendTrack();
    settle();
    EXPECT_EQ(error(), "Die Datei ist größer als 50 MB.");
    EXPECT_EQ(model().track(), before);
}

TEST_F(AppendAndExport, NeverWritesOverAnOpenedOrAppendedFile) {
    const QString refusal = "Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine "
                            "andere Datei.";
    const auto opened = write("runde.gpx", gpxDocument({walk(3)}));
    open(opened);
    append(gpxDocument({walk(3, 600)}));
    const auto appended = folder.filePath("weiter.gpx");
    const auto appendedBytes = readFileBytes(appended.toStdString());

    // The save dialog refuses both and asks again, before it could ask about replacing.
    dialogs.filesToSave = {opened, appended, std::nullopt};
    model().exports().exportTrack();
    settle();
    EXPECT_EQ(dialogs.protectedPaths.back(), (QStringList{opened, appended}));
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[1].second, refusal);
    EXPECT_TRUE(dialogs.filesToSave.empty());

    // A dialog that lets them through still meets the model's own check.
    dialogs.skipsProtection = true;
    for (const auto& target : {opened, appended}) {
        dialogs.filesToSave = {target};
        model().exports().exportTrack();
        settle();
        EXPECT_EQ(error(), refusal);
    }
    EXPECT_EQ(readFileBytes(appended.toStdString()), appendedBytes);
    EXPECT_TRUE(model().structuralDirty());
}

TEST_F(AppendAndExport, ExportsTheTrackAsShownAndMarksTheEditsSaved) {
    openDocument(gpxDocument({walk(4)}), "runde.gpx");
    model().selectPoint(1);
    model().deleteSelected();
    settle();
    const auto target = folder.filePath("ergebnis.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportTrack();
    settle();
    ASSERT_EQ(dialogs.saveRequests.size(), 1u);
    EXPECT_EQ(dialogs.saveRequests[0].first, "Bearbeiteten GPX-Track speichern");
    EXPECT_EQ(dialogs.saveRequests[0].second, "runde (bearbeitet).gpx");
    EXPECT_EQ(readFileBytes(target.toStdString()), model().track()->data());
    EXPECT_EQ(model().status(), "GPX exportiert: ergebnis.gpx");
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_EQ(model().lastExportedSource(), model().session()->workingSource());
}

TEST_F(AppendAndExport, AppendingKeepsGeneratedTimesAndTheAppendedFilesOwn) {
    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setGenerate(true);
    model().timeFields().setNewStart(testTime(3600));
    model().previewGenerated();
    settle();
    append(gpxDocument({walk(2, 100000)}));
    ASSERT_TRUE(model().status().startsWith("Track angehängt")) << model().status().toStdString();
    EXPECT_FALSE(model().timeFields().generate()) << "the generated times are the track's own now";
    EXPECT_FALSE(model().timeFields().pendingShift());

    const auto target = folder.filePath("zusammen.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportTrack();
    settle();
    ASSERT_EQ(error(), "");
    const auto written = readBack(target);
    ASSERT_EQ(written->points().size(), 5u);
    EXPECT_EQ(written->points()[0].time, testTime(3600));
    EXPECT_EQ(written->points()[3].time, testTime(100000));
    EXPECT_EQ(written->points()[4].time, testTime(100060));
}

TEST_F(AppendAndExport, ChoosingGenerationAloneKeepsTheOwnTimesExportable) {
    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setGenerate(true);
    const auto target = folder.filePath("eigen.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportTrack();
    settle();
    ASSERT_EQ(error(), "");
    EXPECT_EQ(readBack(target)->start(), testTime(0));

    // Generated times other than those the fields now ask for are still refused.
    model().previewGenerated();
    settle();
    model().timeFields().setSyntheticSpeed(7);
    model().exports().exportTrack();
    EXPECT_EQ(error(), "Bitte übernimm zuerst die gewünschten Zeiten.");
}

TEST_F(AppendAndExport, ShiftsToTheChosenStartWhileExporting) {
    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setNewStart(testTime(86400));
    const auto target = folder.filePath("verschoben.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportTrack();
    settle();
    const auto written = readBack(target);
    EXPECT_EQ(written->start(), testTime(86400));
    EXPECT_EQ(written->end(), testTime(86400 + 120));
    EXPECT_EQ(model().track()->start(), testTime(0));
}

TEST_F(AppendAndExport, RefusesExportsUntilTimesAreUsable) {
    model().exports().exportTrack();
    EXPECT_EQ(error(), "Bitte erzeuge oder korrigiere zuerst die Zeitstempel.");

    auto untimed = walk(3);
    for (auto& point : untimed) {
        point.time.reset();
    }
    openDocument(gpxDocument({untimed}));
    model().exports().exportSingleTrack();
    EXPECT_EQ(error(), "Bitte erzeuge oder korrigiere zuerst die Zeitstempel.");
    EXPECT_TRUE(dialogs.saveRequests.empty());

    model().timeFields().setGenerate(true);
    model().timeFields().setNewStart(testTime(0));
    model().exports().exportSingleTrack();
    EXPECT_EQ(error(), "Bitte erzeuge oder korrigiere zuerst die Zeitstempel.");
    model().previewGenerated();
    settle();
    model().timeFields().setSyntheticSpeed(30);
    model().exports().exportSelectedSegment();
    EXPECT_EQ(error(), "Bitte übernimm zuerst die gewünschten Zeiten.");

    model().previewGenerated();
    settle();
    const auto target = folder.filePath("ein-track.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportSingleTrack();
    settle();
    EXPECT_EQ(model().status(), "Gesichert als ein Track mit einem Abschnitt, wie ihn Navigations- "
                                "und Reise-Apps importieren. (ein-track.gpx)");
    EXPECT_EQ(dialogs.saveRequests.back().second, "runde (ein Track).gpx");
    EXPECT_EQ(readBack(target)->start(), model().timeFields().newStart());
}

TEST_F(AppendAndExport, ExportsTheSectionOfTheSelectedPoint) {
    openDocument(gpxDocument({walk(3), walk(4, 600, 60, 48.2)}));
    model().exports().exportSelectedSegment();
    EXPECT_EQ(error(), "Kein Abschnitt ausgewählt.");

    model().selectPoint(4);
    const auto target = folder.filePath("abschnitt.gpx");
    dialogs.filesToSave = {target};
    model().exports().exportSelectedSegment();
    settle();
    EXPECT_EQ(dialogs.saveRequests.back().second, "runde – Runde · Abschnitt 2.gpx");
    EXPECT_EQ(model().status(), "Abschnitt gespeichert: abschnitt.gpx");
    EXPECT_EQ(readBack(target)->points().size(), 4u);
}

} // namespace
} // namespace trackloom::testing
