#include "app/map/labelled_markers_overlay.h"

#include "app/map/points_overlay.h"

#include <algorithm>

namespace trackloom {

LabelledMarkersOverlay::LabelledMarkersOverlay(QColor markerColour) : m_colour(markerColour) {}

void LabelledMarkersOverlay::setMarkers(std::vector<LabelledMarker> markers) {
    m_points.clear();
    m_labels.clear();
    m_laidOut.clear();
    for (auto& marker : markers) {
        m_points.push_back(project(marker.coordinate));
        m_labels.push_back(std::move(marker.label));
    }
}

const std::vector<LabelledMarkersOverlay::Label>&
LabelledMarkersOverlay::labelsFor(const QFont& font) const {
    if (m_laidOut.size() != m_labels.size() || font != m_laidOutFont) {
        const QFontMetricsF metrics(font);
        m_laidOut.clear();
        m_laidOut.reserve(m_labels.size());
        for (const QString& label : m_labels) {
            const QString text =
                label.isEmpty() ? QString() : metrics.elidedText(label, Qt::ElideRight, 180);
            m_laidOut.push_back({text, metrics.boundingRect(text).size() + QSizeF(8, 4)});
        }
        m_laidOutFont = font;
    }
    return m_laidOut;
}

void LabelledMarkersOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    constexpr double radius = 6;
    const MapRect region = viewport.visibleRegion().enlarged(200 * viewport.unitsPerPixel());
    const double ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    if (m_marker.isNull() || m_marker.devicePixelRatio() != ratio) {
        m_marker = MarkerStyle{m_colour, QColor(Qt::white), radius, 2}.sprite(ratio);
    }
    const QPointF markerOffset(m_marker.width() / ratio / 2, m_marker.height() / ratio / 2);
    const auto& labels = labelsFor(painter.font());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    std::vector<QRectF> taken;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (!region.contains(m_points[i])) {
            continue;
        }
        const QPointF at = viewport.toScreen(m_points[i]);
        painter.drawImage(at - markerOffset, m_marker);
        const Label& label = labels[i];
        // Beyond a few hundred labels nothing is readable; the markers remain.
        if (label.text.isEmpty() || taken.size() > 300) {
            continue;
        }
        QRectF box(QPointF(), label.size);
        box.moveTopLeft(at + QPointF(radius + 3, -box.height() / 2));
        if (std::ranges::any_of(taken,
                                [&](const QRectF& other) { return other.intersects(box); })) {
            continue;
        }
        taken.push_back(box);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 225));
        painter.drawRoundedRect(box, 4, 4);
        painter.setPen(QColor(40, 40, 40));
        painter.drawText(box, Qt::AlignCenter, label.text);
    }
    painter.restore();
}

} // namespace trackloom
