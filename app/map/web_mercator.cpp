#include "app/map/web_mercator.h"

#include <cmath>
#include <numbers>

namespace trackloom {
namespace {

constexpr double degrees = std::numbers::pi / 180.0;

} // namespace

MapPoint project(const Coordinate& coordinate) {
    const double latitude =
        std::clamp(coordinate.latitude, -mercatorLatitudeLimit, mercatorLatitudeLimit) * degrees;
    const double x = (coordinate.longitude + 180.0) / 360.0;
    const double y =
        0.5 - std::log(std::tan(std::numbers::pi / 4 + latitude / 2)) / (2 * std::numbers::pi);
    return {x, std::clamp(y, 0.0, 1.0)};
}

Coordinate unproject(MapPoint point) {
    const double longitude = point.x * 360.0 - 180.0;
    const double latitude = std::atan(std::sinh((0.5 - point.y) * 2 * std::numbers::pi)) / degrees;
    return {latitude, longitude};
}

double mapUnitsPerMetre(double latitude) {
    const double clamped = std::clamp(latitude, -mercatorLatitudeLimit, mercatorLatitudeLimit);
    return 1.0 / (mercatorEquator * std::cos(clamped * degrees));
}

} // namespace trackloom
