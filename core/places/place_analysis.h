#pragma once

// On which days did the history pass near a place, and when was the user first
// and last seen there each day? Only recorded points count as evidence; the
// straight lines a map draws between them never do. Everything here is pure and
// may run on any thread; long loops poll the stop token and throw
// `CancellationError`.

#include "core/base/instant.h"
#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

#include <cstdint>
#include <date/tz.h>
#include <optional>
#include <span>
#include <stop_token>
#include <string_view>
#include <vector>

namespace trackloom {

/// A place in decimal degrees (north and east positive); ranges are checked by
/// the functions that need them, not by the type.
struct PlaceCoordinate {
    double latitude = 0;
    double longitude = 0;

    friend bool operator==(const PlaceCoordinate&, const PlaceCoordinate&) = default;
};

/// The evidence of one calendar day: `day` is the instant the day starts in the
/// search's zone and identifies the record.
struct PlaceDay {
    Instant day;
    Instant first;
    Instant last;
    /// Points on the day, plus one for every day that a visit spans.
    std::int64_t count = 0;

    friend bool operator==(const PlaceDay&, const PlaceDay&) = default;
};

namespace PlaceAnalysis {

/// Great-circle distance in metres (haversine, mean Earth radius 6,371,008.8 m).
double distance(PlaceCoordinate a, PlaceCoordinate b);

/// Reads a typed "latitude, longitude" in signed decimal degrees with a decimal
/// point. Empty pieces between commas are ignored ("50.7,,7.1" is accepted) and
/// blanks around the numbers too; absent unless both numbers are finite and in
/// range (±90, ±180, bounds included).
std::optional<PlaceCoordinate> coordinate(std::string_view text);

/// The points a search considers, in input order: paths always; visits and
/// activities when wanted; with an interval only those inside it (start
/// included, end not; an interval that does not end after it starts selects
/// nothing), where a visit with a duration counts when it overlaps and comes
/// back clipped to the interval.
/// Throws `CancellationError` when stopped.
std::vector<TimelinePoint> select(std::span<const TimelinePoint> points,
                                  std::optional<DateInterval> interval, bool visits,
                                  bool activities, std::stop_token stop = {});

/// The days of `zone` with points within `radius` metres of `centre` (a point
/// exactly at the radius counts), newest first. A visit is evidence on every day
/// it overlaps; one ending at midnight does not reach the next day. Empty for a
/// centre out of range or a radius that is not positive and finite; points the
/// calendar cannot place are ignored. Throws `CancellationError` when stopped.
std::vector<PlaceDay> days(PlaceCoordinate centre, double radius,
                           std::span<const TimelinePoint> points, const date::time_zone& zone,
                           std::stop_token stop = {});

} // namespace PlaceAnalysis
} // namespace trackloom
