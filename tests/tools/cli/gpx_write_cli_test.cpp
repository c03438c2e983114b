#include "cli_runner.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using trackloom::testing::runCli;

const std::string corpus = TRACKLOOM_CORPUS_DIR "/gpx/";
const std::string refusal =
    "Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine andere Datei.\n";

std::string contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class GpxWriteCli : public ::testing::Test {
  protected:
    void SetUp() override { m_folder = trackloom::testing::temporaryFolder(); }
    void TearDown() override { fs::remove_all(m_folder); }

    std::string file(const std::string& name) const { return (m_folder / name).string(); }

    /// A copy of a corpus file in the test folder.
    std::string opened(const std::string& corpusName) const {
        fs::copy_file(corpus + corpusName, m_folder / corpusName);
        return file(corpusName);
    }

    fs::path m_folder;
};

TEST_F(GpxWriteCli, CopyWritesTheFileBackByteForByte) {
    const auto source = corpus + "garmin-gpsmap-64s-with-extensions.gpx";
    const auto result = runCli({"gpx", "copy", source, "-o", file("out.gpx")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "{\"points\":3540,\"segments\":2}\n");
    EXPECT_EQ(contents(file("out.gpx")), contents(source));
    // Nothing but the written file is left in the folder.
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 1);
}

TEST_F(GpxWriteCli, WritingCommandsNeverOverwriteTheOpenedFile) {
    const auto track = opened("gpsbabel-segmented-tracks.gpx");
    const auto original = contents(track);
    fs::create_symlink(track, file("link.gpx"));
    fs::create_hard_link(track, file("hard.gpx"));
    for (const auto& target : {track, file("link.gpx"), file("hard.gpx")}) {
        for (const auto& command : std::vector<std::vector<std::string>>{
                 {"gpx", "copy", track, "-o", target},
                 {"gpx", "remove-air-routes", track, "-o", target},
                 {"gpx", "export-segment", track, "--segment", "0", "-o", target}}) {
            const auto result = runCli(command);
            EXPECT_EQ(result.status, 2) << command[1] << " " << target;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err, refusal);
        }
    }
    EXPECT_EQ(contents(track), original);
}

TEST_F(GpxWriteCli, ExportSegmentWritesOneSection) {
    const auto track = opened("gpsbabel-segmented-tracks.gpx");
    const auto result =
        runCli({"gpx", "export-segment", track, "--segment", "1", "-o", file("one.gpx")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "{\"points\":2,\"segments\":1}\n");
    const auto info = runCli({"gpx", "info", file("one.gpx")});
    EXPECT_NE(info.out.find("\"segments\":[{\"id\":0,\"name\":\"No Times\",\"pointIDs\":[0,1]}]"),
              std::string::npos)
        << info.out;

    const auto unknown =
        runCli({"gpx", "export-segment", track, "--segment", "99", "-o", file("x.gpx")});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "Kein Abschnitt ausgewählt.\n");
    EXPECT_FALSE(fs::exists(file("x.gpx")));
    EXPECT_EQ(
        runCli({"gpx", "export-segment", track, "--segment", "x", "-o", file("x.gpx")}).status, 1);
    EXPECT_EQ(runCli({"gpx", "export-segment", track, "-o", file("x.gpx")}).status, 1);
    EXPECT_EQ(runCli({"gpx", "copy", track}).status, 1);
}

TEST_F(GpxWriteCli, RemoveAirRoutesDropsOnlyTheStraightLines) {
    std::ofstream(file("air.gpx"))
        << "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><trkseg>"
           "<trkpt lat=\"50\" lon=\"7\"/><trkpt lat=\"50.01\" lon=\"7.01\"/>"
           "<trkpt lat=\"50.02\" lon=\"7\"/></trkseg></trk>\n"
           "<rte><rtept lat=\"50\" lon=\"7\"/><rtept lat=\"50.02\" lon=\"7\"/></rte>\n</gpx>\n";
    const auto result =
        runCli({"gpx", "remove-air-routes", file("air.gpx"), "-o", file("out.gpx")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "{\"points\":3,\"segments\":1}\n");
    EXPECT_EQ(contents(file("out.gpx")),
              "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><trkseg>"
              "<trkpt lat=\"50\" lon=\"7\"/><trkpt lat=\"50.01\" lon=\"7.01\"/>"
              "<trkpt lat=\"50.02\" lon=\"7\"/></trkseg></trk>\n\n</gpx>\n");
}

TEST_F(GpxWriteCli, SampleWritesTheGeneratedTrack) {
    const auto result = runCli({"gpx", "sample", "-o", file("sample.gpx")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "{\"points\":241,\"segments\":1}\n");
    const auto info = runCli({"gpx", "info", file("sample.gpx")});
    EXPECT_TRUE(info.out.starts_with("{\"name\":\"Beispielrunde\",\"namespace\":\"http://"
                                     "www.topografix.com/GPX/1/1\",\"start\":\"2025-06-01T08:30:"
                                     "00.000000Z\""))
        << info.out;
}

TEST_F(GpxWriteCli, FailedWritesLeaveNothingBehind) {
    const auto result = runCli({"gpx", "sample", "-o", file("missing-folder/sample.gpx")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.err.starts_with("Die Datei konnte nicht geschrieben werden: "))
        << result.err;
    EXPECT_EQ(fs::directory_iterator(m_folder), fs::directory_iterator());
}

} // namespace
