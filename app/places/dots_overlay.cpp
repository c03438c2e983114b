#include "app/places/dots_overlay.h"

#include "app/map/points_overlay.h"

#include <QImage>

namespace trackloom {

void DotsOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    // One dot drawn once: tens of thousands of antialiased ellipses per frame
    // would cost more than a frame has, copies of a small image do not.
    static const QImage sprite =
        MarkerStyle{QColor(0, 102, 204, 220), QColor(255, 255, 255, 200), 2.5, 0.8}.sprite(1.0);
    const QPointF offset(sprite.width() / 2.0, sprite.height() / 2.0);
    const MapRect region =
        viewport.visibleRegion().enlarged(sprite.width() * viewport.unitsPerPixel());
    for (const HeatCell& cell : m_cells) {
        if (region.contains({cell.x, cell.y})) {
            painter.drawImage((viewport.toScreen(MapPoint{cell.x, cell.y}) - offset).toPoint(),
                              sprite);
        }
    }
}

} // namespace trackloom
