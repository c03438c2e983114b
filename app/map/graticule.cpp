#include "app/map/graticule.h"

#include <array>
#include <cmath>

namespace trackloom {

double graticuleSpacing(const MapViewport& viewport, double minimumPixels) {
    static constexpr std::array steps{30.0, 10.0, 5.0,  2.0,  1.0,   0.5,   0.2,
                                      0.1,  0.05, 0.02, 0.01, 0.005, 0.002, 0.001};
    const double pixelsPerDegree = viewport.worldSize() / 360.0;
    double chosen = steps.front();
    for (double step : steps) {
        if (step * pixelsPerDegree < minimumPixels) {
            break;
        }
        chosen = step;
    }
    return chosen;
}

void paintGraticule(QPainter& painter, const MapViewport& viewport) {
    const QRectF world(viewport.toScreen(MapPoint{0, 0}), viewport.toScreen(MapPoint{1, 1}));
    painter.fillRect(QRectF(QPointF(0, 0), viewport.size()), QColor(214, 220, 226));
    painter.fillRect(world, QColor(241, 239, 233));
    const double spacing = graticuleSpacing(viewport);
    const Coordinate topLeft = viewport.toCoordinate({0, 0});
    const Coordinate bottomRight =
        viewport.toCoordinate({viewport.size().width(), viewport.size().height()});
    painter.save();
    painter.setPen(QPen(QColor(190, 196, 204), 1));
    const double firstLongitude =
        std::max(-180.0, std::floor(topLeft.longitude / spacing) * spacing);
    for (double longitude = firstLongitude; longitude <= std::min(180.0, bottomRight.longitude);
         longitude += spacing) {
        const double x = viewport.toScreen(Coordinate{0, longitude}).x();
        painter.drawLine(QPointF(x, world.top()), QPointF(x, world.bottom()));
    }
    const double lowest = std::max(-mercatorLatitudeLimit, bottomRight.latitude);
    const double highest = std::min(mercatorLatitudeLimit, topLeft.latitude);
    for (double latitude = std::ceil(lowest / spacing) * spacing; latitude <= highest;
         latitude += spacing) {
        const double y = viewport.toScreen(Coordinate{latitude, 0}).y();
        painter.drawLine(QPointF(world.left(), y), QPointF(world.right(), y));
    }
    painter.restore();
}

} // namespace trackloom
