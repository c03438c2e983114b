#pragma once

namespace trackloom {

/// Great-circle distance in metres between two positions given in degrees:
/// the haversine formula with a mean Earth radius of 6,371,008.8 m, both roots
/// clamped so that rounding never leaves the functions' domains.
double haversineDistance(double latitude1, double longitude1, double latitude2, double longitude2);

} // namespace trackloom
