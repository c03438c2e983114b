#include "app/timeline/timeline_map_interaction.h"

#include <QGuiApplication>

namespace trackloom {

TimelineMapInteraction::TimelineMapInteraction(std::shared_ptr<const MapOverlay> points,
                                               std::shared_ptr<const MapOverlay> selected,
                                               std::shared_ptr<RubberBandOverlay> band,
                                               Picked picked, Spanned spanned, Moved moving,
                                               Moved dropped)
    : m_picked(std::move(picked)), m_spanned(std::move(spanned)),
      m_band(points, std::move(band), {}, [this](MapRect region) { m_spanned(region, m_toggle); }),
      m_drag(std::move(selected), {}, std::move(moving), std::move(dropped)),
      m_select(std::move(points), [this](std::optional<MapHit> hit, Coordinate where) {
          m_picked(hit, where, m_toggle);
      }) {}

bool TimelineMapInteraction::pressed(MapInteractionHost& host, QPointF position) {
    // Read at the press: the modifier may be let go before the release.
    const auto modifiers = QGuiApplication::keyboardModifiers();
    m_toggle = modifiers.testAnyFlags(Qt::ControlModifier | Qt::MetaModifier);
    m_current = modifiers.testFlag(Qt::ShiftModifier) ? static_cast<MapInteraction*>(&m_band)
                                                      : static_cast<MapInteraction*>(&m_drag);
    return m_current->pressed(host, position);
}

void TimelineMapInteraction::dragged(MapInteractionHost& host, QPointF position) {
    if (m_current) {
        m_current->dragged(host, position);
    }
}

void TimelineMapInteraction::released(MapInteractionHost& host, QPointF position) {
    if (auto* current = std::exchange(m_current, nullptr)) {
        current->released(host, position);
    }
}

void TimelineMapInteraction::clicked(MapInteractionHost& host, QPointF position) {
    m_current = nullptr;
    m_select.clicked(host, position);
}

void VisitOverlay::setVisits(std::vector<MapVisit> visits) {
    m_points.clear();
    m_labels.clear();
    for (auto& visit : visits) {
        m_points.push_back(project(visit.coordinate));
        m_labels.push_back(std::move(visit.label));
    }
}

void VisitOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    constexpr double radius = 6;
    const MapRect region = viewport.visibleRegion().enlarged(200 * viewport.unitsPerPixel());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(painter.font());
    std::vector<QRectF> taken;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (!region.contains(m_points[i])) {
            continue;
        }
        const QPointF at = viewport.toScreen(m_points[i]);
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(QColor(175, 82, 222));
        painter.drawEllipse(at, radius, radius);
        if (m_labels[i].isEmpty()) {
            continue;
        }
        const QString text = metrics.elidedText(m_labels[i], Qt::ElideRight, 180);
        QRectF box = metrics.boundingRect(text).adjusted(-4, -2, 4, 2);
        box.moveTopLeft(at + QPointF(radius + 3, -box.height() / 2));
        // Beyond a few hundred labels nothing is readable; the markers remain.
        if (taken.size() > 300 || std::ranges::any_of(taken, [&](const QRectF& other) {
                return other.intersects(box);
            })) {
            continue;
        }
        taken.push_back(box);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 225));
        painter.drawRoundedRect(box, 4, 4);
        painter.setPen(QColor(40, 40, 40));
        painter.drawText(box, Qt::AlignCenter, text);
    }
    painter.restore();
}

} // namespace trackloom
