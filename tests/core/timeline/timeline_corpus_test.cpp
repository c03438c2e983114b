// Every real-world history of the corpus: phone exports are read with a
// consistent report and survive a working-copy round trip and a GPX export of
// each day; the other Google files are refused as not being phone exports.

#include "core/base/xml/xml_document.h"
#include "core/timeline/timeline_session.h"
#include "timeline_test_support.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace trackloom {
namespace {

namespace fs = std::filesystem;
using testing::refusal;
using testing::unsupportedExport;
using testing::zone;

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(TRACKLOOM_CORPUS_DIR "/timeline")) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool isPhoneExport(const fs::path& file) {
    return !file.filename().string().starts_with("negative-");
}

TEST(TimelineCorpus, OtherGoogleFilesAreRefused) {
    for (const auto& file : corpusFiles()) {
        if (!isPhoneExport(file)) {
            EXPECT_EQ(refusal([&] { TimelineDocument::readFile(file); }), unsupportedExport)
                << file.filename();
        }
    }
}

TEST(TimelineCorpus, PhoneExportsAreReadConsistently) {
    for (const auto& file : corpusFiles()) {
        if (!isPhoneExport(file)) {
            continue;
        }
        SCOPED_TRACE(file.filename().string());
        const auto document = TimelineDocument::readFile(file);
        const auto& report = document.report();
        const auto& points = document.points();
        EXPECT_EQ(static_cast<std::int64_t>(points.size()),
                  report.pathPoints + report.visits + report.activityPoints);
        EXPECT_LE(report.ignoredRecords, report.records);
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_EQ(points[i].id, static_cast<std::int64_t>(i));
            EXPECT_TRUE(points[i].isValid());
        }

        const auto copy = TimelineDocument::read(TimelineDocument::workingCopy(points));
        EXPECT_EQ(copy.points(), points);
        EXPECT_EQ(copy.report(), TimelineImportReport{});

        const TimelineSession session(document, zone("Europe/Berlin"));
        for (const auto& day : session.days()) {
            const auto gpx = session.gpxOn(day.date, true, true);
            EXPECT_NO_THROW(xml::Document::parse(gpx.data));
        }
    }
}

TEST(TimelineCorpus, HandCheckedReports) {
    const std::map<std::string, TimelineImportReport> expected = {
        // records, ignored, invalid, path points, visits, activity points
        {"mixed-forms-edge-cases.json", {5, 0, 1, 4, 0, 6}},
        {"android-object-missing-endTime.json", {2, 0, 1, 2, 0, 0}},
        {"ios-offset-numeric-and-bare-point.json", {1, 0, 0, 2, 0, 0}},
        {"ios-array-dawarich-with-timelineMemory.json", {4, 1, 0, 10, 1, 0}},
    };
    for (const auto& [name, report] : expected) {
        const auto document =
            TimelineDocument::readFile(fs::path(TRACKLOOM_CORPUS_DIR "/timeline") / name);
        EXPECT_EQ(document.report(), report) << name;
    }
}

} // namespace
} // namespace trackloom
