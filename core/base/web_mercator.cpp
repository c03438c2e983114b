#include "core/base/web_mercator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace trackloom {
namespace {

constexpr double degrees = std::numbers::pi / 180.0;

} // namespace

MercatorPoint mercatorProjected(double latitude, double longitude) {
    const double clamped =
        std::clamp(latitude, -mercatorLatitudeLimit, mercatorLatitudeLimit) * degrees;
    const double x = (longitude + 180.0) / 360.0;
    const double y =
        0.5 - std::log(std::tan(std::numbers::pi / 4 + clamped / 2)) / (2 * std::numbers::pi);
    return {x, std::clamp(y, 0.0, 1.0)};
}

MercatorPosition mercatorUnprojected(double x, double y) {
    const double longitude = x * 360.0 - 180.0;
    const double latitude = std::atan(std::sinh((0.5 - y) * 2 * std::numbers::pi)) / degrees;
    return {latitude, longitude};
}

double mercatorUnitsPerMetre(double latitude) {
    const double clamped = std::clamp(latitude, -mercatorLatitudeLimit, mercatorLatitudeLimit);
    return 1.0 / (mercatorEquator * std::cos(clamped * degrees));
}

} // namespace trackloom
