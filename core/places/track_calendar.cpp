#include "core/places/track_calendar.h"

#include "core/timeline/timeline_calendar.h"

namespace trackloom::TrackCalendar {

ZonedCalendar calendar(const date::time_zone& zone, int firstWeekday) {
    return ZonedCalendar(zone, firstWeekday);
}

std::vector<Instant> monthGrid(Instant instant, const date::time_zone& zone, int firstWeekday) {
    constexpr int gridDays = 42;
    const auto cal = calendar(zone, firstWeekday);
    const auto day = cal.day(instant);
    if (!day) {
        return {};
    }
    const auto month = date::year_month_day(*day).year() / date::year_month_day(*day).month();
    const auto firstOfMonth = date::local_days(month / 1);
    const int lead = (ZonedCalendar::weekday(firstOfMonth) - cal.firstWeekday() + 7) % 7;
    const auto gridStart = firstOfMonth - date::days(lead);
    std::vector<Instant> grid;
    grid.reserve(gridDays);
    for (int offset = 0; offset < gridDays; ++offset) {
        if (const auto start = cal.start(gridStart + date::days(offset))) {
            grid.push_back(*start);
        }
    }
    return grid;
}

std::map<Instant, std::int64_t> pointCounts(std::span<const Instant> instants,
                                            const date::time_zone& zone) {
    // The grid's calendar with a cache in front: the same days, found without
    // asking the zone database for each of millions of instants.
    const TimelineCalendar days(calendar(zone, ZonedCalendar::monday));
    std::map<Instant, std::int64_t> counts;
    auto current = counts.end();
    for (const auto instant : instants) {
        const auto start = days.startOfDay(instant);
        if (!start) {
            continue;
        }
        // Histories come sorted, so most instants land on the day before them.
        if (current == counts.end() || current->first != *start) {
            current = counts.try_emplace(*start, 0).first;
        }
        ++current->second;
    }
    return counts;
}

Instant replacingDay(Instant timeOf, Instant dayOf, const date::time_zone& zone) {
    const auto cal = calendar(zone, ZonedCalendar::monday);
    const auto time = cal.localTime(timeOf);
    const auto day = cal.day(dayOf);
    if (!time || !day) {
        return dayOf;
    }
    return cal.instant(LocalTime{*day, time->secondsIntoDay}).value_or(dayOf);
}

std::pair<Instant, Instant> orderedDays(Instant a, Instant b, const date::time_zone& zone) {
    const auto cal = calendar(zone, ZonedCalendar::monday);
    const auto first = cal.startOfDay(a).value_or(a);
    const auto second = cal.startOfDay(b).value_or(b);
    return second < first ? std::pair(second, first) : std::pair(first, second);
}

} // namespace trackloom::TrackCalendar
