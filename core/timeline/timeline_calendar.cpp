#include "core/timeline/timeline_calendar.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace trackloom {
namespace {

constexpr std::int64_t secondsPerDay = 86400;
// About the year 30,000 either way: far beyond every valid point, and well
// inside what the date library's year type can express.
constexpr double largestCalendarSecond = 9e11;

std::optional<std::int64_t> wholeUnixSeconds(Instant instant) {
    const double seconds = instant.unixSeconds();
    if (!std::isfinite(seconds) || std::abs(seconds) > largestCalendarSecond) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(std::floor(seconds));
}

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    const auto quotient = value / divisor;
    return (value % divisor != 0 && value < 0) ? quotient - 1 : quotient;
}

} // namespace

const date::time_zone* findTimeZone(std::string_view name) {
    try {
        return date::locate_zone(name);
    } catch (const std::exception&) {
        return nullptr;
    }
}

const date::time_zone* systemTimeZone() {
    if (const char* variable = std::getenv("TZ"); variable != nullptr && *variable != '\0') {
        std::string_view name(variable);
        if (name.front() == ':') {
            name.remove_prefix(1);
        }
        if (const auto* zone = findTimeZone(name)) {
            return zone;
        }
    }
    try {
        return date::current_zone();
    } catch (const std::exception&) {
        return date::locate_zone("UTC");
    }
}

TimelineCalendar::TimelineCalendar(const date::time_zone* zone) : m_zone(zone) {}

std::int64_t TimelineCalendar::localDayNumber(std::int64_t unixSeconds) const {
    const date::sys_seconds moment{std::chrono::seconds(unixSeconds)};
    if (!m_hasPeriod || moment < m_period.begin || moment >= m_period.end) {
        m_period = m_zone->get_info(moment);
        m_hasPeriod = true;
    }
    return floorDivide(unixSeconds + m_period.offset.count(), secondsPerDay);
}

Instant TimelineCalendar::startOfLocalDay(std::int64_t dayNumber) const {
    if (!m_hasCachedDay || m_cachedDay != dayNumber) {
        const date::local_days midnight{date::days(dayNumber)};
        const date::sys_seconds midnightAtOffset{midnight.time_since_epoch() - m_period.offset};
        // Inside one offset period the clock runs without jumps, so midnight read
        // with that offset is the day's first instant, unless a clock turned back
        // shortly before showed that midnight already (no change turns a clock
        // back by two days). Only days near a clock change need the zone's rules.
        const bool insidePeriod = m_hasPeriod &&
                                  m_period.begin + date::days(2) < midnightAtOffset &&
                                  midnightAtOffset < m_period.end;
        const auto start =
            insidePeriod ? midnightAtOffset : m_zone->to_sys(midnight, date::choose::earliest);
        m_cachedDay = dayNumber;
        m_cachedDayStart =
            Instant::fromUnixSeconds(static_cast<double>(start.time_since_epoch().count()));
        m_hasCachedDay = true;
    }
    return m_cachedDayStart;
}

std::optional<Instant> TimelineCalendar::startOfDay(Instant instant) const {
    const auto seconds = wholeUnixSeconds(instant);
    if (!seconds) {
        return std::nullopt;
    }
    return startOfLocalDay(localDayNumber(*seconds));
}

std::optional<Instant> TimelineCalendar::startOfNextDay(Instant dayStart) const {
    const auto seconds = wholeUnixSeconds(dayStart);
    if (!seconds) {
        return std::nullopt;
    }
    const auto next = startOfLocalDay(localDayNumber(*seconds) + 1);
    if (!wholeUnixSeconds(next)) {
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
    const auto seconds = wholeUnixSeconds(instant);
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
