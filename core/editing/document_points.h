#pragma once

// What every track operation needs between taking an editable copy and reading
// the result back: the copy's point elements in the order of the track's points,
// and a read-back that keeps the track's air routes recognised.

#include "core/track/gpx_track.h"

#include <vector>

namespace trackloom {

/// The point elements of an editable copy of `track` (its root given) in the
/// order of the track's points: position i holds the point whose id is i.
std::vector<xml::Element> pointElements(const GPXTrack& track, xml::Element root);
/// The same for a track in `namespaceURI` that is no longer at hand.
std::vector<xml::Element> pointElements(std::string_view namespaceURI, xml::Element root);

/// The rte elements of the track's air routes in an editable copy of it.
std::vector<xml::Element> airRouteElements(const GPXTrack& track, xml::Element root);

/// The track the edited copy of `track` stands for, under the track's name. The given rte elements
/// of the copy count as air routes at whatever position the edit left them. Throws the reader's
/// `GPXError`.
TrackPtr readBack(GPXTrack::EditableCopy copy, const GPXTrack& track,
                  const std::vector<xml::Element>& airRoutes);

} // namespace trackloom
