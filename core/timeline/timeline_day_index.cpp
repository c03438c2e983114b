#include "core/timeline/timeline_day_index.h"

#include "core/base/cancellation.h"

namespace trackloom {

void forEachDayOf(const TimelinePoint& point, const TimelineCalendar& calendar,
                  const std::function<void(Instant)>& visit) {
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

TimelineDayIndex makeDayIndex(const std::vector<TimelinePoint>& points, const date::time_zone* zone,
                              std::stop_token token) {
    TimelineCalendar calendar(zone);
    std::map<Instant, std::vector<std::int64_t>> ids;
    // Points mostly arrive in time order: remembering the last day found spares
    // a tree search for nearly every point.
    auto latest = ids.end();
    for (std::size_t position = 0; position < points.size(); ++position) {
        if (position % 2048 == 0) {
            throwIfCancelled(token);
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
