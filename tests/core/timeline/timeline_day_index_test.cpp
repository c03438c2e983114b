#include "core/timeline/timeline_day_index.h"
#include "timeline_test_support.h"

namespace trackloom {
namespace {

using testing::at;
using testing::pathPoint;
using testing::visitPoint;
using testing::zone;

/// The index as "date:count" texts, in date order.
std::vector<std::string> dayCounts(const std::vector<TimelinePoint>& points,
                                   const std::string& zoneName) {
    const auto index = makeDayIndex(points, zone(zoneName));
    std::vector<std::string> days;
    for (const auto& [start, ids] : index.days) {
        days.push_back(index.calendar.dateText(start) + ":" + std::to_string(ids.size()));
    }
    return days;
}

using Days = std::vector<std::string>;

TEST(DayIndex, VisitEndingAtMidnightStaysOnItsFirstDay) {
    // 22:00 to midnight in Berlin is 20:00 to 22:00 UTC, and 05:00 to 07:00 in Tokyo.
    const auto untilMidnight = visitPoint(0, 0, "2024-05-01T20:00:00Z", "2024-05-01T22:00:00Z");
    EXPECT_EQ(dayCounts({untilMidnight}, "Europe/Berlin"), (Days{"2024-05-01:1"}));
    EXPECT_EQ(dayCounts({untilMidnight}, "UTC"), (Days{"2024-05-01:1"}));
    EXPECT_EQ(dayCounts({untilMidnight}, "Asia/Tokyo"), (Days{"2024-05-02:1"}));

    const auto pastMidnight = visitPoint(0, 0, "2024-05-01T20:00:00Z", "2024-05-01T22:00:01Z");
    EXPECT_EQ(dayCounts({pastMidnight}, "Europe/Berlin"), (Days{"2024-05-01:1", "2024-05-02:1"}));
    EXPECT_EQ(dayCounts({pastMidnight}, "UTC"), (Days{"2024-05-01:1"}));
    EXPECT_EQ(dayCounts({pastMidnight}, "America/New_York"), (Days{"2024-05-01:1"}));
}

TEST(DayIndex, OnlyVisitsReachIntoFollowingDays) {
    const auto stay = visitPoint(0, 0, "2024-05-01T10:00:00Z", "2024-05-04T10:00:00Z");
    EXPECT_EQ(dayCounts({stay}, "UTC"),
              (Days{"2024-05-01:1", "2024-05-02:1", "2024-05-03:1", "2024-05-04:1"}));
    auto notAVisit = stay;
    notAVisit.kind = TimelinePointKind::activity;
    EXPECT_EQ(dayCounts({notAVisit}, "UTC"), (Days{"2024-05-01:1"}));
}

TEST(DayIndex, DaysFollowClockChanges) {
    // Berlin: 2024-03-31 has 23 hours, 2024-10-27 has 25.
    const std::vector<TimelinePoint> points = {
        pathPoint(0, 0, "2024-03-30T22:59:59Z"), pathPoint(1, 0, "2024-03-30T23:00:00Z"),
        pathPoint(2, 0, "2024-03-31T21:59:59Z"), pathPoint(3, 0, "2024-03-31T22:00:00Z"),
        pathPoint(4, 0, "2024-10-26T22:00:00Z"), pathPoint(5, 0, "2024-10-27T22:59:59Z"),
        pathPoint(6, 0, "2024-10-27T23:00:00Z")};
    EXPECT_EQ(
        dayCounts(points, "Europe/Berlin"),
        (Days{"2024-03-30:1", "2024-03-31:2", "2024-04-01:1", "2024-10-27:2", "2024-10-28:1"}));

    const TimelineCalendar berlin(zone("Europe/Berlin"));
    EXPECT_EQ(berlin.dayInterval(at("2024-10-27T12:00:00Z")),
              (DateInterval{at("2024-10-26T22:00:00Z"), at("2024-10-27T23:00:00Z")}));

    const auto stay = visitPoint(0, 0, "2024-10-26T12:00:00Z", "2024-10-28T12:00:00Z");
    std::vector<Instant> starts;
    for (const auto& [start, ids] : makeDayIndex({stay}, zone("Europe/Berlin")).days) {
        starts.push_back(start);
    }
    EXPECT_EQ(starts, (std::vector<Instant>{at("2024-10-25T22:00:00Z"), at("2024-10-26T22:00:00Z"),
                                            at("2024-10-27T23:00:00Z")}));
}

TEST(DayIndex, DayStartsAtItsFirstMidnightOrWhenTheClockJumpsPastIt) {
    // São Paulo skipped 2018-11-04 00:00 local time, going from -03:00 to -02:00.
    const TimelineCalendar saoPaulo(zone("America/Sao_Paulo"));
    EXPECT_EQ(saoPaulo.startOfDay(at("2018-11-04T12:00:00Z")), at("2018-11-04T03:00:00Z"));
    EXPECT_EQ(saoPaulo.dayInterval(at("2018-11-03T12:00:00Z")),
              (DateInterval{at("2018-11-03T03:00:00Z"), at("2018-11-04T03:00:00Z")}));
    EXPECT_EQ(saoPaulo.startOfDate(2018, 11, 4), at("2018-11-04T03:00:00Z"));
    EXPECT_FALSE(saoPaulo.startOfDate(2018, 2, 29));

    // Havana turned its clocks back from 01:00 to 00:00 on 2023-11-05: that day
    // starts at the first of its two midnights.
    const TimelineCalendar havana(zone("America/Havana"));
    EXPECT_EQ(havana.startOfDay(at("2023-11-05T12:00:00Z")), at("2023-11-05T04:00:00Z"));
    EXPECT_EQ(havana.startOfNextDay(at("2023-11-04T04:00:00Z")), at("2023-11-05T04:00:00Z"));
    EXPECT_EQ(havana.startOfNextDay(at("2023-11-05T04:00:00Z")), at("2023-11-06T05:00:00Z"));
}

TEST(DayIndex, EndlessStayIsCappedAtAHundredYearsOfDays) {
    const auto stay = visitPoint(0, 0, "1900-01-01T12:00:00Z", "2200-01-01T12:00:00Z");
    const auto index = makeDayIndex({stay}, zone("UTC"));
    EXPECT_EQ(index.days.size(), longestStayInDays);
    EXPECT_EQ(index.days.rbegin()->first, at("2000-03-16T00:00:00Z"));
}

TEST(DayIndex, PointsInAnyOrderGiveSortedDaySets) {
    const auto index = makeDayIndex({pathPoint(9, 0, "2024-05-01T12:00:00Z"),
                                     pathPoint(2, 0, "2024-05-02T12:00:00Z"),
                                     pathPoint(4, 0, "2024-05-01T08:00:00Z")},
                                    zone("UTC"));
    const auto& first = index.days.begin()->second;
    EXPECT_EQ(std::vector<std::int64_t>(first.begin(), first.end()),
              (std::vector<std::int64_t>{4, 9}));
}

} // namespace
} // namespace trackloom
