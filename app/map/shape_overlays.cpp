#include "app/map/shape_overlays.h"

#include <QPen>
#include <cmath>

namespace trackloom {
namespace {

const QColor accent(0, 102, 204);
constexpr double centreRadius = 5;

} // namespace

void RubberBandOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    if (!m_region) {
        return;
    }
    const QRectF rect(viewport.toScreen(MapPoint{m_region->minX, m_region->minY}),
                      viewport.toScreen(MapPoint{m_region->maxX, m_region->maxY}));
    painter.save();
    painter.setPen(QPen(accent, 1, Qt::DashLine));
    painter.setBrush(QColor(accent.red(), accent.green(), accent.blue(), 40));
    painter.drawRect(rect);
    painter.restore();
}

void RadiusCircleOverlay::setCircle(std::optional<Coordinate> centre, double metres) {
    m_centre = centre;
    m_metres = metres;
}

void RadiusCircleOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    if (!m_centre) {
        return;
    }
    const QPointF centre = viewport.toScreen(*m_centre);
    const double radius =
        m_metres * mapUnitsPerMetre(m_centre->latitude) / viewport.unitsPerPixel();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent, 2));
    painter.setBrush(QColor(accent.red(), accent.green(), accent.blue(), 45));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(QColor(204, 0, 0));
    painter.drawEllipse(centre, centreRadius, centreRadius);
    painter.restore();
}

std::optional<MapHit> RadiusCircleOverlay::hitTest(const MapViewport& viewport, QPointF position,
                                                   double tolerance) const {
    if (!m_centre) {
        return std::nullopt;
    }
    const QPointF delta = viewport.toScreen(*m_centre) - position;
    const double distance = std::hypot(delta.x(), delta.y());
    if (distance > tolerance + centreRadius) {
        return std::nullopt;
    }
    return MapHit{0, 0, distance};
}

} // namespace trackloom
