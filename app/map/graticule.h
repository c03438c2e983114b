#pragma once

#include "app/map/map_viewport.h"

#include <QMarginsF>
#include <QPainter>

namespace trackloom {

/// Paints the plain map background: the world as a pale square with lines of
/// latitude and longitude labelled in degrees, what the map shows when no tiles
/// are at hand.
void paintGraticule(QPainter& painter, const MapViewport& viewport);

/// The map's left and top bands where, painted in `font`, the degree labels
/// stand: labels of overlays keep out of them.
QMarginsF graticuleLabelBands(const QFont& font);

} // namespace trackloom
