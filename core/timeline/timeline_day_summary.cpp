#include "core/timeline/timeline_day_summary.h"

#include "core/base/cancellation.h"
#include "core/base/geodesy.h"
#include "core/timeline/timeline_day_index.h"

#include <algorithm>
#include <optional>

namespace trackloom {
namespace {

struct DayState {
    TimelineDaySummary summary;
    std::optional<std::int64_t> pathSegment;
    double pathLatitude = 0;
    double pathLongitude = 0;
};

void addPoint(DayState& state, bool isNew, const TimelinePoint& point, Instant day,
              const TimelineCalendar& calendar) {
    auto& summary = state.summary;
    const Instant first = std::max(point.time, day);
    Instant last = point.time;
    if (point.endTime) {
        const auto next = calendar.startOfNextDay(day);
        last = next ? std::min(*point.endTime, *next) : *point.endTime;
    }
    summary.first = isNew ? first : std::min(summary.first, first);
    summary.last = isNew ? last : std::max(summary.last, last);
    if (point.kind == TimelinePointKind::visit) {
        ++summary.visits;
        auto& labels = summary.visitLabels;
        if (!point.label.empty() &&
            std::find(labels.begin(), labels.end(), point.label) == labels.end()) {
            labels.push_back(point.label);
        }
    } else if (point.kind == TimelinePointKind::path) {
        if (state.pathSegment == point.segment) {
            summary.pathDistance += haversineDistance(state.pathLatitude, state.pathLongitude,
                                                      point.latitude, point.longitude);
        }
        state.pathSegment = point.segment;
        state.pathLatitude = point.latitude;
        state.pathLongitude = point.longitude;
    }
}

} // namespace

std::map<Instant, TimelineDaySummary> summarizeDays(const std::vector<TimelinePoint>& points,
                                                    const TimelineCalendar& calendar,
                                                    std::stop_token token) {
    std::map<Instant, DayState> states;
    auto latest = states.end();
    for (std::size_t position = 0; position < points.size(); ++position) {
        if (position % 4096 == 0) {
            throwIfCancelled(token);
        }
        const auto& point = points[position];
        forEachDayOf(point, calendar, [&](Instant day) {
            bool isNew = false;
            if (latest == states.end() || latest->first != day) {
                const auto [found, inserted] = states.try_emplace(day);
                latest = found;
                isNew = inserted;
            }
            addPoint(latest->second, isNew, point, day, calendar);
        });
    }
    std::map<Instant, TimelineDaySummary> summaries;
    for (auto& [day, state] : states) {
        summaries.emplace_hint(summaries.end(), day, std::move(state.summary));
    }
    return summaries;
}

} // namespace trackloom
