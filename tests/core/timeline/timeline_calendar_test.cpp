#include "core/base/zoned_calendar.h"
#include "core/timeline/timeline_calendar.h"
#include "timeline_test_support.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace trackloom {
namespace {

using testing::zone;

// Zones whose clock changes land on or around midnight, skip a whole day, or
// move by half an hour: where a cached day start could drift from the zone's rules.
const std::vector<std::string> awkwardZones{"Europe/Berlin",       "America/Sao_Paulo",
                                            "America/Havana",      "Pacific/Apia",
                                            "Australia/Lord_Howe", "UTC"};

std::vector<Instant> hourlyAcross(int firstYear, int lastYear) {
    std::vector<Instant> instants;
    const auto first = Instant::fromUnixSeconds(
        static_cast<double>(date::sys_seconds(date::sys_days(date::year(firstYear) / 1 / 1))
                                .time_since_epoch()
                                .count()));
    const auto last = Instant::fromUnixSeconds(
        static_cast<double>(date::sys_seconds(date::sys_days(date::year(lastYear) / 12 / 31))
                                .time_since_epoch()
                                .count()));
    for (auto instant = first; instant < last; instant = instant.advanced(3599.5)) {
        instants.push_back(instant);
    }
    return instants;
}

TEST(TimelineCalendar, CachedDayStartsAgreeWithTheZonedCalendar) {
    // Years with clock changes at midnight (Havana, São Paulo), Samoa's skipped
    // 30 December 2011, and a range crossing several changes in each direction.
    auto instants = hourlyAcross(2011, 2013);
    const auto early = hourlyAcross(1916, 1917);
    instants.insert(instants.end(), early.begin(), early.end());
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anyTime(-62135596800.0, 253402300799.0);
    for (int i = 0; i < 2000; ++i) {
        instants.push_back(Instant::fromUnixSeconds(anyTime(random)));
    }

    for (const auto& name : awkwardZones) {
        SCOPED_TRACE(name);
        const ZonedCalendar zoned(*zone(name));
        auto inOrder = instants;
        std::sort(inOrder.begin(), inOrder.end());
        auto shuffled = instants;
        std::shuffle(shuffled.begin(), shuffled.end(), random);
        for (const auto* pass : {&inOrder, &shuffled}) {
            const TimelineCalendar cached(zoned);
            for (const auto instant : *pass) {
                const auto start = cached.startOfDay(instant);
                ASSERT_EQ(start, zoned.startOfDay(instant)) << instant.unixSeconds();
                const auto next = cached.startOfNextDay(*start);
                ASSERT_TRUE(next.has_value());
                ASSERT_EQ(next, zoned.start(*zoned.day(instant) + date::days(1)))
                    << instant.unixSeconds();
            }
        }
    }
}

TEST(TimelineCalendar, DatesAndRangeEndsAsTheZonedCalendarHasThem) {
    for (const auto& name : awkwardZones) {
        SCOPED_TRACE(name);
        const ZonedCalendar zoned(*zone(name));
        const TimelineCalendar cached(zone(name));
        const auto first = date::local_days(date::year(1) / 1 / 1);
        const auto last = date::local_days(date::year(9999) / 12 / 31);
        EXPECT_EQ(cached.startOfDate(1, 1, 1), zoned.start(first));
        EXPECT_EQ(cached.startOfDate(9999, 12, 31), zoned.start(last));
        EXPECT_EQ(cached.dateText(*zoned.start(last)), "9999-12-31");
        EXPECT_EQ(cached.startOfDate(2023, 2, 29), std::nullopt);

        // Both calendars end at the same instants, and beyond them both say nothing.
        for (const double edge : {8e11, -8e11}) {
            for (const double step : {-86400.0 * 2, -1.0, 0.0, 1.0, 86400.0 * 2}) {
                const auto instant = Instant::fromUnixSeconds(edge + step);
                EXPECT_EQ(cached.startOfDay(instant), zoned.startOfDay(instant)) << edge + step;
            }
        }
        EXPECT_EQ(cached.startOfDay(Instant::fromUnixSeconds(8.1e11)), std::nullopt);
        EXPECT_EQ(cached.startOfDate(30000, 1, 1), std::nullopt);
    }
}

} // namespace
} // namespace trackloom
