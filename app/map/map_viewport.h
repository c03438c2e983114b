#pragma once

// What part of the world a map shows: a centre on the unit square, a fractional
// zoom level (the world is 256 · 2^zoom pixels wide) and the size of the view in
// device-independent pixels. A value: every change returns a new viewport, kept
// inside the world so that panning can never lose the map.

#include "app/map/web_mercator.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <compare>
#include <vector>

namespace trackloom {

/// A map tile of the standard slippy-map grid.
struct TileKey {
    int zoom = 0;
    int x = 0;
    int y = 0;

    friend auto operator<=>(const TileKey&, const TileKey&) = default;
};

class MapViewport {
  public:
    static constexpr double tileSize = 256;
    static constexpr double minimumZoom = 0;
    static constexpr double maximumZoom = 19;

    /// The whole world, centred, in a view of no size.
    MapViewport() = default;
    MapViewport(MapPoint centre, double zoom, QSizeF size);

    MapPoint centre() const { return m_centre; }
    double zoom() const { return m_zoom; }
    QSizeF size() const { return m_size; }
    /// Width of the whole world in pixels at this zoom.
    double worldSize() const;

    QPointF toScreen(MapPoint point) const;
    QPointF toScreen(const Coordinate& coordinate) const;
    MapPoint toMap(QPointF screen) const;
    Coordinate toCoordinate(QPointF screen) const;
    /// The shown part of the unit square (it may reach beyond the square when
    /// the world is smaller than the view).
    MapRect visibleRegion() const;
    /// Unit-square units covered by one pixel.
    double unitsPerPixel() const { return 1.0 / worldSize(); }

    MapViewport resized(QSizeF size) const;
    /// Moves the content by `screenDelta` pixels, as when it is dragged.
    MapViewport panned(QPointF screenDelta) const;
    /// Changes the zoom by `zoomDelta` levels keeping the point under `anchor` in place.
    MapViewport zoomed(double zoomDelta, QPointF anchor) const;
    /// Shows all `coordinates` with at least `margin` pixels to the edges, at
    /// most at `closestZoom`; unchanged when there are none.
    MapViewport fitting(const std::vector<Coordinate>& coordinates, double margin = 24,
                        double closestZoom = 17) const;

    /// The integer zoom level whose tiles are drawn.
    int tileZoom() const;
    /// The tiles that cover the view, those nearest the centre first.
    std::vector<TileKey> visibleTiles() const;
    /// Where a tile of any zoom level lies on screen.
    QRectF tileRect(TileKey tile) const;

    friend bool operator==(const MapViewport&, const MapViewport&) = default;

  private:
    MapViewport clamped() const;

    MapPoint m_centre{0.5, 0.5};
    double m_zoom = 2;
    QSizeF m_size;
};

} // namespace trackloom
