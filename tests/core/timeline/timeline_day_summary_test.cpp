#include "core/timeline/timeline_day_summary.h"
#include "core/track/track_time.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

Instant at(const char* text) {
    return *parseTrackTime(text);
}

TimelinePoint pathPoint(std::int64_t id, std::int64_t segment, double latitude, const char* time) {
    return {id, segment, TimelinePointKind::path, latitude, 7.0, at(time), {}, {}, {}};
}

TEST(TimelineDaySummary, PathsCountOnlyWithinASectionAndStaysAreClippedToEachDay) {
    const TimelineCalendar berlin(date::locate_zone("Europe/Berlin"));
    TimelinePoint stay{10,
                       3,
                       TimelinePointKind::visit,
                       50.0,
                       7.0,
                       at("2025-06-01T20:00:00Z"),
                       at("2025-06-02T06:00:00Z"),
                       "Hotel",
                       {}};
    TimelinePoint lunch{11,
                        4,
                        TimelinePointKind::visit,
                        50.0,
                        7.0,
                        at("2025-06-02T10:00:00Z"),
                        at("2025-06-02T11:00:00Z"),
                        "Hotel",
                        {}};
    const std::vector<TimelinePoint> points = {
        pathPoint(0, 1, 50.0, "2025-06-01T08:00:00Z"),
        pathPoint(1, 1, 50.001, "2025-06-01T08:10:00Z"),
        // Another section: the jump between the two is no distance travelled.
        pathPoint(2, 2, 51.0, "2025-06-01T09:00:00Z"),
        pathPoint(3, 2, 51.002, "2025-06-01T09:10:00Z"),
        stay,
        lunch,
    };
    const auto summaries = summarizeDays(points, berlin);
    ASSERT_EQ(summaries.size(), 2u);
    const auto& first = summaries.begin()->second;
    EXPECT_EQ(summaries.begin()->first, at("2025-05-31T22:00:00Z"));
    EXPECT_EQ(first.first, at("2025-06-01T08:00:00Z"));
    // The stay runs past midnight: the day's evidence ends at its end.
    EXPECT_EQ(first.last, at("2025-06-01T22:00:00Z"));
    EXPECT_NEAR(first.pathDistance, 111.2 + 222.4, 0.5);
    EXPECT_EQ(first.visits, 1);

    const auto& second = summaries.rbegin()->second;
    EXPECT_EQ(second.first, at("2025-06-01T22:00:00Z"));
    EXPECT_EQ(second.last, at("2025-06-02T11:00:00Z"));
    EXPECT_EQ(second.visits, 2);
    EXPECT_EQ(second.visitLabels, std::vector<std::string>{"Hotel"});
    EXPECT_EQ(second.pathDistance, 0);
}

} // namespace
} // namespace trackloom
