#include "app/map/points_overlay.h"

#include <QPen>
#include <cmath>
#include <unordered_set>

namespace trackloom {
namespace {

// Above this many points in view, markers closer than a third of their size
// would pile up into a blot; they are thinned to one per grid cell.
constexpr std::size_t thinningThreshold = 2000;

} // namespace

MarkerStyle MarkerStyle::point() {
    return {QColor(0, 102, 204), QColor(Qt::white), 4, 1.5};
}

MarkerStyle MarkerStyle::selection() {
    return {QColor(255, 149, 0, 220), QColor(Qt::black), 6.5, 2};
}

MarkerStyle MarkerStyle::pending() {
    return {QColor(Qt::white), QColor(204, 0, 102), 5, 2.5};
}

QImage MarkerStyle::sprite(double devicePixelRatio) const {
    const int side = static_cast<int>(std::ceil((2 * radius + strokeWidth + 2) * devicePixelRatio));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(stroke, strokeWidth));
    painter.setBrush(fill);
    const double centre = side / devicePixelRatio / 2;
    painter.drawEllipse(QPointF(centre, centre), radius, radius);
    return image;
}

PointsOverlay::PointsOverlay(MarkerStyle style) : m_style(style) {}

void PointsOverlay::setPoints(const std::vector<Coordinate>& coordinates) {
    m_points.clear();
    m_points.reserve(coordinates.size());
    for (const Coordinate& coordinate : coordinates) {
        m_points.push_back(project(coordinate));
    }
}

void PointsOverlay::movePoint(std::size_t index, const Coordinate& coordinate) {
    if (index < m_points.size()) {
        m_points[index] = project(coordinate);
    }
}

void PointsOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    const double margin = (m_style.radius + m_style.strokeWidth) * viewport.unitsPerPixel();
    const MapRect region = viewport.visibleRegion().enlarged(margin);
    std::vector<QPointF> visible;
    for (const MapPoint& point : m_points) {
        if (region.contains(point)) {
            visible.push_back(viewport.toScreen(point));
        }
    }
    if (visible.size() > thinningThreshold) {
        const double cell = std::max(1.0, m_style.radius * 2 / 3);
        std::unordered_set<std::int64_t> occupied;
        std::erase_if(visible, [&](QPointF p) {
            const auto column = static_cast<std::int64_t>(std::floor(p.x() / cell));
            const auto row = static_cast<std::int64_t>(std::floor(p.y() / cell));
            return !occupied.insert((row << 32) ^ column).second;
        });
    }
    const double ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    if (m_sprite.isNull() || m_sprite.devicePixelRatio() != ratio) {
        m_sprite = m_style.sprite(ratio);
    }
    const QPointF offset(m_sprite.width() / ratio / 2, m_sprite.height() / ratio / 2);
    for (const QPointF& p : visible) {
        painter.drawImage(p - offset, m_sprite);
    }
}

std::optional<MapHit> PointsOverlay::hitTest(const MapViewport& viewport, QPointF position,
                                             double tolerance) const {
    const double reach = tolerance + m_style.radius;
    std::optional<MapHit> best;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        const QPointF delta = viewport.toScreen(m_points[i]) - position;
        const double distance = std::hypot(delta.x(), delta.y());
        if (distance <= reach && (!best || distance < best->distance)) {
            best = MapHit{0, static_cast<std::int64_t>(i), distance};
        }
    }
    return best;
}

} // namespace trackloom
