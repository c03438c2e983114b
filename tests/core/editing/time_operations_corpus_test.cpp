// Every readable file of the corpus goes through shifting and generation; the
// results must read back with the same points and differ only in their times.

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/editing/time_operations.h"
#include "gpx_fixtures.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::readableCorpusTracks;

TEST(TimeOperationsOnCorpus, ShiftingMovesEveryPointAndChangesNothingElse) {
    const auto target = testing::at("2030-01-01T00:00:00Z");
    int shiftedFiles = 0;
    for (const auto& [name, track] : readableCorpusTracks()) {
        if (!track->start() || track->analysis().invalidTimes != 0 ||
            track->auxiliaryInvalidTimes() != 0) {
            continue;
        }
        SCOPED_TRACE(name);
        ++shiftedFiles;
        const auto bytes = shifted(*track, target);
        const auto result = GPXTrack::read(bytes, name);
        const double offset = target.secondsSince(*track->start());
        ASSERT_EQ(result->points().size(), track->points().size());
        for (std::size_t id = 0; id < track->points().size(); ++id) {
            const auto& before = track->points()[id].time;
            const auto& after = result->points()[id].time;
            ASSERT_EQ(before.has_value(), after.has_value()) << id;
            if (before) {
                ASSERT_NEAR(after->secondsSince(*before), offset, 2e-6) << id;
            }
        }
        EXPECT_EQ(testing::withoutTimeElements(bytes), testing::withoutTimeElements(track->data()));
    }
    EXPECT_GT(shiftedFiles, 50);
}

TEST(TimeOperationsOnCorpus, GenerationTimesEveryPointInOrder) {
    const auto start = testing::at("2024-05-01T10:00:00Z");
    for (const auto& [name, track] : readableCorpusTracks()) {
        SCOPED_TRACE(name);
        const auto result = GPXTrack::read(generated(*track, start, 12.5), name);
        ASSERT_EQ(result->points().size(), track->points().size());
        EXPECT_EQ(result->segments(), track->segments());
        EXPECT_EQ(result->start(), start);
        for (std::size_t id = 1; id < result->points().size(); ++id) {
            ASSERT_TRUE(result->points()[id].time) << id;
            ASSERT_GE(*result->points()[id].time, *result->points()[id - 1].time) << id;
        }
    }
}

} // namespace
} // namespace trackloom
