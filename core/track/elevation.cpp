#include "core/track/elevation.h"

#include <cmath>

namespace trackloom {

ElevationGain elevationGain(const std::vector<TrackPoint>& points, double threshold) {
    ElevationGain gain;
    std::optional<double> counted;
    std::optional<std::int64_t> segment;
    for (const auto& point : points) {
        if (point.segment != segment) {
            segment = point.segment;
            counted.reset();
        }
        if (!point.elevation) {
            continue;
        }
        if (!counted) {
            counted = point.elevation;
            continue;
        }
        const double change = *point.elevation - *counted;
        if (std::abs(change) < threshold) {
            continue;
        }
        (change > 0 ? gain.ascent : gain.descent) += std::abs(change);
        counted = point.elevation;
    }
    return gain;
}

std::vector<ElevationSample> elevationProfile(const std::vector<TrackPoint>& points,
                                              const TrackAnalysis& analysis) {
    std::vector<ElevationSample> samples;
    const auto& legs = analysis.legs;
    std::size_t nextLeg = 0;
    double distance = 0;
    bool lineBroken = true;
    const TrackPoint* previous = nullptr;
    for (const auto& point : points) {
        // Legs run in point order, each ending at the point after its start.
        if (nextLeg < legs.size() && legs[nextLeg].to == point.id) {
            distance = legs[nextLeg++].cumulativeDistance;
        }
        if (previous && previous->segment != point.segment) {
            lineBroken = true;
        }
        previous = &point;
        if (!point.elevation) {
            lineBroken = true;
            continue;
        }
        samples.push_back({point.id, distance, *point.elevation, lineBroken});
        lineBroken = false;
    }
    return samples;
}

} // namespace trackloom
