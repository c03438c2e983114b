#pragma once

// The working copy (".gpxhistory"): the application's own JSON file of edited
// timeline points, so that work can continue later. It is recognised by its
// content, never by its name, and is never written in Google's format.
//
// Layout: {"format":"TrackloomTimeline","version":2,"points":[…]}, each point
// with the keys id, segment, kind, latitude, longitude, time, endTime, label,
// order in this order; endTime and order only when present. Times are seconds
// since 2001-01-01T00:00:00Z, the value an `Instant` holds.

#include "core/timeline/timeline_point.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace trackloom {

inline constexpr std::string_view workingCopyFormat = "TrackloomTimeline";
/// The version written; version 1 files are read as well.
inline constexpr std::int64_t workingCopyVersion = 2;

struct WorkingCopy {
    std::string format;
    std::int64_t version = 0;
    std::vector<TimelinePoint> points;
};

/// Compact JSON of `points` in the given order, marked as the current version.
/// Throws `GPXError` when a point holds a number that is not finite.
std::string encodeWorkingCopy(const std::vector<TimelinePoint>& points);

namespace json {
class OnDemandDocument;
}

/// Decodes `document` as a working copy of any format and version; absent when
/// it is not JSON or a member is missing or of the wrong type. Throws
/// `CancellationError` when `token` is stopped (checked every 1024 points).
std::optional<WorkingCopy> decodeWorkingCopy(json::OnDemandDocument& document,
                                             const std::stop_token& token);

} // namespace trackloom
