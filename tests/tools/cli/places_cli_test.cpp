#include "cli_runner.h"
#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/places/heat_cells.h"
#include "core/timeline/timeline_document.h"
#include "core/track/track_time.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <tuple>

using trackloom::testing::runCli;
using trackloom::testing::temporaryFolder;

namespace trackloom {
namespace {

namespace fs = std::filesystem;

constexpr PlaceCoordinate bonn{50.7374, 7.0982};
const std::string near = "50.7374, 7.0982";

TimelinePoint point(TimelinePointKind kind, std::string_view time, PlaceCoordinate at = bonn) {
    TimelinePoint p;
    p.kind = kind;
    p.latitude = at.latitude;
    p.longitude = at.longitude;
    p.time = *parseTrackTime(time);
    return p;
}

/// A working copy of `points` in a fresh folder, removed with the fixture.
class PlacesCli : public ::testing::Test {
  protected:
    void TearDown() override {
        if (!m_folder.empty()) {
            fs::remove_all(m_folder);
        }
    }

    std::string history(const std::vector<TimelinePoint>& points) {
        m_folder = temporaryFolder();
        const auto path = m_folder + "/Verlauf.gpxhistory";
        std::ofstream(path, std::ios::binary) << TimelineDocument::workingCopy(points);
        return path;
    }

    /// Days near Bonn: two on the first of May (one far away between them), one
    /// at 22:30 UTC, which is past midnight in Berlin, a two-hour visit and an
    /// activity's end.
    std::string bonnHistory() {
        using enum TimelinePointKind;
        auto stay = point(visit, "2024-05-04T10:00:00Z");
        stay.endTime = *parseTrackTime("2024-05-04T12:00:00Z");
        return history({point(path, "2024-05-01T08:00:00Z"),
                        point(path, "2024-05-01T12:00:00Z", {52.52, 13.405}),
                        point(path, "2024-05-01T17:30:00Z"), point(path, "2024-05-02T22:30:00Z"),
                        stay, point(activity, "2024-05-05T09:00:00Z")});
    }

  private:
    std::string m_folder;
};

/// One entry of `places days`; the times are UTC minutes ("2024-05-01T08:00").
std::string day(std::string_view date, std::string_view first, std::string_view last,
                int count = 1) {
    const auto time = [](std::string_view minute) { return std::string(minute) + ":00.000000Z"; };
    return std::string(R"({"day":")") + std::string(date) + R"(","first":")" + time(first) +
           R"(","last":")" + time(last) + R"(","count":)" + std::to_string(count) + "}";
}

std::string list(const std::vector<std::string>& entries) {
    std::string text = "[";
    for (const auto& entry : entries) {
        text += (text.size() > 1 ? "," : "") + entry;
    }
    return text + "]\n";
}

/// The output of `places days` near Bonn with `extra` options; a refusal fails.
std::string days(const std::string& file, const std::vector<std::string>& extra) {
    std::vector<std::string> arguments{"places", "days", file, "--near", near};
    arguments.insert(arguments.end(), extra.begin(), extra.end());
    const auto result = runCli(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
}

const auto mayFirst = day("2024-05-01", "2024-05-01T08:00", "2024-05-01T17:30", 2);
const auto visitDay = day("2024-05-04", "2024-05-04T10:00", "2024-05-04T12:00");
const auto evening = day("2024-05-02", "2024-05-02T22:30", "2024-05-02T22:30");

TEST_F(PlacesCli, DaysAreNewestFirstWithFirstLastAndCountInTheZone) {
    const auto file = bonnHistory();
    EXPECT_EQ(days(file, {"--zone", "UTC"}), list({visitDay, evening, mayFirst}));
    EXPECT_EQ(
        days(file, {"--zone", "Europe/Berlin"}),
        list({visitDay, day("2024-05-03", "2024-05-02T22:30", "2024-05-02T22:30"), mayFirst}));
    // Berlin lies 480 km away, so only a wide radius takes in the point there.
    EXPECT_EQ(days(file, {"--zone", "UTC", "--radius", "500000", "--no-visits"}),
              list({evening, day("2024-05-01", "2024-05-01T08:00", "2024-05-01T17:30", 3)}));
    EXPECT_EQ(days(file, {"--radius", "0"}), "[]\n");
}

TEST_F(PlacesCli, DaysSelectKindsAndClipToTheRange) {
    const auto file = bonnHistory();
    EXPECT_EQ(days(file, {"--zone", "UTC", "--no-visits"}), list({evening, mayFirst}));
    EXPECT_EQ(days(file, {"--zone", "UTC", "--no-visits", "--activities"}),
              list({day("2024-05-05", "2024-05-05T09:00", "2024-05-05T09:00"), evening, mayFirst}));
    // The start is included and the visit is cut off at the end.
    EXPECT_EQ(days(file, {"--zone", "UTC", "--from", "2024-05-01T17:30:00Z", "--to",
                          "2024-05-04T11:00:00Z"}),
              list({day("2024-05-04", "2024-05-04T10:00", "2024-05-04T11:00"), evening,
                    day("2024-05-01", "2024-05-01T17:30", "2024-05-01T17:30")}));
    // The end is excluded.
    EXPECT_EQ(days(file, {"--zone", "UTC", "--from", "2024-05-01T19:30:00+02:00", "--to",
                          "2024-05-02T22:30:00Z"}),
              list({day("2024-05-01", "2024-05-01T17:30", "2024-05-01T17:30")}));
}

TEST_F(PlacesCli, RefusalsAndUsageErrors) {
    const auto file = bonnHistory();
    const auto refusal = [](const std::vector<std::string>& arguments, const std::string& message) {
        const auto result = runCli(arguments);
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, message + "\n");
    };
    for (const auto* place : {"abc", "95, 7", "50.7"}) {
        refusal({"places", "days", file, "--near", place}, "Bitte gültige Koordinaten eingeben.");
    }
    for (const auto* radius : {"-1", "abc", "inf"}) {
        refusal({"places", "days", file, "--near", near, "--radius", radius},
                "Bitte einen Umkreis von mindestens 0 Metern eingeben.");
    }
    try {
        TimelineDocument::readFile(file + ".fehlt");
        ADD_FAILURE() << "a missing file reads";
    } catch (const GPXError& error) {
        refusal({"places", "heat", file + ".fehlt", "--region", "0,0,1,1", "--cell", "0.1"},
                error.message());
    }

    const std::vector<std::vector<std::string>> usageErrors{
        {"places", "days", file, "--near", near, "--zone", "Mars/Olympus"},
        {"places", "days", file, "--near", near, "--from", "2024-05-01T00:00:00Z"},
        {"places", "days", file, "--near", near, "--from", "gestern", "--to",
         "2024-05-02T00:00:00Z"},
        {"places", "days", file},
        {"places", "heat", file, "--region", "0,0,1", "--cell", "0.1"},
        {"places", "heat", file, "--region", "0,0,1,1,1", "--cell", "0.1"},
        {"places", "heat", file, "--region", "0,0,1,1", "--cell", "fein"},
        {"places", "heat", file, "--region", "0,0,1,1"},
        {"places"}};
    for (const auto& arguments : usageErrors) {
        EXPECT_EQ(runCli(arguments).status, 1) << arguments.back();
    }
}

