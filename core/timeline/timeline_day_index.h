#pragma once

// Which points lie on which calendar day of one time zone. A point lies on the
// day of its time; a stay also on every further day it reaches, so that a visit
// over midnight shows on both days while one ending exactly at midnight does not
// reach into the next.

#include "core/base/cancellation.h"
#include "core/timeline/point_id_set.h"
#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

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
template <typename Visit>
void forEachDayOf(const TimelinePoint& point, const TimelineCalendar& calendar, Visit&& visit) {
    const auto first = calendar.startOfDay(point.time);
    if (!first) {
        return;
    }
    visit(*first);
    if (point.kind != TimelinePointKind::visit || !point.endTime ||
        !(*point.endTime > point.time)) {
        return;
    }
    // A stay that ends exactly at midnight is over before the next day begins.
    const auto last = calendar.startOfDay(point.endTime->advanced(-0.000001));
    if (!last) {
        return;
    }
    std::size_t count = 1;
    for (auto day = *first; day < *last && count < longestStayInDays; ++count) {
        const auto next = calendar.startOfNextDay(day);
        if (!next || !(*next > day)) {
            break;
        }
        visit(*next);
        day = *next;
    }
}

/// The day index of `points` (any order) in `zone`. Throws `CancellationError`
/// when `token` is stopped (checked every 2048 points, when `progress` also
/// learns the share of the points done).
TimelineDayIndex makeDayIndex(const std::vector<TimelinePoint>& points, const date::time_zone* zone,
                              std::stop_token token = {}, const ProgressReport& progress = {});

} // namespace trackloom
