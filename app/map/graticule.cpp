#include "app/map/graticule.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QLocale>
#include <array>
#include <cmath>

namespace trackloom {
namespace {

QString degreeLabel(double value, const char* positive, const char* negative) {
    const QString hemisphere =
        QCoreApplication::translate("trackloom", value > 0 ? positive : negative);
    const double magnitude = std::abs(value) < 1e-9 ? 0 : std::abs(value);
    return QLocale().toString(magnitude, 'g', 6) + QStringLiteral("° ") +
           (magnitude == 0 ? QString() : hemisphere);
}

// Degrees between lines, so that they lie at least 90 pixels apart.
double graticuleSpacing(const MapViewport& viewport) {
    constexpr double minimumPixels = 90;
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

QFont labelFont(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.8);
    return font;
}

} // namespace

QMarginsF graticuleLabelBands(const QFont& font) {
    const QFontMetricsF metrics(labelFont(font));
    return QMarginsF(metrics.horizontalAdvance(QStringLiteral("88,888° N")) + 6,
                     metrics.height() + 4, 0, 0);
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
    const QColor lineColor(190, 196, 204);
    const QColor labelColor(120, 128, 138);
    // The bottom-left corner holds the scale bar, perhaps above a note: room for
    // two boxes in the painter's own font stays free of latitude labels.
    const double labelFloor =
        viewport.size().height() - 2 * (QFontMetricsF(painter.font()).height() + 15);
    painter.setFont(labelFont(painter.font()));
    const double firstLongitude =
        std::max(-180.0, std::floor(topLeft.longitude / spacing) * spacing);
    for (double longitude = firstLongitude; longitude <= std::min(180.0, bottomRight.longitude);
         longitude += spacing) {
        const double x = viewport.toScreen(Coordinate{0, longitude}).x();
        painter.setPen(lineColor);
        painter.drawLine(QPointF(x, world.top()), QPointF(x, world.bottom()));
        painter.setPen(labelColor);
        painter.drawText(QPointF(x + 3, std::max(0.0, world.top()) + 12),
                         degreeLabel(longitude, QT_TRANSLATE_NOOP("trackloom", "O"),
                                     QT_TRANSLATE_NOOP("trackloom", "W")));
    }
    const double lowest = std::max(-mercatorLatitudeLimit, bottomRight.latitude);
    const double highest = std::min(mercatorLatitudeLimit, topLeft.latitude);
    for (double latitude = std::ceil(lowest / spacing) * spacing; latitude <= highest;
         latitude += spacing) {
        const double y = viewport.toScreen(Coordinate{latitude, 0}).y();
        painter.setPen(lineColor);
        painter.drawLine(QPointF(world.left(), y), QPointF(world.right(), y));
        if (y + 12 > labelFloor) {
            continue;
        }
        painter.setPen(labelColor);
        painter.drawText(QPointF(std::max(0.0, world.left()) + 3, y + 12),
                         degreeLabel(latitude, QT_TRANSLATE_NOOP("trackloom", "N"),
                                     QT_TRANSLATE_NOOP("trackloom", "S")));
    }
    painter.restore();
}

} // namespace trackloom
