#include "core/base/zoned_calendar.h"

#include <cmath>
#include <cstdint>

namespace trackloom {
namespace {

constexpr double rangeSeconds = 8.0e11;
constexpr int rangeDays = static_cast<int>(rangeSeconds / 86400);

Instant instantAt(date::sys_seconds time) {
    return Instant::fromUnixSeconds(static_cast<double>(time.time_since_epoch().count()));
}

} // namespace

std::optional<date::sys_seconds> ZonedCalendar::wholeSeconds(Instant instant) {
    const double unix = instant.unixSeconds();
    if (!(std::abs(unix) <= rangeSeconds)) {
        return std::nullopt;
    }
    return date::sys_seconds(std::chrono::seconds(static_cast<std::int64_t>(std::floor(unix))));
}

bool ZonedCalendar::holds(date::local_days day) {
    const int count = day.time_since_epoch().count();
    return count >= -rangeDays && count <= rangeDays;
}

ZonedCalendar::ZonedCalendar(const date::time_zone& zone, int firstWeekday)
    : m_zone(&zone), m_firstWeekday(((firstWeekday - 1) % 7 + 7) % 7 + 1) {}

std::optional<date::local_days> ZonedCalendar::day(Instant instant) const {
    const auto seconds = wholeSeconds(instant);
    if (!seconds) {
        return std::nullopt;
    }
    return date::floor<date::days>(m_zone->to_local(*seconds));
}

std::optional<Instant> ZonedCalendar::start(date::local_days day) const {
    if (!holds(day)) {
        return std::nullopt;
    }
    // A skipped midnight resolves to the moment the clocks jump, which is the
    // first instant of that day.
    return instantAt(m_zone->to_sys(date::local_seconds(day), date::choose::earliest));
}

std::optional<Instant> ZonedCalendar::startOfDay(Instant instant) const {
    const auto found = day(instant);
    return found ? start(*found) : std::nullopt;
}

std::optional<LocalTime> ZonedCalendar::localTime(Instant instant) const {
    const auto seconds = wholeSeconds(instant);
    if (!seconds) {
        return std::nullopt;
    }
    const auto local = m_zone->to_local(*seconds);
    const auto day = date::floor<date::days>(local);
    const double fraction = instant.unixSeconds() - std::floor(instant.unixSeconds());
    return LocalTime{day, static_cast<double>((local - day).count()) + fraction};
}

std::optional<Instant> ZonedCalendar::instant(LocalTime time) const {
    if (!holds(time.day) || !(time.secondsIntoDay >= 0 && time.secondsIntoDay < 86400)) {
        return std::nullopt;
    }
    const double whole = std::floor(time.secondsIntoDay);
    const auto local =
        date::local_seconds(time.day) + std::chrono::seconds(static_cast<std::int64_t>(whole));
    const auto info = m_zone->get_info(local);
    if (info.result == date::local_info::nonexistent) {
        return std::nullopt;
    }
    const auto utc = date::sys_seconds(local.time_since_epoch()) - info.first.offset;
    return instantAt(utc).advanced(time.secondsIntoDay - whole);
}

int ZonedCalendar::weekday(date::local_days day) {
    return static_cast<int>(date::weekday(day).c_encoding()) + 1;
}

} // namespace trackloom
