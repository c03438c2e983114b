#pragma once

// A Gregorian calendar pinned to one time zone. Days are the zone's local
// calendar days (`date::local_days`); a day is represented outside this class by
// the instant at which it starts, which is local midnight unless a clock change
// skips midnight, in which case it is the first instant that exists that day.
//
// The zone is resolved by the caller, once; nothing here looks a zone up by name.
// This is the one place that turns instants into days and days into their
// starts. It answers the date pickers' questions (weeks, wall-clock times);
// passes over many points find their days with `TimelineCalendar`, a cache on
// top of this calendar that gives the same answers.
//
// The supported range is about ±25,000 years around 1970, the same for every
// question: well inside what the date library's year type and the zone's offset
// arithmetic handle, and far beyond any recorded history.

#include "core/base/instant.h"

#include <date/tz.h>
#include <optional>

namespace trackloom {

/// A span of time from `start` up to, not including, `end`.
struct DateInterval {
    Instant start;
    Instant end;

    friend bool operator==(const DateInterval&, const DateInterval&) = default;
};

/// Wall-clock reading of an instant in a zone.
struct LocalTime {
    date::local_days day;
    /// Seconds since local midnight, with the instant's fraction of a second.
    double secondsIntoDay = 0;
};

class ZonedCalendar {
  public:
    /// Weekday numbers as the date pickers use them: 1 = Sunday … 7 = Saturday.
    static constexpr int sunday = 1;
    static constexpr int monday = 2;

    /// A calendar in `zone` whose weeks begin on `firstWeekday` (1 = Sunday …
    /// 7 = Saturday; other numbers are taken modulo 7, so 8 is Sunday again).
    explicit ZonedCalendar(const date::time_zone& zone, int firstWeekday = monday);

    const date::time_zone& zone() const { return *m_zone; }
    int firstWeekday() const { return m_firstWeekday; }

    /// The local day containing `instant`; absent for an instant that is not
    /// finite or lies beyond the calendar's range.
    std::optional<date::local_days> day(Instant instant) const;
    /// The instant at which `day` begins; absent beyond the calendar's range.
    std::optional<Instant> start(date::local_days day) const;
    /// The start of the day containing `instant`.
    std::optional<Instant> startOfDay(Instant instant) const;
    /// The wall-clock reading of `instant`; absent where `day` would be.
    std::optional<LocalTime> localTime(Instant instant) const;
    /// The instant at which the wall clock reads `time`. A reading that occurs
    /// twice (clocks turned back) gives the earlier one; a reading the clocks
    /// skip gives nothing.
    std::optional<Instant> instant(LocalTime time) const;

    /// 1 = Sunday … 7 = Saturday.
    static int weekday(date::local_days day);

    /// The whole second holding `instant` (rounded down); absent for an instant
    /// that is not finite or lies beyond the calendar's range.
    static std::optional<date::sys_seconds> wholeSeconds(Instant instant);
    /// Whether `day` lies inside the calendar's range.
    static bool holds(date::local_days day);

  private:
    const date::time_zone* m_zone;
    int m_firstWeekday;
};

} // namespace trackloom
