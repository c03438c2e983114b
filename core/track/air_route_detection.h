#pragma once

#include "core/track/track_model.h"

#include <vector>

namespace trackloom {

/// First and last point of a track with at least three points.
struct TrackEnds {
    TrackPoint first;
    TrackPoint last;
};

/// Routes whose ends lie this close to a detailed track's ends are straight-line
/// stand-ins for it (bound included).
inline constexpr double airRouteEndTolerance = 250.0;

/// Whether the two-point route a→b joins the ends of one of `tracks`, in either
/// orientation.
bool matchesDetailedTrack(const TrackPoint& a, const TrackPoint& b,
                          const std::vector<TrackEnds>& tracks);

} // namespace trackloom
