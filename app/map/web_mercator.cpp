#include "app/map/web_mercator.h"

namespace trackloom {

MapPoint project(const Coordinate& coordinate) {
    return mercatorProjected(coordinate.latitude, coordinate.longitude);
}

Coordinate unproject(MapPoint point) {
    const auto position = mercatorUnprojected(point.x, point.y);
    return {position.latitude, position.longitude};
}

double mapUnitsPerMetre(double latitude) {
    return mercatorUnitsPerMetre(latitude);
}

} // namespace trackloom
