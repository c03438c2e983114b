#pragma once

// Point markers: the timeline's points, the selection, points waiting to be
// inserted. Where more markers would fall into the view than can be told apart,
// only one marker per few pixels is drawn; hit tests still see every point.

#include "app/map/map_overlay.h"

#include <QColor>
#include <QImage>
#include <vector>

namespace trackloom {

struct MarkerStyle {
    QColor fill;
    QColor stroke;
    double radius = 4;
    double strokeWidth = 1.5;

    /// Small blue dots for plain points.
    static MarkerStyle point();
    /// Larger orange rings that stand out above plain points.
    static MarkerStyle selection();
    /// Hollow markers for points that are not yet part of the track.
    static MarkerStyle pending();

    /// The marker drawn once, centred in a small image at `devicePixelRatio`:
    /// thousands of copies of it cost a fraction of as many antialiased circles.
    QImage sprite(double devicePixelRatio) const;
};

class PointsOverlay : public MapOverlay {
  public:
    explicit PointsOverlay(MarkerStyle style = MarkerStyle::point());

    /// Replaces the points; hits report a point's position in this list as `index`.
    void setPoints(const std::vector<Coordinate>& coordinates);
    /// Moves one point, as while it is being dragged.
    void movePoint(std::size_t index, const Coordinate& coordinate);
    std::size_t size() const { return m_points.size(); }

    void paint(QPainter& painter, const MapViewport& viewport) const override;
    std::optional<MapHit> hitTest(const MapViewport& viewport, QPointF position,
                                  double tolerance) const override;

  private:
    MarkerStyle m_style;
    std::vector<MapPoint> m_points;
    // Made on first paint for the device's pixel ratio; painting is on the
    // main thread only.
    mutable QImage m_sprite;
};

} // namespace trackloom
