#include "core/places/place_analysis.h"

#include "core/base/cancellation.h"
#include "core/places/zoned_calendar.h"
#include "core/track/number_parsing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace trackloom::PlaceAnalysis {
namespace {

constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double earthRadius = 6371008.8;
constexpr double earthDiameter = 12742017.6;
constexpr std::size_t selectStride = 2048;
constexpr std::size_t daysStride = 1024;

/// One end of a distance with its trigonometry done once: a search measures
/// from the same centre to every point.
struct Origin {
    explicit Origin(PlaceCoordinate place)
        : latitude(place.latitude * radiansPerDegree), cosLatitude(std::cos(latitude)),
          longitude(place.longitude * radiansPerDegree) {}

    double metresTo(double otherLatitude, double otherLongitude) const {
        const double latitude2 = otherLatitude * radiansPerDegree;
        const double longitude2 = otherLongitude * radiansPerDegree;
        const double sinHalfLatitude = std::sin((latitude2 - latitude) / 2);
        const double sinHalfLongitude = std::sin((longitude2 - longitude) / 2);
        const double a = sinHalfLatitude * sinHalfLatitude +
                         cosLatitude * std::cos(latitude2) * sinHalfLongitude * sinHalfLongitude;
        return std::asin(std::sqrt(std::clamp(a, 0.0, 1.0))) * earthDiameter;
    }

    double latitude;
    double cosLatitude;
    double longitude;
};

// White space and line breaks beyond ASCII, as UTF-8: a coordinate copied from
// a web page often carries a no-break space.
constexpr std::string_view unicodeBlanks[] = {
    "\xc2\x85",     "\xc2\xa0",     "\xe1\x9a\x80", "\xe2\x80\x80", "\xe2\x80\x81",
    "\xe2\x80\x82", "\xe2\x80\x83", "\xe2\x80\x84", "\xe2\x80\x85", "\xe2\x80\x86",
    "\xe2\x80\x87", "\xe2\x80\x88", "\xe2\x80\x89", "\xe2\x80\x8a", "\xe2\x80\xa8",
    "\xe2\x80\xa9", "\xe2\x80\xaf", "\xe2\x81\x9f", "\xe3\x80\x80"};

/// Length of the blank that `text` begins with (or ends with, if `atEnd`); 0 if none.
std::size_t blankLength(std::string_view text, bool atEnd) {
    if (text.empty()) {
        return 0;
    }
    const char edge = atEnd ? text.back() : text.front();
    if (edge == ' ' || (edge >= '\t' && edge <= '\r')) {
        return 1;
    }
    for (const auto blank : unicodeBlanks) {
        if (atEnd ? text.ends_with(blank) : text.starts_with(blank)) {
            return blank.size();
        }
    }
    return 0;
}

std::string_view trimmedBlanks(std::string_view text) {
    while (const auto length = blankLength(text, false)) {
        text.remove_prefix(length);
    }
    while (const auto length = blankLength(text, true)) {
        text.remove_suffix(length);
    }
    return text;
}

std::vector<std::string_view> nonEmptyPieces(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        if (end > 0) {
            pieces.push_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

bool isWanted(TimelinePointKind kind, bool visits, bool activities) {
    switch (kind) {
    case TimelinePointKind::path:
        return true;
    case TimelinePointKind::visit:
        return visits;
    case TimelinePointKind::activity:
        return activities;
    }
    return false;
}

bool hasDuration(const TimelinePoint& point) {
    return point.kind == TimelinePointKind::visit && point.endTime && *point.endTime > point.time;
}

/// The point as the interval sees it, or nothing when it lies outside.
std::optional<TimelinePoint> clipped(const TimelinePoint& point, Interval interval) {
    if (!(interval.start < interval.end)) {
        return std::nullopt;
    }
    if (!hasDuration(point)) {
        if (interval.start <= point.time && point.time < interval.end) {
            return point;
        }
        return std::nullopt;
    }
    if (!(point.time<interval.end&& * point.endTime> interval.start)) {
        return std::nullopt;
    }
    auto copy = point;
    copy.time = std::max(point.time, interval.start);
    copy.endTime = std::min(*point.endTime, interval.end);
    return copy;
}

/// The days found so far, keyed by local day.
class DayCollector {
  public:
    void add(const CalendarDay& day, Instant first, Instant last) {
        const auto [entry, inserted] = m_days.try_emplace(day.day.time_since_epoch().count(),
                                                          PlaceDay{day.start, first, last, 1});
        if (!inserted) {
            auto& record = entry->second;
            record.first = std::min(record.first, first);
            record.last = std::max(record.last, last);
            ++record.count;
        }
    }

    std::vector<PlaceDay> newestFirst() const {
        std::vector<PlaceDay> result;
        result.reserve(m_days.size());
        for (const auto& entry : m_days) {
            result.push_back(entry.second);
        }
        std::sort(result.begin(), result.end(),
                  [](const PlaceDay& a, const PlaceDay& b) { return a.day > b.day; });
        return result;
    }

  private:
    std::unordered_map<int, PlaceDay> m_days;
};

/// Records the evidence from `start` to `end` on every day it touches; an end
/// exactly at midnight stays on the earlier day.
void addEvidence(DayCollector& collector, const ZonedCalendar& calendar, CalendarDay day,
                 Instant start, Instant end, const std::stop_token& stop) {
    do {
        throwIfCancelled(stop);
        const auto nextDay = day.day + date::days(1);
        const auto next = calendar.start(nextDay);
        if (!next) {
            return;
        }
        collector.add(day, std::max(start, day.start), std::min(end, *next));
        day = CalendarDay{nextDay, *next};
    } while (day.start < end);
}

bool isSearchable(PlaceCoordinate centre, double radius) {
    return std::isfinite(centre.latitude) && std::abs(centre.latitude) <= 90 &&
           std::isfinite(centre.longitude) && std::abs(centre.longitude) <= 180 &&
           std::isfinite(radius) && radius > 0;
}

} // namespace

double distance(PlaceCoordinate a, PlaceCoordinate b) {
    return Origin(a).metresTo(b.latitude, b.longitude);
}

std::optional<PlaceCoordinate> coordinate(std::string_view text) {
    const auto pieces = nonEmptyPieces(text, ',');
    if (pieces.size() != 2) {
        return std::nullopt;
    }
    const auto latitude = parseFiniteNumber(trimmedBlanks(pieces[0]));
    const auto longitude = parseFiniteNumber(trimmedBlanks(pieces[1]));
    if (!latitude || !longitude || std::abs(*latitude) > 90 || std::abs(*longitude) > 180) {
        return std::nullopt;
    }
    return PlaceCoordinate{*latitude, *longitude};
}

std::vector<TimelinePoint> select(std::span<const TimelinePoint> points,
                                  std::optional<Interval> interval, bool visits, bool activities,
                                  std::stop_token stop) {
    std::vector<TimelinePoint> selected;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % selectStride == 0) {
            throwIfCancelled(stop);
        }
        const auto& point = points[i];
        if (!isWanted(point.kind, visits, activities)) {
            continue;
        }
        if (!interval) {
            selected.push_back(point);
        } else if (auto kept = clipped(point, *interval)) {
            selected.push_back(std::move(*kept));
        }
    }
    return selected;
}

