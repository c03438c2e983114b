#pragma once

// Calendar days of a timeline in one time zone. A day is represented by the
// instant at which it starts there. Day lookups run once or twice per point of
// a history of millions, so the calendar remembers the zone's offset period and
// the day it looked up last: points arriving in time order almost never reach
// the zone database.

#include "core/base/instant.h"

#include <cstdint>
#include <date/tz.h>
#include <optional>
#include <string>

namespace trackloom {

/// A span of time from `start` up to, not including, `end`.
struct DateInterval {
    Instant start;
    Instant end;

    friend bool operator==(const DateInterval&, const DateInterval&) = default;
};

/// The zone named by the TZ environment variable when it names a known zone,
/// else the system's configured zone, else UTC. Looked up on every call.
const date::time_zone* systemTimeZone();

/// The zone with this IANA name (such as "Europe/Berlin"), absent if unknown.
const date::time_zone* findTimeZone(std::string_view name);

/// A Gregorian calendar in one time zone.
class TimelineCalendar {
  public:
    /// A calendar in `zone`, which must not be null.
    explicit TimelineCalendar(const date::time_zone* zone);

    const date::time_zone* timeZone() const { return m_zone; }

    /// The first instant of the local day holding `instant` (after midnight
    /// when a clock change skips it); absent for instants no calendar holds.
    std::optional<Instant> startOfDay(Instant instant) const;
    /// The start of the local day after the one that starts at `dayStart`.
    std::optional<Instant> startOfNextDay(Instant dayStart) const;
    /// The local day holding `instant`, from its start to the next day's start.
    std::optional<DateInterval> dayInterval(Instant instant) const;
    /// The start of the local day with this date, absent for an impossible date.
    std::optional<Instant> startOfDate(int year, unsigned month, unsigned day) const;
    /// The local date of `instant` as "yyyy-MM-dd".
    std::string dateText(Instant instant) const;

    /// Two calendars are equal when they use the same zone.
    friend bool operator==(const TimelineCalendar& a, const TimelineCalendar& b) {
        return a.m_zone == b.m_zone;
    }

  private:
    /// Days since 1970-01-01 of the local date holding `unixSeconds`.
    std::int64_t localDayNumber(std::int64_t unixSeconds) const;
    Instant startOfLocalDay(std::int64_t dayNumber) const;

    const date::time_zone* m_zone;
    // Caches only; they never change what a call returns.
    mutable date::sys_info m_period{};
    mutable bool m_hasPeriod = false;
    mutable std::int64_t m_cachedDay = 0;
    mutable Instant m_cachedDayStart;
    mutable bool m_hasCachedDay = false;
};

} // namespace trackloom
