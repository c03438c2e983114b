#include "core/track/speed_scale.h"

#include <algorithm>

namespace trackloom {

SpeedScale SpeedScale::of(const TrackAnalysis& analysis) {
    std::vector<double> speeds;
    for (const auto& leg : analysis.legs) {
        if (leg.speed) {
            speeds.push_back(*leg.speed);
        }
    }
    SpeedScale scale;
    if (speeds.empty()) {
        return scale;
    }
    std::sort(speeds.begin(), speeds.end());
    const auto k = static_cast<std::size_t>(static_cast<double>(speeds.size() - 1) * 0.95);
    scale.top = speeds[k];
    const double bottom = speeds.front();
    const double range = std::max(scale.top - bottom, 0.001);
    scale.values.reserve(speeds.size());
    for (const auto& leg : analysis.legs) {
        if (leg.speed) {
            scale.values[leg.from] = std::clamp((*leg.speed - bottom) / range, 0.0, 1.0);
        }
    }
    return scale;
}

} // namespace trackloom
