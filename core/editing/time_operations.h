#pragma once

// Operations that move or compute a track's timestamps. Each writes the track's
// document with new times and returns its bytes, or the track it stands for;
// only the time elements they write change. The track itself never does: its
// document is taken over only when the caller hands in the last reference.
// Refusals are `GPXError`s, checked in the order documented below.

#include "core/track/gpx_track.h"

#include <string>

namespace trackloom {

/// Moves every track, route, waypoint, metadata and root time by one offset so that
/// the track starts at `target`; unreadable times stay as they are and no time is
/// added. Refuses a track without any valid time, a file with unreadable times, and
/// a target outside the years 1 to 9999 in the user's time zone.
std::string shifted(const GPXTrack& track, Instant target);

/// Replaces all track and route point times by times at a constant speed from
/// `start`; metadata and root times become `start`. Refuses a speed that is not
/// within 0 (exclusive) to 1000 km/h.
std::string generated(const GPXTrack& track, Instant start, double speedKMH);

/// Like the speed variant, but spreads the times by distance so that the first
/// point lies exactly at `start` and the last exactly at `end`. Refuses what
/// `requiredSpeed` refuses.
std::string generated(const GPXTrack& track, Instant start, Instant end);

/// The same operations as tracks named like `track`, with the read-back's
/// refusals; `track`'s document is reused when this was its last reference.
TrackPtr shiftedTrack(TrackPtr track, Instant target);
TrackPtr generatedTrack(TrackPtr track, Instant start, double speedKMH);
TrackPtr generatedTrack(TrackPtr track, Instant start, Instant end);

/// The constant speed in km/h that a start and end imply. Refuses, in this order:
/// a start or end outside the years 1 to 9999 (UTC), an end not after the start, a
/// track of fewer than two points or no distance.
double requiredSpeed(const GPXTrack& track, Instant start, Instant end);

} // namespace trackloom
