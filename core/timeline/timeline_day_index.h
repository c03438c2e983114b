#pragma once

// Which points lie on which calendar day of one time zone. A point lies on the
// day of its time; a stay also on every further day it reaches, so that a visit
// over midnight shows on both days while one ending exactly at midnight does not
// reach into the next.

#include "core/timeline/point_id_set.h"
#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

#include <functional>
#include <map>
#include <stop_token>
#include <vector>

namespace trackloom {

/// One day of the index and how many points lie on it.
struct TimelineDay {
    /// The instant the day starts.
    Instant date;
    std::int64_t count = 0;

    friend bool operator==(const TimelineDay&, const TimelineDay&) = default;
};

/// Point ids by the start of each day they lie on, and the calendar that made
/// the days; built off the main thread and installed afterwards.
struct TimelineDayIndex {
    TimelineCalendar calendar;
    std::map<Instant, PointIDSet> days;
};

/// At most this many days are counted for one stay; beyond, its record is broken.
inline constexpr std::size_t longestStayInDays = 36600;

/// Calls `visit` with the start of each day `point` lies on, in order.
void forEachDayOf(const TimelinePoint& point, const TimelineCalendar& calendar,
                  const std::function<void(Instant)>& visit);

/// The day index of `points` (any order) in `zone`. Throws `CancellationError`
/// when `token` is stopped (checked every 2048 points).
TimelineDayIndex makeDayIndex(const std::vector<TimelinePoint>& points, const date::time_zone* zone,
                              std::stop_token token = {});

} // namespace trackloom
