#include "app/map/scale_bar.h"

#include <QLocale>
#include <cmath>

namespace trackloom {
namespace {

// Long enough to read off a distance, short enough to stay clear of the
// attribution on a narrow map.
constexpr double longestBar = 110;

} // namespace

double metresPerPixel(const MapViewport& viewport) {
    const double latitude = unproject(viewport.centre()).latitude;
    return viewport.unitsPerPixel() / mapUnitsPerMetre(latitude);
}

ScaleBar roundScaleBar(double metresPerPixel, double maximumPixels) {
    const double longest = metresPerPixel * maximumPixels;
    if (!(longest > 0) || !std::isfinite(longest)) {
        return {};
    }
    const double decade = std::pow(10.0, std::floor(std::log10(longest)));
    double metres = decade;
    for (double factor : {5.0, 2.0}) {
        // The tolerance keeps 1000 m from falling to 500 m by a rounding error.
        if (factor * decade <= longest * (1 + 1e-9)) {
            metres = factor * decade;
            break;
        }
    }
    return {metres, metres / metresPerPixel};
}

QString scaleBarText(double metres) {
    if (metres >= 1000) {
        return QString::number(std::llround(metres / 1000)) + QStringLiteral(" km");
    }
    return QLocale().toString(metres, 'g', 3) + QStringLiteral(" m");
}

void paintScaleBar(QPainter& painter, const MapViewport& viewport, QPointF bottomLeft) {
    const double available = std::min(longestBar, viewport.size().width() / 3);
    const ScaleBar bar = roundScaleBar(metresPerPixel(viewport), available);
    if (bar.pixels <= 0) {
        return;
    }
    painter.save();
    const QFontMetricsF metrics(painter.font());
    const QString label = scaleBarText(bar.metres);
    constexpr double padding = 5;
    constexpr double tick = 5;
    const double width = std::max(bar.pixels, metrics.horizontalAdvance(label)) + 2 * padding;
    const double height = metrics.height() + tick + 2 * padding;
    const QRectF box(bottomLeft.x(), bottomLeft.y() - height, width, height);
    painter.fillRect(box, QColor(255, 255, 255, 200));
    painter.setPen(QColor(40, 40, 40));
    painter.drawText(QRectF(box.left() + padding, box.top() + padding - 1, width - 2 * padding,
                            metrics.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, label);
    const double baseline = box.bottom() - padding;
    const double left = box.left() + padding;
    painter.setPen(QPen(QColor(40, 40, 40), 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawPolyline(QPolygonF({QPointF(left, baseline - tick), QPointF(left, baseline),
                                    QPointF(left + bar.pixels, baseline),
                                    QPointF(left + bar.pixels, baseline - tick)}));
    painter.restore();
}

} // namespace trackloom
