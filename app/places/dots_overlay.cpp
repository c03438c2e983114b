#include "app/places/dots_overlay.h"

namespace trackloom {

void DotsOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    constexpr double radius = 2.2;
    const MapRect region = viewport.visibleRegion().enlarged(radius * viewport.unitsPerPixel());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 0.8));
    painter.setBrush(QColor(0, 102, 204, 210));
    for (const HeatCell& cell : m_cells) {
        if (region.contains({cell.x, cell.y})) {
            painter.drawEllipse(viewport.toScreen(MapPoint{cell.x, cell.y}), radius, radius);
        }
    }
    painter.restore();
}

} // namespace trackloom
