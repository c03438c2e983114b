#pragma once

// The timeline map's one pointer mode. What a press means is decided by the
// keyboard at that moment: with Shift it opens a rubber band, on a selected
// point it drags that point, anywhere else a drag pans. A click selects the
// point under it (with Ctrl or Cmd it adds or removes the point instead).

#include "app/map/map_interaction.h"

namespace trackloom {

class TimelineMapInteraction : public MapInteraction {
  public:
    using Picked = std::function<void(std::optional<MapHit> hit, Coordinate where, bool toggle)>;
    using Spanned = std::function<void(MapRect region, bool toggle)>;
    using Moved = DragPointInteraction::Moved;

    /// `points` are hit by clicks and the band; only `selected` (the selection's
    /// markers) can be dragged, so indices in `moving` and `dropped` are theirs.
    TimelineMapInteraction(std::shared_ptr<const MapOverlay> points,
                           std::shared_ptr<const MapOverlay> selected,
                           std::shared_ptr<RubberBandOverlay> band, Picked picked, Spanned spanned,
                           Moved moving, Moved dropped);

    Qt::CursorShape cursor() const override { return Qt::ArrowCursor; }
    bool pressed(MapInteractionHost& host, QPointF position) override;
    void dragged(MapInteractionHost& host, QPointF position) override;
    void released(MapInteractionHost& host, QPointF position) override;
    void clicked(MapInteractionHost& host, QPointF position) override;

  private:
    Picked m_picked;
    Spanned m_spanned;
    RubberBandInteraction m_band;
    DragPointInteraction m_drag;
    SelectInteraction m_select;
    MapInteraction* m_current = nullptr;
    bool m_toggle = false;
};

} // namespace trackloom
