#include "app/map/heat_overlay.h"

#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace trackloom {

QColor heatColor(std::int64_t count, std::int64_t maxCount) {
    const double t = maxCount > 0 ? std::log1p(static_cast<double>(count)) /
                                        std::log1p(static_cast<double>(maxCount))
                                  : 1.0;
    return QColor::fromHsvF(static_cast<float>((1 - std::clamp(t, 0.0, 1.0)) * 0.66), 0.95f, 0.95f,
                            0.78f);
}

void HeatOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    if (m_cells.empty() || !(m_cellSize > 0)) {
        return;
    }
    std::int64_t maxCount = 1;
    for (const Cell& cell : m_cells) {
        maxCount = std::max(maxCount, cell.count);
    }
    // Blobs reach a quarter beyond their cell, so neighbours blend into an area.
    const double reach = m_cellSize * 1.25;
    const double radius = reach / viewport.unitsPerPixel();
    const MapRect region = viewport.visibleRegion().enlarged(reach);
    painter.save();
    painter.setPen(Qt::NoPen);
    for (const Cell& cell : m_cells) {
        if (!region.contains({cell.x, cell.y})) {
            continue;
        }
        const QPointF centre = viewport.toScreen(MapPoint{cell.x, cell.y});
        QColor color = heatColor(cell.count, maxCount);
        QRadialGradient gradient(centre, radius);
        gradient.setColorAt(0, color);
        color.setAlphaF(0.5f);
        gradient.setColorAt(0.5, color);
        color.setAlphaF(0);
        gradient.setColorAt(1, color);
        painter.setBrush(gradient);
        painter.drawEllipse(centre, radius, radius);
    }
    painter.restore();
}

} // namespace trackloom
