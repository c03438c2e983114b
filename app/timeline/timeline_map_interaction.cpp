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

} // namespace trackloom
