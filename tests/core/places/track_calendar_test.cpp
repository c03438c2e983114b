#include "core/places/track_calendar.h"
#include "core/track/track_time.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace trackloom {
namespace {

Instant at(std::string_view text) {
    return *parseTrackTime(text);
}

const date::time_zone& zone(std::string_view name) {
    return *date::locate_zone(name);
}

TEST(MonthGrid, AlwaysSixWeeksStartingOnTheFirstWeekday) {
    // February 2021 has 28 days and begins on a Monday.
    const auto february =
        TrackCalendar::monthGrid(at("2021-02-17T12:00:00Z"), zone("UTC"), ZonedCalendar::monday);
    ASSERT_EQ(february.size(), 42u);
    EXPECT_EQ(february.front(), at("2021-02-01T00:00:00Z"));
    EXPECT_EQ(february.back(), at("2021-03-14T00:00:00Z"));

    // August 2021 begins on a Sunday.
    const auto august = at("2021-08-31T23:00:00Z");
    EXPECT_EQ(TrackCalendar::monthGrid(august, zone("UTC"), ZonedCalendar::sunday).front(),
              at("2021-08-01T00:00:00Z"));
    EXPECT_EQ(TrackCalendar::monthGrid(august, zone("UTC"), ZonedCalendar::monday).front(),
              at("2021-07-26T00:00:00Z"));
    // Saturday first: the Sunday 1 August is preceded by one day.
    EXPECT_EQ(TrackCalendar::monthGrid(august, zone("UTC"), 7).front(), at("2021-07-31T00:00:00Z"));
}

TEST(MonthGrid, UsesTheMonthOfTheGivenZone) {
    // 31 August 23:30 in UTC is already September in Berlin.
    const auto grid = TrackCalendar::monthGrid(at("2021-08-31T23:30:00Z"), zone("Europe/Berlin"),
                                               ZonedCalendar::monday);
    EXPECT_EQ(grid.front(), at("2021-08-30T00:00:00+02:00"));
}

TEST(MonthGrid, EveryEntryIsALocalDayStartAcrossClockChanges) {
    const auto& berlin = zone("Europe/Berlin");
    const auto grid = TrackCalendar::monthGrid(at("2024-03-15T12:00:00Z"), berlin, 2);
    ASSERT_EQ(grid.size(), 42u);
    for (const auto start : grid) {
        const auto local = berlin.to_local(date::sys_seconds(
            std::chrono::seconds(static_cast<std::int64_t>(start.unixSeconds()))));
        EXPECT_EQ(local - date::floor<date::days>(local), std::chrono::seconds(0));
    }
    EXPECT_EQ(grid[35].secondsSince(grid[34]), 23 * 3600); // 31 March

    // Where a clock change skips midnight, the day starts when the clocks jump.
    const auto saoPaulo =
        TrackCalendar::monthGrid(at("2018-11-10T12:00:00Z"), zone("America/Sao_Paulo"), 2);
    EXPECT_EQ(saoPaulo[6], at("2018-11-04T01:00:00-02:00"));
}

TEST(PointCounts, CountsPerLocalDayWithoutEmptyDays) {
    EXPECT_TRUE(TrackCalendar::pointCounts({}, zone("UTC")).empty());
    const std::vector instants{at("2024-05-01T23:30:00Z"), at("2024-05-01T23:50:00Z"),
                               at("2024-05-02T00:10:00Z")};
    EXPECT_EQ(TrackCalendar::pointCounts(instants, zone("UTC")),
              (std::map<Instant, std::int64_t>{{at("2024-05-01T00:00:00Z"), 2},
                                               {at("2024-05-02T00:00:00Z"), 1}}));
    EXPECT_EQ(TrackCalendar::pointCounts(instants, zone("Europe/Berlin")),
              (std::map<Instant, std::int64_t>{{at("2024-05-02T00:00:00+02:00"), 3}}));
}

TEST(PointCounts, AgreesWithTheCalendarAcrossClockChangesInAnyOrder) {
    // Hourly instants through both clock changes of 2024 in New York: the days
    // have 23, 24 and 25 hours, however the instants are ordered.
    const auto& newYork = zone("America/New_York");
    std::vector<Instant> hourly;
    for (const auto* first : {"2024-03-09T00:00:00-05:00", "2024-11-02T00:00:00-04:00"}) {
        for (int hour = 0; hour < 72; ++hour) {
            hourly.push_back(at(first).advanced(hour * 3600.0));
        }
    }
    auto shuffled = hourly;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(7));
    const auto counts = TrackCalendar::pointCounts(hourly, newYork);
    EXPECT_EQ(counts, TrackCalendar::pointCounts(shuffled, newYork));
    EXPECT_EQ(counts.at(at("2024-03-10T00:00:00-05:00")), 23);
    EXPECT_EQ(counts.at(at("2024-11-03T00:00:00-04:00")), 25);
    const auto calendar = TrackCalendar::calendar(newYork, 2);
    for (const auto instant : hourly) {
        EXPECT_TRUE(counts.contains(*calendar.startOfDay(instant)));
    }
}

TEST(ReplacingDay, KeepsTheTimeOfDayOnTheOtherDay) {
    const auto& berlin = zone("Europe/Berlin");
    EXPECT_EQ(TrackCalendar::replacingDay(at("2024-01-20T14:05:30.25+01:00"),
                                          at("2024-03-03T23:59:00+01:00"), berlin),
              at("2024-03-03T14:05:30.25+01:00"));
    // From winter time into summer time the wall clock stays, not the offset.
    EXPECT_EQ(TrackCalendar::replacingDay(at("2024-01-20T08:00:00+01:00"),
                                          at("2024-06-01T12:00:00+02:00"), berlin),
              at("2024-06-01T08:00:00+02:00"));
    // 02:30 does not exist on 31 March; the chosen day comes back unchanged.
    const auto skippedDay = at("2024-03-31T12:00:00+02:00");
    EXPECT_EQ(TrackCalendar::replacingDay(at("2024-01-20T02:30:00+01:00"), skippedDay, berlin),
              skippedDay);
    // 02:30 happens twice on 27 October; the first one is taken.
    EXPECT_EQ(TrackCalendar::replacingDay(at("2024-01-20T02:30:00+01:00"),
                                          at("2024-10-27T12:00:00+01:00"), berlin),
              at("2024-10-27T02:30:00+02:00"));
}

TEST(OrderedDays, TurnsABackwardRangeAroundAsDayStarts) {
    const auto& berlin = zone("Europe/Berlin");
    const auto range = TrackCalendar::orderedDays(at("2024-05-05T18:00:00+02:00"),
                                                  at("2024-05-02T08:00:00+02:00"), berlin);
    EXPECT_EQ(range.first, at("2024-05-02T00:00:00+02:00"));
    EXPECT_EQ(range.second, at("2024-05-05T00:00:00+02:00"));
    const auto sameDay = TrackCalendar::orderedDays(at("2024-05-05T18:00:00+02:00"),
                                                    at("2024-05-05T08:00:00+02:00"), berlin);
    EXPECT_EQ(sameDay.first, sameDay.second);
}

} // namespace
} // namespace trackloom
