#include "core/base/geodesy.h"

#include <algorithm>
#include <cmath>

namespace trackloom {

double haversineDistance(double latitude1, double longitude1, double latitude2, double longitude2) {
    constexpr double radiansPerDegree = 0.017453292519943295;
    constexpr double earthDiameter = 12742017.6;
    const double phi1 = latitude1 * radiansPerDegree;
    const double phi2 = latitude2 * radiansPerDegree;
    const double halfDeltaPhi = (phi2 - phi1) / 2;
    const double halfDeltaLambda = (longitude2 - longitude1) * radiansPerDegree / 2;
    const double a =
        std::sin(halfDeltaPhi) * std::sin(halfDeltaPhi) +
        std::cos(phi1) * std::cos(phi2) * std::sin(halfDeltaLambda) * std::sin(halfDeltaLambda);
    return earthDiameter *
           std::atan2(std::sqrt(std::clamp(a, 0.0, 1.0)), std::sqrt(std::max(1 - a, 0.0)));
}

} // namespace trackloom
