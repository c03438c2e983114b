#pragma once

// Structural edits of a track addressed by point id. Each works on an editable
// copy of the document and reads the result back, so everything the edit does
// not touch survives; air-route points are never edited. Refusals are
// `GPXError`s; the track itself never changes.

#include "core/track/gpx_track.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace trackloom {

/// Whether the point lies strictly inside its section (not its first or last).
bool canSplit(const GPXTrack& track, std::int64_t id);

/// Splits the point's section in two; both parts keep the point. The part before
/// gets `firstName`, the part after (a copy of the whole trk or rte, inserted right
/// after it) `secondName`; names are trimmed and must not be empty.
TrackPtr splitting(const GPXTrack& track, std::int64_t id, const std::string& firstName,
                   const std::string& secondName);

/// Removes every point before the point (across sections), air-route points aside.
TrackPtr trimmingBefore(const GPXTrack& track, std::int64_t id);
/// Removes every point after the point (across sections), air-route points aside.
TrackPtr trimmingAfter(const GPXTrack& track, std::int64_t id);

/// Removes the points and every section, track or route left empty. At least
/// two points must remain, and air-route points cannot be removed.
TrackPtr removingPoints(const GPXTrack& track, const std::set<std::int64_t>& ids);

/// Moves the point; its time, elevation and everything else stay.
TrackPtr movingPoint(const GPXTrack& track, std::int64_t id, Coordinate to);

/// Whether new points can go between the point and the next one: both in one
/// section and neither an air-route point.
bool canInsert(const GPXTrack& track, std::int64_t afterID);

/// Inserts new points after the point, of the same kind, with times interpolated
/// between the neighbours when both have usable times (else without time).
TrackPtr inserting(const GPXTrack& track, const std::vector<Coordinate>& coordinates,
                   std::int64_t afterID);

/// The id of the point shown at `displayed` when the air-route points are left
/// out of the display (or not); nothing when no point is shown there.
std::optional<std::int64_t> sourcePointID(const GPXTrack& track, std::int64_t displayed,
                                          bool removesAirRoutes);

} // namespace trackloom