std::vector<PlaceDay> days(PlaceCoordinate centre, double radius,
                           std::span<const TimelinePoint> points, const date::time_zone& zone,
                           std::stop_token stop) {
    if (!isSearchable(centre, radius)) {
        return {};
    }
    const ZonedCalendar calendar(zone, ZonedCalendar::monday);
    DayFinder finder(calendar);
    DayCollector collector;
    const Origin origin(centre);
    // Most points lie farther north or south than the radius reaches; the band
    // rejects them before any trigonometry. It is a hair wider than the radius so
    // that rounding never rejects a point the distance itself would accept.
    const double band = radius / earthRadius * 180 / std::numbers::pi * (1 + 1e-9);
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % daysStride == 0) {
            throwIfCancelled(stop);
        }
        const auto& point = points[i];
        // Written as acceptance tests so that a NaN coordinate is never evidence.
        if (!(std::abs(point.latitude - centre.latitude) <= band) ||
            !(origin.metresTo(point.latitude, point.longitude) <= radius)) {
            continue;
        }
        const Instant start = point.time;
        const Instant end = hasDuration(point) ? *point.endTime : start;
        const auto day = finder.dayContaining(start);
        // The walk needs a calendar day at the end too, or an endless visit never stops.
        if (!day || (end != start && !calendar.day(end))) {
            continue;
        }
        addEvidence(collector, calendar, *day, start, end, stop);
    }
    return collector.newestFirst();
}

} // namespace trackloom::PlaceAnalysis
