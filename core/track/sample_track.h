#pragma once

// The sample track the editor offers to try things out: a generated closed loop
// of 241 points in Munich ("Beispielrunde"), not a real recording.

#include "core/track/gpx_track.h"

#include <string>

namespace trackloom {

/// The sample track's GPX 1.1 document, one line without line breaks. Every
/// interval takes 9 to 19 seconds except the one into point 152, which takes
/// one second, so that the speed checks have something to show.
std::string sampleTrackData();

/// The sample track, read from `sampleTrackData()` like any file.
TrackPtr sampleTrack();

} // namespace trackloom
