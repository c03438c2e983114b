#pragma once

// What the day list tells about each day beyond its point count: when the day's
// evidence begins and ends, how many stays it holds and under which labels (for
// the day search), and how far its recorded paths lead. Pure, for a pass over a
// whole history in the background or over one day after an edit.

#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

#include <cstdint>
#include <map>
#include <stop_token>
#include <string>
#include <vector>

namespace trackloom {

struct TimelineDaySummary {
    /// The first and last moment of evidence, clipped to the day (a stay from
    /// the evening before starts the day at its first instant).
    Instant first;
    Instant last;
    std::int64_t visits = 0;
    /// Metres along consecutive path points of one section, within the day.
    double pathDistance = 0;
    /// The labels of the day's visits, in time order, without repeats.
    std::vector<std::string> visitLabels;

    friend bool operator==(const TimelineDaySummary&, const TimelineDaySummary&) = default;
};

/// The summaries of every day that `points` lie on in `calendar`, the points
/// given in recorded order (as imported, or in `precedes` order), so that the
/// points of a path section follow each other. Throws `CancellationError` when `token` is stopped
/// (checked every 4096 points).
std::map<Instant, TimelineDaySummary> summarizeDays(const std::vector<TimelinePoint>& points,
                                                    const TimelineCalendar& calendar,
                                                    std::stop_token token = {});

} // namespace trackloom
