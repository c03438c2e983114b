#include "cli_runner.h"
#include "core/base/file_io.h"
#include "core/editing/editing_session.h"
#include "core/editing/point_edits.h"
#include "core/editing/segment_merging.h"
#include "core/editing/time_operations.h"
#include "core/editing/track_append.h"

#include <filesystem>
#include <gtest/gtest.h>

using trackloom::testing::runCli;

namespace trackloom {
namespace {

// Ten track segments in two tracks, GPX 1.0.
const std::string corpusFile = TRACKLOOM_CORPUS_DIR "/gpx/gpsbabel-segmented-tracks.gpx";

class GpxEditCli : public ::testing::Test {
  protected:
    void SetUp() override {
        m_folder = trackloom::testing::temporaryFolder();
        m_track = GPXTrack::read(readFileBytes(corpusFile), "gpsbabel-segmented-tracks.gpx");
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }
    std::string path(const std::string& name) const { return m_folder + "/" + name; }

    /// Runs `gpx COMMAND FILE ARGUMENTS… -o OUT` and returns the written bytes.
    std::string written(const std::string& command, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"gpx", command, corpusFile});
        arguments.insert(arguments.end(), {"-o", path(command)});
        const auto result = runCli(arguments);
        EXPECT_EQ(result.status, 0) << command << ": " << result.err;
        return std::filesystem::exists(path(command)) ? readFileBytes(path(command)) : "";
    }

    std::string m_folder;
    TrackPtr m_track;
};

TEST_F(GpxEditCli, EachCommandWritesTheOperationsResult) {
    const auto& track = *m_track;
    EXPECT_EQ(written("split", {"--at", "2", "--first", "A", "--second", "B"}),
              splitting(track, 2, "A", "B")->data());
    EXPECT_EQ(written("trim", {"--after", "30"}), trimmingAfter(track, 30)->data());
    EXPECT_EQ(written("delete", {"--points", "0,5,7"}), removingPoints(track, {0, 5, 7})->data());
    EXPECT_EQ(written("move", {"--point", "3", "--to", "-33.5,151.25"}),
              movingPoint(track, 3, {-33.5, 151.25})->data());
    EXPECT_EQ(written("insert", {"--after", "0", "--coordinates", "1,2;3.5,4"}),
              inserting(track, {{1, 2}, {3.5, 4}}, 0)->data());
    EXPECT_EQ(written("merge", {}), mergingSegments(track)->data());
    EXPECT_EQ(written("single-track", {"--name", "Ganz"}), singleTrack(track, "Ganz")->data());
    EXPECT_EQ(written("append", {corpusFile}), appending(track, track)->data());

    const auto start = *GPXTrack::parseTime("2030-01-01T00:00:00Z");
    EXPECT_EQ(written("shift", {"--start", "2030-01-01T00:00:00Z"}), shifted(track, start));
    EXPECT_EQ(written("generate", {"--start", "2030-01-01T00:00:00Z", "--speed", "7.5"}),
              generated(track, start, 7.5));
    EXPECT_EQ(written("generate",
                      {"--start", "2030-01-01T00:00:00Z", "--end", "2030-01-01T02:00:00+01:00"}),
              generated(track, start, start.advanced(3600)));
}

TEST_F(GpxEditCli, RequiredSpeedPrintsTheSpeedOrTheRefusal) {
    const auto speed = runCli({"gpx", "required-speed", corpusFile, "--start",
                               "2030-01-01T00:00:00Z", "--end", "2030-01-01T01:00:00Z"});
    EXPECT_EQ(speed.status, 0);
    EXPECT_TRUE(speed.out.starts_with("{\"speedKMH\":")) << speed.out;

    const auto order = runCli({"gpx", "required-speed", corpusFile, "--start",
                               "2030-01-01T01:00:00Z", "--end", "2030-01-01T01:00:00+01:00"});
    EXPECT_EQ(order.status, 2);
    EXPECT_TRUE(order.err.starts_with("Die Endzeit muss nach der Startzeit liegen."));
}

