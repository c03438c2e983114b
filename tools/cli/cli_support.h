#pragma once

// What the command groups share: opening a GPX file as the editor does,
// writing a track the way every export writes one, and the argument forms of
// times and zones.

#include "core/track/gpx_track.h"

#include <CLI/CLI.hpp>
#include <date/tz.h>
#include <string>
#include <vector>

namespace trackloom::cli {

/// Reads a GPX file; its name (last path component) serves the fallback track
/// name. Throws `GPXError`.
TrackPtr openTrack(const std::string& path);

/// Writes the track's data to `destination` through a temporary file beside it,
/// refusing to overwrite any of the `opened` files. Returns the one-line summary
/// of the written track, {"points":N,"segments":N}. Throws `GPXError`; a refused
/// or failed write leaves `destination` untouched.
std::string saveTrack(const GPXTrack& track, const std::string& destination,
                      const std::vector<std::string>& opened);

/// TIME arguments: the track time format, zone designator required. The
/// editing commands and the history commands have always refused a bad time
/// in their own words, which scripts may match.
extern const CLI::Validator trackTime;
extern const CLI::Validator historyTime;
/// The instant of a text that `trackTime` accepted.
Instant timeArgument(const std::string& text);

/// ZONE arguments: an IANA name the zone database knows.
extern const CLI::Validator zoneName;
/// The zone of a name that `zoneName` accepted; the system's zone for none.
const date::time_zone* zoneArgument(const std::string& name);

} // namespace trackloom::cli
