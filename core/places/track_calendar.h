#pragma once

// Calendar helpers behind the date pickers of both workspaces. Every helper
// works in the zone it is given, never in the process's own, so the same data
// shows the same days on any machine. A day is the instant at which it starts.

#include "core/base/instant.h"
#include "core/base/zoned_calendar.h"

#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace trackloom::TrackCalendar {

/// A Gregorian calendar in `zone` whose weeks begin on `firstWeekday`
/// (1 = Sunday … 7 = Saturday).
ZonedCalendar calendar(const date::time_zone& zone, int firstWeekday);

/// The six weeks (42 day starts) that show the month containing `instant`: the
/// grid begins on the last `firstWeekday` on or before the month's first day.
/// Empty when `instant` lies outside the calendar; a day it cannot place is left out.
std::vector<Instant> monthGrid(Instant instant, const date::time_zone& zone, int firstWeekday);

/// How many of `instants` fall on each day (Monday-first weeks). Days without
/// any have no entry; instants outside the calendar are not counted.
std::map<Instant, std::int64_t> pointCounts(std::span<const Instant> instants,
                                            const date::time_zone& zone);

/// The time of day of `timeOf` on the calendar day of `dayOf`, both read in
/// `zone`. Returns `dayOf` unchanged when that wall-clock time does not exist
/// on that day (skipped by a clock change) or either instant is unreadable.
Instant replacingDay(Instant timeOf, Instant dayOf, const date::time_zone& zone);

/// The starts of the days of `a` and `b`, earlier first, so that a range picked
/// backwards comes out forwards. An instant outside the calendar stands for itself.
std::pair<Instant, Instant> orderedDays(Instant a, Instant b, const date::time_zone& zone);

} // namespace trackloom::TrackCalendar
