#pragma once

// What every track operation needs between taking an editable copy and reading
// the result back: the copy's point elements in the order of the track's points,
// and the read-back that keeps the track's air routes recognised.

#include "core/track/gpx_track.h"

#include <set>
#include <vector>

namespace trackloom {

/// The point elements under `root` in reading order (every trkpt of every trkseg
/// of every trk, then every rtept of every rte), looked up in `namespaceURI`; the
/// element at position i is the point whose id is i.
std::vector<xml::Element> pointElements(xml::Element root, std::string_view namespaceURI);

/// The route indices of the track's air routes.
std::set<std::int64_t> airRouteIDs(const GPXTrack& track);

/// Serialises an edited copy of `track` and reads it back under the track's name,
/// keeping the given routes as air routes. Throws the reader's `GPXError`.
TrackPtr readBack(const GPXTrack::EditableCopy& copy, const GPXTrack& track,
                  std::set<std::int64_t> knownAirRouteIDs);

} // namespace trackloom
