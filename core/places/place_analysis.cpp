#include "core/places/place_analysis.h"

#include "core/base/cancellation.h"
#include "core/base/text_trimming.h"
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
std::optional<TimelinePoint> clipped(const TimelinePoint& point, DateInterval interval) {
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

/// The days found so far, keyed by the instant each starts.
class DayCollector {
  public:
    void add(Instant day, Instant first, Instant last) {
        const auto [entry, inserted] =
            m_days.try_emplace(day.secondsSinceReference(), PlaceDay{day, first, last, 1});
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
    std::unordered_map<double, PlaceDay> m_days;
};

/// Records the evidence from `start` to `end` on every day it touches, from the
/// day starting at `day` on; an end exactly at midnight stays on the earlier day.
void addEvidence(DayCollector& collector, const TimelineCalendar& calendar, Instant day,
                 Instant start, Instant end, const std::stop_token& stop) {
    do {
        throwIfCancelled(stop);
        const auto next = calendar.startOfNextDay(day);
        if (!next) {
            return;
        }
        collector.add(day, std::max(start, day), std::min(end, *next));
        day = *next;
    } while (day < end);
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
    const auto latitude = parseFiniteNumber(trimmedWhitespace(pieces[0]));
    const auto longitude = parseFiniteNumber(trimmedWhitespace(pieces[1]));
    if (!latitude || !longitude || std::abs(*latitude) > 90 || std::abs(*longitude) > 180) {
        return std::nullopt;
    }
    return PlaceCoordinate{*latitude, *longitude};
}

std::vector<TimelinePoint> select(std::span<const TimelinePoint> points,
                                  std::optional<DateInterval> interval, bool visits,
                                  bool activities, std::stop_token stop) {
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
    const TimelineCalendar calendar(&zone);
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
        const auto day = calendar.startOfDay(start);
        // The walk needs a calendar day at the end too, or an endless visit never stops.
        if (!day || (end != start && !calendar.startOfDay(end))) {
            continue;
        }
        addEvidence(collector, calendar, *day, start, end, stop);
    }
    return collector.newestFirst();
}

} // namespace trackloom::PlaceAnalysis
