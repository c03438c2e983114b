#include "core/timeline/timeline_point.h"

#include "core/base/localization.h"
#include "core/base/time_zones.h"

#include <cmath>

namespace trackloom {

std::string_view rawValue(TimelinePointKind kind) {
    switch (kind) {
    case TimelinePointKind::path:
        return "path";
    case TimelinePointKind::visit:
        return "visit";
    case TimelinePointKind::activity:
        return "activity";
    }
    return "path";
}

std::optional<TimelinePointKind> timelinePointKind(std::string_view raw) {
    for (const auto kind : allTimelinePointKinds) {
        if (rawValue(kind) == raw) {
            return kind;
        }
    }
    return std::nullopt;
}

std::string title(TimelinePointKind kind) {
    switch (kind) {
    case TimelinePointKind::path:
        return localized("Streckenpunkt");
    case TimelinePointKind::visit:
        return localized("Aufenthalt");
    case TimelinePointKind::activity:
        return localized("Grobe Fahrt");
    }
    return {};
}

namespace {

// 0001-01-01T00:00:00Z and 10000-01-01T00:00:00Z in seconds since 1970. No time
// zone is more than a day away from UTC, so anything at least a day inside these
// limits has a valid year wherever the user is, without asking the calendar.
constexpr double firstValidUnixSecond = -62135596800.0;
constexpr double firstInvalidUnixSecond = 253402300800.0;
constexpr double oneDay = 86400.0;

int localYear(double unixSeconds) {
    const auto seconds =
        date::sys_seconds(std::chrono::seconds(static_cast<long long>(std::floor(unixSeconds))));
    static const date::time_zone* const zone = systemTimeZone();
    const auto local = zone->to_local(seconds);
    return static_cast<int>(date::year_month_day(date::floor<date::days>(local)).year());
}

bool hasValidYear(double unixSeconds) {
    if (unixSeconds >= firstValidUnixSecond + oneDay &&
        unixSeconds < firstInvalidUnixSecond - oneDay) {
        return true;
    }
    if (unixSeconds < firstValidUnixSecond - oneDay ||
        unixSeconds >= firstInvalidUnixSecond + oneDay) {
        return false;
    }
    const int year = localYear(unixSeconds);
    return year >= 1 && year <= 9999;
}

} // namespace

bool TimelinePoint::isValid() const {
    if (order && !std::isfinite(*order)) {
        return false;
    }
    if (!std::isfinite(latitude)) {
        return false;
    }
    if (!(std::abs(longitude) <= 180 && std::abs(latitude) <= 90 && std::isfinite(longitude))) {
        return false;
    }
    const double start = time.unixSeconds();
    if (!std::isfinite(start)) {
        return false;
    }
    if (endTime && (*endTime < time || !std::isfinite(endTime->unixSeconds()))) {
        return false;
    }
    return hasValidYear(start);
}

bool TimelinePoint::precedes(const TimelinePoint& a, const TimelinePoint& b) {
    if (a.time != b.time) {
        return a.time < b.time;
    }
    const double keyA = a.order.value_or(static_cast<double>(a.id));
    const double keyB = b.order.value_or(static_cast<double>(b.id));
    if (keyA != keyB) {
        return keyA < keyB;
    }
    return a.id < b.id;
}

} // namespace trackloom
