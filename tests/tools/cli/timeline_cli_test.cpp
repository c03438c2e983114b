#include "cli_runner.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using trackloom::testing::runCli;
using trackloom::testing::temporaryFolder;

namespace {

namespace fs = std::filesystem;
const std::string corpus = TRACKLOOM_CORPUS_DIR "/timeline/";

std::string fileText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(TimelineInfoCli, PrintsReportPointCountAndDaysInTheZone) {
    const auto result = runCli({"timeline", "info", corpus + "mixed-forms-edge-cases.json",
                                "--zone", "America/Los_Angeles"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(
        result.out,
        R"({"report":{"records":5,"ignoredRecords":0,"invalidValues":1,"pathPoints":4,)"
        R"("visits":0,"activityPoints":6},"points":10,"days":[{"date":"2025-01-09","count":2},)"
        R"({"date":"2025-03-17","count":4},{"date":"2025-07-09","count":2},)"
        R"({"date":"2025-09-19","count":2}]})"
        "\n");
}

TEST(TimelineInfoCli, ListsPointsWithAbsentValuesAsNull) {
    const auto result =
        runCli({"timeline", "info", corpus + "ios-offset-numeric-and-bare-point.json", "--zone",
                "UTC", "--points"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find(
                  R"("pointList":[{"id":0,"segment":0,"kind":"path","latitude":37.5665,)"
                  R"("longitude":126.978,"time":"2026-01-01T00:15:00.000000Z","endTime":null,)"
                  R"("label":"","order":0},)"),
              std::string::npos);
}

TEST(TimelineCli, RefusalsAndUsageErrors) {
    const auto refused = runCli({"timeline", "info", corpus + "negative-timeline-edits.json"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "Dieses JSON ist kein unterstützter Google-Zeitachsenexport. Erwartet "
                           "wird eine Liste mit startTime, visit, activity oder timelinePath.\n");

    const auto file = corpus + "mixed-forms-edge-cases.json";
    EXPECT_EQ(runCli({"timeline", "info", file, "--zone", "Mars/Olympus"}).status, 1);
    EXPECT_EQ(runCli({"timeline", "export", file, "-o", "x.gpx"}).status, 1);
    EXPECT_EQ(runCli({"timeline", "export", file, "--day", "2025-02-30", "-o", "x.gpx"}).status, 1);
    EXPECT_EQ(runCli({"timeline", "export", file, "--day", "2025-03-18", "--from",
                      "2025-03-18T00:00:00Z", "--to", "2025-03-19T00:00:00Z", "-o", "x.gpx"})
                  .status,
              1);
    EXPECT_EQ(runCli({"timeline", "export", file, "--from", "yesterday", "--to",
                      "2025-03-19T00:00:00Z", "-o", "x.gpx"})
                  .status,
              1);
}

TEST(TimelineExportCli, WritesTheDayOrRangeAsked) {
    const auto folder = temporaryFolder();
    const auto file = corpus + "mixed-forms-edge-cases.json";
    const auto day = runCli({"timeline", "export", file, "--day", "2025-09-20", "--zone", "UTC",
                             "--activities", "-o", folder + "/day.gpx"});
    EXPECT_EQ(day.status, 0) << day.err;
    EXPECT_EQ(day.out, "{\"waypoints\":0,\"tracks\":1,\"trackPoints\":2}\n");
    EXPECT_NE(fileText(folder + "/day.gpx").find("<name>Google-Zeitachse 2025-09-20</name>"),
              std::string::npos);

    const auto range = runCli({"timeline", "export", file, "--from", "2025-01-10T00:00:00Z", "--to",
                               "2025-07-11T00:00:00Z", "--zone", "UTC", "--activities", "--segment",
                               "30000", "-o", folder + "/range.gpx"});
    EXPECT_EQ(range.status, 0) << range.err;
    EXPECT_EQ(range.out, "{\"waypoints\":0,\"tracks\":1,\"trackPoints\":2}\n");
    EXPECT_NE(
        fileText(folder + "/range.gpx").find("Google-Zeitachse 2025-01-10 \xe2\x80\x93 2025-07-10"),
        std::string::npos);

    const auto nothing = runCli({"timeline", "export", file, "--day", "2025-09-20", "--zone", "UTC",
                                 "-o", folder + "/none.gpx"});
    EXPECT_EQ(nothing.status, 2);
    EXPECT_EQ(nothing.err, "Für diese Auswahl gibt es keine Punkte zum Exportieren.\n");
    EXPECT_FALSE(fs::exists(folder + "/none.gpx"));
    fs::remove_all(folder);
}

TEST(TimelineExportDaysCli, WritesOneFilePerDayAndNeverOverwrites) {
    const auto folder = temporaryFolder();
    const auto file = corpus + "mixed-forms-edge-cases.json";
    const auto first =
        runCli({"timeline", "export-days", file, "--dir", folder + "/days", "--zone", "UTC"});
    EXPECT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(first.out, "{\"files\":[\"Zeitachse-2025-03-18.gpx\"]}\n");

    const auto second = runCli({"timeline", "export-days", file, "--dir", folder + "/days",
                                "--zone", "UTC", "--activities"});
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.out, "");
    EXPECT_FALSE(fs::exists(folder + "/days/Zeitachse-2025-01-10.gpx"));
    fs::remove_all(folder);
}

TEST(TimelineCli, NeverWritesOverTheFileItRead) {
    const auto folder = temporaryFolder();
    const auto file = folder + "/Timeline.json";
    fs::copy_file(corpus + "mixed-forms-edge-cases.json", file);
    fs::create_symlink(file, folder + "/link.json");
    const auto original = fileText(file);
    const std::string message =
        "Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine andere Datei.\n";
    for (const auto* target : {"/Timeline.json", "/link.json"}) {
        const auto exported = runCli({"timeline", "export", file, "--day", "2025-03-18", "--zone",
                                      "UTC", "-o", folder + target});
        EXPECT_EQ(exported.status, 2);
        EXPECT_EQ(exported.err, message);
        const auto copied = runCli({"timeline", "working-copy", file, "-o", folder + target});
        EXPECT_EQ(copied.err, message);
    }
    EXPECT_EQ(fileText(file), original);
    fs::remove_all(folder);
}

TEST(TimelineWorkingCopyCli, WritesAWorkingCopyThatReadsBack) {
    const auto folder = temporaryFolder();
    const auto copy = folder + "/Zeitachse-Arbeitskopie.gpxhistory";
    const auto written =
        runCli({"timeline", "working-copy",
                corpus + "android-semanticSegments-reitti-randomized.json", "-o", copy});
    EXPECT_EQ(written.status, 0) << written.err;
    EXPECT_EQ(written.out, "{\"points\":97}\n");
    EXPECT_TRUE(fileText(copy).starts_with(R"({"format":"TrackloomTimeline","version":2,)"));
    const auto reread = runCli({"timeline", "info", copy});
    EXPECT_EQ(reread.status, 0);
    EXPECT_TRUE(reread.out.starts_with(
        R"({"report":{"records":0,"ignoredRecords":0,"invalidValues":0,"pathPoints":0,)"
        R"("visits":0,"activityPoints":0},"points":97,)"));
    fs::remove_all(folder);
}

} // namespace
