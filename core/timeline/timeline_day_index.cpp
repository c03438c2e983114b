#include "core/timeline/timeline_day_index.h"

#include "core/base/cancellation.h"

namespace trackloom {

TimelineDayIndex makeDayIndex(const std::vector<TimelinePoint>& points, const date::time_zone* zone,
                              std::stop_token token, const ProgressReport& progress) {
    TimelineCalendar calendar(zone);
    std::map<Instant, std::vector<std::int64_t>> ids;
    // Points mostly arrive in time order: remembering the last day found spares
    // a tree search for nearly every point.
    auto latest = ids.end();
    for (std::size_t position = 0; position < points.size(); ++position) {
        if (position % 2048 == 0) {
            throwIfCancelled(token);
            if (progress) {
                progress(static_cast<double>(position) / static_cast<double>(points.size()));
            }
        }
        const auto& point = points[position];
        forEachDayOf(point, calendar, [&](Instant day) {
            if (latest == ids.end() || latest->first != day) {
                latest = ids.try_emplace(day).first;
            }
            latest->second.push_back(point.id);
        });
    }
    TimelineDayIndex index{calendar, {}};
    for (auto& [day, dayIDs] : ids) {
        index.days.emplace_hint(index.days.end(), day,
                                PointIDSet::fromUnordered(std::move(dayIDs)));
    }
    return index;
}

} // namespace trackloom
