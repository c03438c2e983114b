#include "app/places/dots_overlay.h"

#include <QImage>

namespace trackloom {

namespace {

constexpr int spriteSize = 6;

/// One dot drawn once: tens of thousands of antialiased ellipses per frame
/// would cost more than a frame has, copies of a small image do not.
const QImage& dotSprite() {
    static const QImage sprite = [] {
        QImage image(spriteSize, spriteSize, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(255, 255, 255, 200), 0.8));
        painter.setBrush(QColor(0, 102, 204, 220));
        painter.drawEllipse(QRectF(0.5, 0.5, spriteSize - 1, spriteSize - 1));
        return image;
    }();
    return sprite;
}

} // namespace

void DotsOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    const MapRect region = viewport.visibleRegion().enlarged(spriteSize * viewport.unitsPerPixel());
    const QImage& sprite = dotSprite();
    const QPointF offset(spriteSize / 2.0, spriteSize / 2.0);
    for (const HeatCell& cell : m_cells) {
        if (region.contains({cell.x, cell.y})) {
            painter.drawImage((viewport.toScreen(MapPoint{cell.x, cell.y}) - offset).toPoint(),
                              sprite);
        }
    }
}

} // namespace trackloom
