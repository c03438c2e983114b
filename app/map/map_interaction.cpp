#include "app/map/map_interaction.h"

namespace trackloom {

bool MapInteraction::pressed(MapInteractionHost&, QPointF) {
    return false;
}
void MapInteraction::dragged(MapInteractionHost&, QPointF) {}
void MapInteraction::released(MapInteractionHost&, QPointF) {}
void MapInteraction::clicked(MapInteractionHost&, QPointF) {}

SelectInteraction::SelectInteraction(std::shared_ptr<const MapOverlay> target, Picked picked)
    : m_target(std::move(target)), m_picked(std::move(picked)) {}

void SelectInteraction::clicked(MapInteractionHost& host, QPointF position) {
    const MapViewport& viewport = host.currentViewport();
    m_picked(hitAt(viewport, position), viewport.toCoordinate(position));
}

std::optional<MapHit> SelectInteraction::hitAt(const MapViewport& viewport,
                                               QPointF position) const {
    return m_target ? m_target->hitTest(viewport, position, hitTolerance) : std::nullopt;
}

RubberBandInteraction::RubberBandInteraction(std::shared_ptr<const MapOverlay> target,
                                             std::shared_ptr<RubberBandOverlay> band, Picked picked,
                                             Spanned spanned)
    : SelectInteraction(std::move(target), std::move(picked)), m_band(std::move(band)),
      m_spanned(std::move(spanned)) {}

bool RubberBandInteraction::pressed(MapInteractionHost& host, QPointF position) {
    m_anchor = host.currentViewport().toMap(position);
    return true;
}

void RubberBandInteraction::dragged(MapInteractionHost& host, QPointF position) {
    m_band->setRegion(MapRect::spanning(m_anchor, host.currentViewport().toMap(position)));
    host.refreshOverlays();
}

void RubberBandInteraction::released(MapInteractionHost& host, QPointF position) {
    m_band->setRegion(std::nullopt);
    host.refreshOverlays();
    m_spanned(MapRect::spanning(m_anchor, host.currentViewport().toMap(position)));
}

DragPointInteraction::DragPointInteraction(std::shared_ptr<const MapOverlay> target, Picked picked,
                                           Moved moving, Moved dropped)
    : SelectInteraction(std::move(target), std::move(picked)), m_moving(std::move(moving)),
      m_dropped(std::move(dropped)) {}

bool DragPointInteraction::pressed(MapInteractionHost& host, QPointF position) {
    const auto hit = hitAt(host.currentViewport(), position);
    m_dragged = hit ? std::optional(hit->index) : std::nullopt;
    return m_dragged.has_value();
}

void DragPointInteraction::dragged(MapInteractionHost& host, QPointF position) {
    if (m_dragged) {
        m_moving(*m_dragged, host.currentViewport().toCoordinate(position));
        host.refreshOverlays();
    }
}

void DragPointInteraction::released(MapInteractionHost& host, QPointF position) {
    if (m_dragged) {
        m_dropped(*std::exchange(m_dragged, std::nullopt),
                  host.currentViewport().toCoordinate(position));
    }
}

InsertPointInteraction::InsertPointInteraction(std::shared_ptr<const MapOverlay> line,
                                               Placed placed)
    : m_line(std::move(line)), m_placed(std::move(placed)) {}

void InsertPointInteraction::clicked(MapInteractionHost& host, QPointF position) {
    const MapViewport& viewport = host.currentViewport();
    const auto leg = m_line ? m_line->hitTest(viewport, position, hitTolerance) : std::nullopt;
    m_placed(viewport.toCoordinate(position), leg);
}

PickPlaceInteraction::PickPlaceInteraction(Picked picked) : m_picked(std::move(picked)) {}

void PickPlaceInteraction::clicked(MapInteractionHost& host, QPointF position) {
    m_picked(host.currentViewport().toCoordinate(position));
}

} // namespace trackloom
