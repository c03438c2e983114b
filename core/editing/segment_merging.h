#pragma once

// Joining all sections of a track into one, and the single-track export built
// on it, for travel apps that accept one track of one segment as a route.

#include "core/track/gpx_track.h"

#include <string>

namespace trackloom {

/// Number of sections (track segments and routes with points) that are not air
/// routes.
std::size_t sectionsBesideAirRoutes(const GPXTrack& track);

/// All points that are not air-route points moved, in reading order, into one new
/// trk of one trkseg (named after the first trk, else the track), placed before the
/// root extensions; route points become track points. The old tracks and normal
/// routes go with everything else they held; air routes stay. Refuses a track
/// with fewer than two such sections.
TrackPtr mergingSegments(const GPXTrack& track);

/// Exactly one trk with one trkseg: sections merged when there are several, then
/// waypoints, other routes and metadata bounds dropped (the root's bounds stay) and
/// a lone route turned into a track. A non-empty `name` names the track. Nothing in
/// the result counts as an air route.
TrackPtr singleTrack(const GPXTrack& track, const std::string& name);

} // namespace trackloom
