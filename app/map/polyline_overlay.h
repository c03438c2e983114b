#pragma once

// Tracks as lines, each leg in its own colour (by speed, by section, or one
// colour for all). The lines are simplified for the zoom of every frame, so a
// track of 300,000 points pans and zooms as smoothly as a short one.

#include "app/map/map_overlay.h"
#include "app/map/simplified_path.h"

#include <QColor>
#include <vector>

namespace trackloom {

struct MapPolyline {
    std::vector<Coordinate> points;
    /// Colour of the leg from point i to i + 1; empty to use the overlay's colour.
    std::vector<QColor> legColors;
};

class PolylineOverlay : public MapOverlay {
  public:
    explicit PolylineOverlay(QColor color = QColor(0, 102, 204), double width = 3);

    /// Replaces the lines; hits report the line as `path` and the leg as `index`.
    /// Pure computation (about a second per million points): for large tracks,
    /// fill a new overlay on a background task and swap it in on the main thread.
    void setPolylines(const std::vector<MapPolyline>& polylines);
    void setColor(QColor color) { m_color = color; }

    void paint(QPainter& painter, const MapViewport& viewport) const override;
    std::optional<MapHit> hitTest(const MapViewport& viewport, QPointF position,
                                  double tolerance) const override;

  private:
    struct Prepared {
        SimplifiedPath path;
        std::vector<QRgb> legColors;
    };
    void paintRun(QPainter& painter, const MapViewport& viewport, const Prepared& line,
                  const std::vector<std::size_t>& run) const;

    QColor m_color;
    double m_width;
    std::vector<Prepared> m_lines;
};

} // namespace trackloom
