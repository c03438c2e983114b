#pragma once

// What the command groups share: opening a GPX file as the editor does, and
// writing a track the way every export writes one.

#include "core/track/gpx_track.h"

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

} // namespace trackloom::cli
