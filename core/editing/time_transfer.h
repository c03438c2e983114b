#pragma once

// Times that come from elsewhere: carried over from a derived track point by
// point, or interpolated for points inserted between two timed neighbours.

#include "core/track/gpx_track.h"

#include <optional>
#include <vector>

namespace trackloom {

/// `source` with the times of `from`'s points written into its own points, in
/// order; with `removesAirRoutes` the source's air-route points are skipped (they
/// keep their times and stay in the document). Metadata and root times become
/// `from`'s start. Throws `GPXError` when `from` lacks a needed time or its point
/// count does not match.
TrackPtr materializingTimes(const GPXTrack& source, const GPXTrack& from, bool removesAirRoutes);

/// Times for points placed along the path from `before` through `coordinates` to
/// `after`, spread by distance (evenly when the whole path has no length). Nothing
/// when a neighbour has no time or `after` is earlier than `before`.
std::optional<std::vector<Instant>> interpolatedTimes(const TrackPoint& before,
                                                      const TrackPoint& after,
                                                      const std::vector<Coordinate>& coordinates);

} // namespace trackloom
