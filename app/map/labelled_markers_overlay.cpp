#include "app/map/labelled_markers_overlay.h"

#include "app/map/graticule.h"
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
    // Markers first, labels on top: a label is never hidden under a marker.
    std::vector<std::size_t> shown;
    std::vector<QRectF> markers;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (region.contains(m_points[i])) {
            const QPointF at = viewport.toScreen(m_points[i]);
            painter.drawImage(at - markerOffset, m_marker);
            shown.push_back(i);
            markers.emplace_back(at - markerOffset, at + markerOffset);
        }
    }
    // With very many markers, keeping labels off each of them costs more than a frame has.
    if (markers.size() > 2000) {
        markers.clear();
    }
    const QRectF screen =
        QRectF(QPointF(0, 0), viewport.size()) - graticuleLabelBands(painter.font());
    std::vector<QRectF> taken;
    const auto isFree = [&](const QRectF& box) {
        const auto overlaps = [&](const QRectF& other) { return other.intersects(box); };
        return screen.contains(box) && std::ranges::none_of(taken, overlaps) &&
               std::ranges::none_of(markers, overlaps);
    };
    for (const std::size_t i : shown) {
        const Label& label = labels[i];
        // Beyond a few hundred labels nothing is readable; the markers remain.
        if (label.text.isEmpty() || taken.size() > 300) {
            continue;
        }
        // Right of the marker, else left of it; a label that fits neither way
        // inside the map, clear of the others, is left out.
        const QPointF at = viewport.toScreen(m_points[i]);
        QRectF box(QPointF(), label.size);
        box.moveTopLeft(at + QPointF(radius + 3, -box.height() / 2));
        if (!isFree(box)) {
            box.moveTopRight(at + QPointF(-radius - 3, -box.height() / 2));
            if (!isFree(box)) {
                continue;
            }
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
