#pragma once

// Every position of a location history: a point of a recorded path, a stay at a
// place, or an endpoint of a coarse movement.

#include "core/base/instant.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace trackloom {

enum class TimelinePointKind { path, visit, activity };

inline constexpr std::array<TimelinePointKind, 3> allTimelinePointKinds = {
    TimelinePointKind::path, TimelinePointKind::visit, TimelinePointKind::activity};

/// "path", "visit" or "activity".
std::string_view rawValue(TimelinePointKind kind);
/// The kind with this raw value; absent for any other text.
std::optional<TimelinePointKind> timelinePointKind(std::string_view rawValue);
/// The localised user-visible name ("Streckenpunkt", "Aufenthalt", "Grobe Fahrt").
std::string title(TimelinePointKind kind);

struct TimelinePoint {
    /// Unique within one document or session; identity for selection and undo.
    std::int64_t id = 0;
    /// The section (one path record, visit or activity) the point belongs to.
    std::int64_t segment = 0;
    TimelinePointKind kind = TimelinePointKind::path;
    double latitude = 0;
    double longitude = 0;
    /// When recorded; a visit's start.
    Instant time;
    /// A visit's end; absent for path and activity points.
    std::optional<Instant> endTime;
    std::string label;
    /// Sort key among points with the same time; absent means `id` serves.
    std::optional<double> order;

    /// Finite order and coordinates within range, finite times with the end not
    /// before the start, and a year of 1…9999 in the system's time zone.
    bool isValid() const;
    /// The strict order of timeline points: time, then order key, then id.
    static bool precedes(const TimelinePoint& a, const TimelinePoint& b);

    friend bool operator==(const TimelinePoint&, const TimelinePoint&) = default;
};

} // namespace trackloom
