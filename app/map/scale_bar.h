#pragma once

// The metric scale bar in a corner of every map. Web Mercator stretches the
// ground by 1 / cos(latitude), so one pixel covers fewer metres towards the
// poles; the bar is measured at the latitude of the view's centre.

#include "app/map/map_viewport.h"

#include <QPainter>
#include <QString>

namespace trackloom {

/// A bar of a round length and the pixels it takes on screen.
struct ScaleBar {
    double metres = 0;
    double pixels = 0;
};

/// Metres on the ground covered by one pixel at the centre of `viewport`.
double metresPerPixel(const MapViewport& viewport);

/// The longest length of 1, 2 or 5 × 10^n metres that takes at most
/// `maximumPixels` at `metresPerPixel`.
ScaleBar roundScaleBar(double metresPerPixel, double maximumPixels);

/// The bar's label: "500 m" below a kilometre, "2 km" from there on.
QString scaleBarText(double metres);

/// Paints the bar of `viewport`, labelled in the painter's font, on a pale box
/// whose bottom-left corner is `bottomLeft`.
void paintScaleBar(QPainter& painter, const MapViewport& viewport, QPointF bottomLeft);

} // namespace trackloom
