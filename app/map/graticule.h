#pragma once

#include "app/map/map_viewport.h"

#include <QPainter>

namespace trackloom {

/// Degrees between graticule lines so that they lie at least `minimumPixels` apart.
double graticuleSpacing(const MapViewport& viewport, double minimumPixels = 90);

/// Paints the plain map background: the world as a pale square with lines of
/// latitude and longitude, what the map shows when no tiles are at hand.
void paintGraticule(QPainter& painter, const MapViewport& viewport);

} // namespace trackloom