std::string expectedCells(const std::vector<HeatSample>& samples, HeatRegion region, double cell) {
    auto cells = PlaceAnalysis::heatCells(samples, region, cell);
    std::sort(cells.begin(), cells.end(), [](const HeatCell& a, const HeatCell& b) {
        return std::tie(a.y, a.x) < std::tie(b.y, b.x);
    });
    JsonWriter json;
    json.beginArray();
    for (const auto& c : cells) {
        json.beginObject().key("x").value(c.x).key("y").value(c.y).key("count").value(c.count);
        json.endObject();
    }
    return json.endArray().takeText() + "\n";
}

TEST_F(PlacesCli, HeatCellsAreTheCoresSortedByRowThenColumn) {
    using enum TimelinePointKind;
    // Two rows of cells; the northern row's eastern cell holds two samples a
    // little farther north than its western neighbour, and the southern row
    // has cells at both edges of the map.
    const std::vector<PlaceCoordinate> places{{10, 100},  {-10, -100},   {10.001, 100.001},
                                              {10, -100}, {-10, 179.99}, {-10, -179.99}};
    std::vector<TimelinePoint> points;
    std::vector<HeatSample> samples;
    for (const auto& place : places) {
        points.push_back(point(path, "2024-05-01T08:00:00Z", place));
        samples.push_back(HeatSample::projecting(place));
    }
    auto stay = point(visit, "2024-05-02T08:00:00Z", {10, 100});
    stay.endTime = *parseTrackTime("2024-05-02T09:00:00Z");
    points.push_back(stay);
    const auto file = history(points);

    const auto all =
        runCli({"places", "heat", file, "--region", "0,0,1,1", "--cell", "0.125", "--no-visits"});
    EXPECT_EQ(all.status, 0) << all.err;
    EXPECT_EQ(all.out, expectedCells(samples, {0, 0, 1, 1}, 0.125));
    const auto cellCount = [](const std::string& text) {
        return std::count(text.begin(), text.end(), '{');
    };
    EXPECT_EQ(cellCount(all.out), 5);
    // By row first: the eastern cell comes before the western one.
    EXPECT_LT(all.out.find(R"("count":2)"), all.out.find(R"("x":0.2222)"));

    // A region reaching west across the 180° meridian picks up both sides of it.
    const auto across = runCli({"places", "heat", file, "--region", "-0.01,0.4,0.02,0.2", "--cell",
                                "0.005", "--no-visits"});
    EXPECT_EQ(across.status, 0) << across.err;
    EXPECT_EQ(across.out, expectedCells(samples, {-0.01, 0.4, 0.02, 0.2}, 0.005));
    EXPECT_EQ(cellCount(across.out), 2);

    samples.push_back(HeatSample::projecting({10, 100}));
    EXPECT_EQ(runCli({"places", "heat", file, "--region", "0,0,1,1", "--cell", "0.125"}).out,
              expectedCells(samples, {0, 0, 1, 1}, 0.125));
    EXPECT_EQ(runCli({"places", "heat", file, "--region", "0,0,1,1", "--cell", "0.125", "--from",
                      "2024-05-02T00:00:00Z", "--to", "2024-05-03T00:00:00Z"})
                  .out,
              expectedCells({samples.back()}, {0, 0, 1, 1}, 0.125));
    for (const auto* cell : {"0", "-0.1"}) {
        const auto empty = runCli({"places", "heat", file, "--region", "0,0,1,1", "--cell", cell});
        EXPECT_EQ(empty.status, 0);
        EXPECT_EQ(empty.out, "[]\n");
    }
}

} // namespace
} // namespace trackloom
