#pragma once

#include "core/track/track_analysis.h"

#include <cstdint>
#include <unordered_map>

namespace trackloom {

/// Colours for the map: each valid leg's speed on 0…1 between the slowest leg
/// and the speed below which 95 % of the valid legs lie; faster ones saturate.
struct SpeedScale {
    /// The 95 % speed in km/h (0 without valid legs); the legend's top value.
    double top = 0;
    /// Scale values by the `from` point id of their leg; legs without speed have none.
    std::unordered_map<std::int64_t, double> values;

    static SpeedScale of(const TrackAnalysis& analysis);
};

} // namespace trackloom
