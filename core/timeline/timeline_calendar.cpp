#include "core/timeline/timeline_calendar.h"

#include <cstdio>

namespace trackloom {
namespace {

constexpr std::int64_t secondsPerDay = 86400;

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    const auto quotient = value / divisor;
    return (value % divisor != 0 && value < 0) ? quotient - 1 : quotient;
}

} // namespace

TimelineCalendar::TimelineCalendar(const date::time_zone* zone) : m_calendar(*zone) {}

TimelineCalendar::TimelineCalendar(const ZonedCalendar& calendar) : m_calendar(calendar) {}

std::int64_t TimelineCalendar::localDayNumber(date::sys_seconds moment) const {
    if (!m_hasPeriod || moment < m_period.begin || moment >= m_period.end) {
        m_period = m_calendar.zone().get_info(moment);
        m_hasPeriod = true;
    }
    return floorDivide(moment.time_since_epoch().count() + m_period.offset.count(), secondsPerDay);
}

std::optional<Instant> TimelineCalendar::startOfLocalDay(std::int64_t dayNumber) const {
    if (m_hasCachedDay && m_cachedDay == dayNumber) {
        return m_cachedDayStart;
    }
    const date::local_days midnight{date::days(dayNumber)};
    if (!ZonedCalendar::holds(midnight)) {
        return std::nullopt;
    }
    const date::sys_seconds midnightAtOffset{midnight.time_since_epoch() - m_period.offset};
    // Inside one offset period the clock runs without jumps, so midnight read
    // with that offset is the day's first instant, unless a clock turned back
    // shortly before showed that midnight already (no change turns a clock
    // back by two days). Only days near a clock change need the zone's rules.
    const bool insidePeriod = m_hasPeriod && m_period.begin + date::days(2) < midnightAtOffset &&
                              midnightAtOffset < m_period.end;
    const auto start = insidePeriod ? Instant::fromUnixSeconds(static_cast<double>(
                                          midnightAtOffset.time_since_epoch().count()))
                                    : m_calendar.start(midnight);
    if (start) {
        m_cachedDay = dayNumber;
        m_cachedDayStart = *start;
        m_hasCachedDay = true;
    }
    return start;
}

std::optional<Instant> TimelineCalendar::startOfDay(Instant instant) const {
    const auto seconds = ZonedCalendar::wholeSeconds(instant);
    if (!seconds) {
        return std::nullopt;
    }
    return startOfLocalDay(localDayNumber(*seconds));
}

std::optional<Instant> TimelineCalendar::startOfNextDay(Instant dayStart) const {
    const auto seconds = ZonedCalendar::wholeSeconds(dayStart);
    if (!seconds) {
        return std::nullopt;
    }
    const auto next = startOfLocalDay(localDayNumber(*seconds) + 1);
    if (!next || !ZonedCalendar::wholeSeconds(*next)) {
        return std::nullopt;
    }
    return next;
}

std::optional<DateInterval> TimelineCalendar::dayInterval(Instant instant) const {
    const auto start = startOfDay(instant);
    const auto end = start ? startOfNextDay(*start) : std::nullopt;
    if (!end) {
        return std::nullopt;
    }
    return DateInterval{*start, *end};
}

std::optional<Instant> TimelineCalendar::startOfDate(int year, unsigned month, unsigned day) const {
    const date::year_month_day date{date::year(year), date::month(month), date::day(day)};
    if (!date.ok()) {
        return std::nullopt;
    }
    return startOfLocalDay(date::local_days(date).time_since_epoch().count());
}

std::string TimelineCalendar::dateText(Instant instant) const {
    const auto seconds = ZonedCalendar::wholeSeconds(instant);
    if (!seconds) {
        return {};
    }
    const date::year_month_day date{date::sys_days(date::days(localDayNumber(*seconds)))};
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return buffer;
}

} // namespace trackloom
