#include "core/track/air_route_detection.h"

#include "core/base/geodesy.h"

#include <algorithm>

namespace trackloom {
namespace {

bool near(const TrackPoint& a, const TrackPoint& b) {
    return haversineDistance(a.latitude, a.longitude, b.latitude, b.longitude) <=
           airRouteEndTolerance;
}

} // namespace

bool matchesDetailedTrack(const TrackPoint& a, const TrackPoint& b,
                          const std::vector<TrackEnds>& tracks) {
    return std::any_of(tracks.begin(), tracks.end(), [&](const TrackEnds& track) {
        return (near(a, track.first) && near(b, track.last)) ||
               (near(a, track.last) && near(b, track.first));
    });
}

} // namespace trackloom
