#pragma once

// Writing a selection of timeline points as a GPX 1.1 file, so that a day of
// the history can be used like any recorded track. Stays become waypoints;
// path points and the endpoints of coarse movements become one track per
// segment. Segments are never joined: a gap in the history stays a gap, and a
// coarse movement is marked as the straight line between its two stored ends.

#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

#include <cstdint>
#include <string>
#include <vector>

namespace trackloom {

/// A written GPX document and what it holds.
struct TimelineGPX {
    std::string data;
    std::int64_t waypoints = 0;
    std::int64_t tracks = 0;
    std::int64_t trackPoints = 0;
};

/// "Google-Zeitachse 2024-05-01" for one day of `calendar`, or
/// "Google-Zeitachse 2024-05-01 – 2024-05-03" for an interval over several;
/// the end itself belongs to the next day and does not count.
std::string timelineExportTitle(DateInterval interval, const TimelineCalendar& calendar);

/// GPX 1.1 of `points` (in `precedes` order) exported for `interval` under
/// `title`: visits as waypoints noting their end, noting also when the stay
/// lasts beyond the interval; everything else as one track per segment, in
/// segment order.
TimelineGPX writeTimelineGPX(const std::vector<TimelinePoint>& points, DateInterval interval,
                             const std::string& title);

} // namespace trackloom
