#pragma once

#include "core/track/track_model.h"

#include <optional>
#include <vector>

namespace trackloom {

/// The unsmoothed speed analysis of a track: every interval judged on its own.
struct TrackAnalysis {
    std::vector<TrackLeg> legs;
    double distance = 0;
    double timedDistance = 0;
    double timedSeconds = 0;
    /// Points without time whose time is not merely unreadable.
    std::int64_t missingTimes = 0;
    std::int64_t invalidTimes = 0;
    std::int64_t segmentCount = 0;

    /// Distance-weighted mean over the valid legs in km/h; absent without timed seconds.
    std::optional<double> averageSpeed() const;
    std::optional<double> maxSpeed() const;
    std::int64_t validIntervals() const;
    std::int64_t invalidIntervals() const;
    /// Legs faster than `threshold` km/h (strictly) or with a problem, in order.
    std::vector<TrackLeg> suspicious(double threshold) const;

    /// Analyses `points` (in id order); never fails.
    static TrackAnalysis analyze(const std::vector<TrackPoint>& points);
};

} // namespace trackloom
