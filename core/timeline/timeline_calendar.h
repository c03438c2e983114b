#pragma once

// Calendar days of a timeline in one time zone. A day is represented by the
// instant at which it starts there. Day lookups run once or twice per point of
// a history of millions, so this calendar remembers the zone's offset period and
// the day it looked up last: points arriving in time order almost never reach
// the zone database. Everything it cannot answer from those caches it asks the
// `ZonedCalendar` underneath, so both give the same days over the same range.

#include "core/base/instant.h"
#include "core/base/zoned_calendar.h"

#include <cstdint>
#include <date/tz.h>
#include <optional>
#include <string>

namespace trackloom {

/// A Gregorian calendar in one time zone.
class TimelineCalendar {
  public:
    /// A calendar in `zone`, which must not be null.
    explicit TimelineCalendar(const date::time_zone* zone);
    /// A caching layer over `calendar`.
    explicit TimelineCalendar(const ZonedCalendar& calendar);

    const date::time_zone* timeZone() const { return &m_calendar.zone(); }

    /// The first instant of the local day holding `instant` (after midnight
    /// when a clock change skips it); absent for instants no calendar holds.
    std::optional<Instant> startOfDay(Instant instant) const;
    /// The start of the local day after the one that starts at `dayStart`.
    std::optional<Instant> startOfNextDay(Instant dayStart) const;
    /// The local day holding `instant`, from its start to the next day's start.
    std::optional<DateInterval> dayInterval(Instant instant) const;
    /// The start of the local day with this date, absent for an impossible date
    /// or one beyond the calendar's range.
    std::optional<Instant> startOfDate(int year, unsigned month, unsigned day) const;
    /// The local date of `instant` as "yyyy-MM-dd".
    std::string dateText(Instant instant) const;

    /// Two calendars are equal when they use the same zone.
    friend bool operator==(const TimelineCalendar& a, const TimelineCalendar& b) {
        return a.timeZone() == b.timeZone();
    }

  private:
    /// Days since 1970-01-01 of the local date holding `moment`.
    std::int64_t localDayNumber(date::sys_seconds moment) const;
    std::optional<Instant> startOfLocalDay(std::int64_t dayNumber) const;

    ZonedCalendar m_calendar;
    // Caches only; they never change what a call returns.
    mutable date::sys_info m_period{};
    mutable bool m_hasPeriod = false;
    mutable std::int64_t m_cachedDay = 0;
    mutable Instant m_cachedDayStart;
    mutable bool m_hasCachedDay = false;
};

} // namespace trackloom
