#pragma once

#include "core/track/gpx_track.h"

namespace trackloom {

/// One document holding the waypoints, routes and tracks of `track` and then of
/// `other`, all sections kept apart. Elements of `other` move into this file's
/// namespace and prefix (extension content keeps its own names, and the
/// namespaces it needs are declared on the root); normal routes of either file
/// become tracks, air routes stay routes; bounds are dropped. Refuses files of
/// different GPX versions. Throws `GPXError`; neither track changes.
TrackPtr appending(const GPXTrack& track, const GPXTrack& other);

} // namespace trackloom
