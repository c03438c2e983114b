#pragma once

// Overlays of a single shape: the rubber band while a region is being dragged
// open, and the search radius around a chosen place.

#include "app/map/map_overlay.h"

#include <optional>

namespace trackloom {

class RubberBandOverlay : public MapOverlay {
  public:
    /// The region to outline, or none to hide the band.
    void setRegion(std::optional<MapRect> region) { m_region = region; }
    std::optional<MapRect> region() const { return m_region; }

    void paint(QPainter& painter, const MapViewport& viewport) const override;

  private:
    std::optional<MapRect> m_region;
};

class RadiusCircleOverlay : public MapOverlay {
  public:
    /// A circle of `metres` on the ground around `centre`, or none.
    void setCircle(std::optional<Coordinate> centre, double metres);

    void paint(QPainter& painter, const MapViewport& viewport) const override;
    /// Hits the centre marker only (index 0).
    std::optional<MapHit> hitTest(const MapViewport& viewport, QPointF position,
                                  double tolerance) const override;

  private:
    std::optional<Coordinate> m_centre;
    double m_metres = 0;
};

} // namespace trackloom