TEST_F(GpxEditCli, PrintsTheResultsSizeOrTheRefusal) {
    const auto merged = runCli({"gpx", "merge", corpusFile, "-o", path("m")});
    EXPECT_EQ(merged.out, "{\"points\":46,\"segments\":1}\n");

    const auto moved =
        runCli({"gpx", "move", corpusFile, "--point", "0", "--to", "90.000001,0", "-o", path("x")});
    EXPECT_EQ(moved.status, 2);
    EXPECT_EQ(moved.out, "");
    EXPECT_EQ(moved.err, "Die neue Position ist ungültig.\n");
    EXPECT_FALSE(std::filesystem::exists(path("x")));
}

TEST_F(GpxEditCli, NeverOverwritesAFileItWasGiven) {
    std::filesystem::copy_file(corpusFile, path("in.gpx"));
    std::filesystem::create_hard_link(path("in.gpx"), path("link.gpx"));
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"shift", path("in.gpx"), "--start", "2030-01-01T00:00:00Z", "-o", path("link.gpx")},
             {"merge", path("in.gpx"), "-o", m_folder + "/./in.gpx"},
             {"append", corpusFile, path("in.gpx"), "-o", path("in.gpx")},
             {"session", corpusFile, "--do", "append " + path("in.gpx"), "-o", path("in.gpx")}}) {
        auto command = arguments;
        command.insert(command.begin(), "gpx");
        const auto result = runCli(command);
        EXPECT_EQ(result.status, 2) << arguments[0];
        EXPECT_EQ(result.err, "Die Originaldatei darf nicht überschrieben werden. Bitte wähle "
                              "eine andere Datei.\n");
    }
    EXPECT_EQ(readFileBytes(path("in.gpx")), readFileBytes(corpusFile));
}

TEST_F(GpxEditCli, MalformedArgumentsAreUsageErrors) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"gpx", "trim", corpusFile, "-o", path("t")},
             {"gpx", "trim", corpusFile, "--before", "1", "--after", "2", "-o", path("t")},
             {"gpx", "delete", corpusFile, "--points", "1,,2", "-o", path("t")},
             {"gpx", "move", corpusFile, "--point", "1", "--to", "1;2", "-o", path("t")},
             {"gpx", "session", corpusFile, "--do", "delete"},
             {"gpx", "session", corpusFile, "--do", "air-routes maybe"},
             {"gpx", "session", corpusFile, "--do", "generate-speed 2024-05-01T10:00:00 5"},
             {"gpx", "shift", corpusFile, "--start", "2030-01-01T00:00:00", "-o", path("t")},
             {"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z", "-o", path("t")},
             {"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z", "--speed", "5",
              "--end", "2030-01-01T01:00:00Z", "-o", path("t")}}) {
        EXPECT_EQ(runCli(arguments).status, 1) << arguments[1] << " " << arguments.back();
    }
}

TEST_F(GpxEditCli, SessionPrintsItsStateAndWritesTheDisplayedTrack) {
    const auto result = runCli({"gpx", "session", corpusFile, "--do", "delete 0", "--do",
                                "move 1 48.5,11.25", "--do", "undo", "--do",
                                "generate-speed 2024-05-01T10:00:00Z 12", "-o", path("shown.gpx")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("{\"canUndo\":true,\"canRedo\":true,\"canMerge\":true,"
                                       "\"hasGeneratedTimes\":true,\"removesAirRoutes\":false,"
                                       "\"track\":{\"name\":\"No Times\","))
        << result.out;
    EXPECT_NE(result.out.find("\"pointList\":[{\"id\":0,"), std::string::npos);

    GPXEditingSession session(m_track, false);
    session.deletePoint(0);
    session.generate(*GPXTrack::parseTime("2024-05-01T10:00:00Z"), 12.0);
    EXPECT_EQ(readFileBytes(path("shown.gpx")), session.track()->data());
}

TEST_F(GpxEditCli, SessionStopsAtTheFirstRefusedStep) {
    const auto result = runCli({"gpx", "session", corpusFile, "--do", "delete 0", "--do",
                                "trim-start 0", "--do", "merge", "-o", path("never.gpx")});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "Vor diesem Punkt liegt nichts mehr.\n");
    EXPECT_TRUE(result.out.starts_with("{\"canUndo\":true,\"canRedo\":false,\"canMerge\":true,"));
    EXPECT_TRUE(result.out.ends_with(",\"failedStep\":1}\n"));
    EXPECT_FALSE(std::filesystem::exists(path("never.gpx")));
}

} // namespace
} // namespace trackloom
