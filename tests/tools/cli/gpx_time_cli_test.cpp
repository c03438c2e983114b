#include "cli_runner.h"
#include "core/base/file_io.h"
#include "core/editing/time_operations.h"
#include "core/track/gpx_track.h"

#include <filesystem>
#include <gtest/gtest.h>

using trackloom::testing::runCli;

namespace trackloom {
namespace {

const std::string corpusFile = TRACKLOOM_CORPUS_DIR "/gpx/arc-app-example.gpx";

class GpxTimeCli : public ::testing::Test {
  protected:
    void SetUp() override { m_folder = trackloom::testing::temporaryFolder(); }
    void TearDown() override { std::filesystem::remove_all(m_folder); }
    std::string path(const std::string& name) const { return m_folder + "/" + name; }

    std::string m_folder;
};

TEST_F(GpxTimeCli, WritesExactlyTheOperationsBytesAndReportsTheResult) {
    const auto track = GPXTrack::read(readFileBytes(corpusFile), "arc-app-example.gpx");
    const auto start = *GPXTrack::parseTime("2030-01-01T00:00:00Z");
    const auto end = *GPXTrack::parseTime("2030-01-01T02:00:00+01:00");

    const auto shift =
        runCli({"gpx", "shift", corpusFile, "--start", "2030-01-01T00:00:00Z", "-o", path("s")});
    EXPECT_EQ(shift.status, 0) << shift.err;
    EXPECT_EQ(shift.out, "{\"points\":6,\"segments\":1}\n");
    EXPECT_EQ(readFileBytes(path("s")), shifted(*track, start));

    const auto bySpeed = runCli({"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z",
                                 "--speed", "7.5", "-o", path("g")});
    EXPECT_EQ(bySpeed.status, 0) << bySpeed.err;
    EXPECT_EQ(readFileBytes(path("g")), generated(*track, start, 7.5));

    const auto byEnd = runCli({"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z",
                               "--end", "2030-01-01T02:00:00+01:00", "-o", path("e")});
    EXPECT_EQ(byEnd.status, 0) << byEnd.err;
    EXPECT_EQ(readFileBytes(path("e")), generated(*track, start, end));
}

TEST_F(GpxTimeCli, RequiredSpeedPrintsTheSpeed) {
    const auto result = runCli({"gpx", "required-speed", corpusFile, "--start",
                                "2030-01-01T00:00:00Z", "--end", "2030-01-01T01:00:00Z"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out.starts_with("{\"speedKMH\":0.0279")) << result.out;
}

TEST_F(GpxTimeCli, RefusalsWriteNothing) {
    const auto speed = runCli({"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z",
                               "--speed", "1001", "-o", path("g")});
    EXPECT_EQ(speed.status, 2);
    EXPECT_EQ(speed.out, "");
    EXPECT_EQ(speed.err,
              "Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.\n");
    EXPECT_FALSE(std::filesystem::exists(path("g")));

    const auto order = runCli({"gpx", "required-speed", corpusFile, "--start",
                               "2030-01-01T01:00:00Z", "--end", "2030-01-01T01:00:00+01:00"});
    EXPECT_EQ(order.status, 2);
    EXPECT_TRUE(order.err.starts_with("Die Endzeit muss nach der Startzeit liegen."));
}

TEST_F(GpxTimeCli, NeverOverwritesTheOpenedFile) {
    std::filesystem::copy_file(corpusFile, path("in.gpx"));
    std::filesystem::create_hard_link(path("in.gpx"), path("link.gpx"));
    for (const auto& out : {path("in.gpx"), m_folder + "/./in.gpx", path("link.gpx")}) {
        const auto result =
            runCli({"gpx", "shift", path("in.gpx"), "--start", "2030-01-01T00:00:00Z", "-o", out});
        EXPECT_EQ(result.status, 2) << out;
        EXPECT_EQ(result.err, "Die Originaldatei darf nicht überschrieben werden. Bitte wähle "
                              "eine andere Datei.\n");
    }
    EXPECT_EQ(readFileBytes(path("in.gpx")), readFileBytes(corpusFile));
}

TEST_F(GpxTimeCli, TimesNeedAZoneAndGenerationNeedsSpeedOrEnd) {
    EXPECT_EQ(
        runCli({"gpx", "shift", corpusFile, "--start", "2030-01-01T00:00:00", "-o", path("s")})
            .status,
        1);
    EXPECT_EQ(
        runCli({"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z", "-o", path("g")})
            .status,
        1);
    EXPECT_EQ(runCli({"gpx", "generate", corpusFile, "--start", "2030-01-01T00:00:00Z", "--speed",
                      "5", "--end", "2030-01-01T01:00:00Z", "-o", path("g")})
                  .status,
              1);
}

} // namespace
} // namespace trackloom
