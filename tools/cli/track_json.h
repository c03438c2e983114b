#pragma once

#include "core/base/json_writer.h"
#include "core/track/gpx_track.h"

namespace trackloom::cli {

/// What `gpx info` prints besides the always-present summary.
struct TrackJsonOptions {
    bool legs = false;
    bool points = false;
};

/// Writes a track as the JSON object of `gpx info`.
void writeTrack(JsonWriter& json, const GPXTrack& track, TrackJsonOptions options);

/// An optional instant in the track time format, or null.
void writeTime(JsonWriter& json, const std::optional<Instant>& time);

} // namespace trackloom::cli
