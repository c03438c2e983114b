#pragma once

// The waypoints of a GPX document: its `wpt` elements, which the track model
// itself does not derive because no edit or analysis uses them.

#include "core/track/gpx_track.h"

#include <optional>
#include <string>
#include <vector>

namespace trackloom {

struct Waypoint {
    /// The `name` element's text, trimmed; empty when there is none.
    std::string name;
    Coordinate coordinate;
    std::optional<Instant> time;
    std::optional<double> elevation;

    friend bool operator==(const Waypoint&, const Waypoint&) = default;
};

/// The waypoints of `track` in document order. A waypoint without readable
/// coordinates cannot be shown anywhere and is left out; an unreadable time or
/// elevation is left absent.
std::vector<Waypoint> waypointsOf(const GPXTrack& track);

} // namespace trackloom
