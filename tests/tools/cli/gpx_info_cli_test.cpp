#include "cli_runner.h"

#include <gtest/gtest.h>

using trackloom::testing::runCli;

namespace {

const std::string corpus = TRACKLOOM_CORPUS_DIR "/gpx/";

TEST(GpxInfoCli, PrintsOneJsonObjectForAReadableFile) {
    const auto result = runCli({"gpx", "info", corpus + "arc-app-example.gpx"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(result.out.starts_with("{\"name\":\"arc-app-example\",\"namespace\":"));
    EXPECT_TRUE(result.out.ends_with("}\n"));
}

TEST(GpxInfoCli, RefusalPrintsTheMessageOnStderrWithStatusTwo) {
    const auto result = runCli({"gpx", "info", corpus + "osmand-bad-coordinates.gpx"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "Punkt 1 hat ungültige Koordinaten.\n");
}

TEST(GpxInfoCli, UsageErrorsExitWithOne) {
    EXPECT_EQ(runCli({"gpx", "info"}).status, 1);
    EXPECT_EQ(runCli({"gpx", "frobnicate"}).status, 1);
    EXPECT_EQ(runCli({}).status, 1);
}

} // namespace
