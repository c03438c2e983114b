#pragma once

// Elevation along a track, from the points' `ele` values.
//
// Climbing is counted with a hysteresis of `elevationNoiseThreshold` metres:
// a change counts only once the elevation has moved at least that far from
// the last counted elevation, and then counts whole. GPS elevations jitter by
// a few metres from fix to fix; summed naively, a flat walk would "climb"
// hundreds of metres. A remainder smaller than the threshold at the end of a
// section is dropped. Each section counts on its own (the jump to the next
// section is no climb), and points without elevation are passed over.

#include "core/track/track_analysis.h"
#include "core/track/track_model.h"

#include <vector>

namespace trackloom {

inline constexpr double elevationNoiseThreshold = 5;

struct ElevationGain {
    double ascent = 0;
    double descent = 0;

    friend bool operator==(const ElevationGain&, const ElevationGain&) = default;
};

/// Total ascent and descent of `points` (in id order) in metres, by the rule above.
ElevationGain elevationGain(const std::vector<TrackPoint>& points,
                            double threshold = elevationNoiseThreshold);

/// A point with elevation, placed along the track.
struct ElevationSample {
    std::int64_t pointID = 0;
    /// Metres from the start, as the analysis measures them (gaps between
    /// sections are not counted).
    double distance = 0;
    double elevation = 0;
    /// The line through the samples does not come from the previous sample:
    /// this one starts a section, or points without elevation lie between.
    bool startsLine = false;

    friend bool operator==(const ElevationSample&, const ElevationSample&) = default;
};

/// The points of `points` that have an elevation, with their distance along
/// the track taken from `analysis` (the analysis of the same points).
std::vector<ElevationSample> elevationProfile(const std::vector<TrackPoint>& points,
                                              const TrackAnalysis& analysis);

} // namespace trackloom
