#include "app/map/map_viewport.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trackloom {

MapViewport::MapViewport(MapPoint centre, double zoom, QSizeF size)
    : m_centre(centre), m_zoom(zoom), m_size(size) {
    *this = clamped();
}

double MapViewport::worldSize() const {
    return tileSize * std::exp2(m_zoom);
}

QPointF MapViewport::toScreen(MapPoint point) const {
    const double scale = worldSize();
    return {(point.x - m_centre.x) * scale + m_size.width() / 2,
            (point.y - m_centre.y) * scale + m_size.height() / 2};
}

QPointF MapViewport::toScreen(const Coordinate& coordinate) const {
    return toScreen(project(coordinate));
}

MapPoint MapViewport::toMap(QPointF screen) const {
    const double scale = worldSize();
    return {m_centre.x + (screen.x() - m_size.width() / 2) / scale,
            m_centre.y + (screen.y() - m_size.height() / 2) / scale};
}

Coordinate MapViewport::toCoordinate(QPointF screen) const {
    return unproject(toMap(screen));
}

MapRect MapViewport::visibleRegion() const {
    return MapRect::spanning(toMap({0, 0}), toMap({m_size.width(), m_size.height()}));
}

MapViewport MapViewport::resized(QSizeF size) const {
    MapViewport result = *this;
    result.m_size = size;
    return result.clamped();
}

MapViewport MapViewport::panned(QPointF screenDelta) const {
    MapViewport result = *this;
    result.m_centre = toMap(QPointF(m_size.width() / 2, m_size.height() / 2) - screenDelta);
    return result.clamped();
}

MapViewport MapViewport::zoomed(double zoomDelta, QPointF anchor) const {
    const MapPoint fixed = toMap(anchor);
    MapViewport result = *this;
    result.m_zoom = std::clamp(m_zoom + zoomDelta, minimumZoom, maximumZoom);
    // Put the anchored point back under the cursor at the new scale.
    const double scale = result.worldSize();
    result.m_centre = {fixed.x - (anchor.x() - m_size.width() / 2) / scale,
                       fixed.y - (anchor.y() - m_size.height() / 2) / scale};
    return result.clamped();
}

MapViewport MapViewport::fitting(const std::vector<Coordinate>& coordinates, double margin,
                                 double closestZoom) const {
    if (coordinates.empty()) {
        return *this;
    }
    MapRect bounds{1, 1, 0, 0};
    for (const Coordinate& coordinate : coordinates) {
        const MapPoint p = project(coordinate);
        bounds = {std::min(bounds.minX, p.x), std::min(bounds.minY, p.y),
                  std::max(bounds.maxX, p.x), std::max(bounds.maxY, p.y)};
    }
    const double usableWidth = std::max(1.0, m_size.width() - 2 * margin);
    const double usableHeight = std::max(1.0, m_size.height() - 2 * margin);
    const double widthZoom = bounds.width() > 0
                                 ? std::log2(usableWidth / (bounds.width() * tileSize))
                                 : std::numeric_limits<double>::infinity();
    const double heightZoom = bounds.height() > 0
                                  ? std::log2(usableHeight / (bounds.height() * tileSize))
                                  : std::numeric_limits<double>::infinity();
    MapViewport result = *this;
    result.m_zoom =
        std::clamp(std::min({widthZoom, heightZoom, closestZoom}), minimumZoom, maximumZoom);
    result.m_centre = {(bounds.minX + bounds.maxX) / 2, (bounds.minY + bounds.maxY) / 2};
    return result.clamped();
}

int MapViewport::tileZoom() const {
    return static_cast<int>(std::clamp(std::round(m_zoom), minimumZoom, maximumZoom));
}

std::vector<TileKey> MapViewport::visibleTiles() const {
    const int zoom = tileZoom();
    const int count = 1 << zoom;
    const MapRect region = visibleRegion();
    const auto index = [count](double unit) {
        return std::clamp(static_cast<int>(std::floor(unit * count)), 0, count - 1);
    };
    if (m_size.isEmpty() || region.maxX < 0 || region.minX > 1 || region.maxY < 0 ||
        region.minY > 1) {
        return {};
    }
    std::vector<TileKey> tiles;
    for (int y = index(region.minY); y <= index(region.maxY); ++y) {
        for (int x = index(region.minX); x <= index(region.maxX); ++x) {
            tiles.push_back({zoom, x, y});
        }
    }
    const double centreX = m_centre.x * count - 0.5;
    const double centreY = m_centre.y * count - 0.5;
    std::ranges::sort(tiles, {}, [&](const TileKey& tile) {
        return std::hypot(tile.x - centreX, tile.y - centreY);
    });
    return tiles;
}

QRectF MapViewport::tileRect(TileKey tile) const {
    const double count = std::exp2(tile.zoom);
    const QPointF topLeft = toScreen(MapPoint{tile.x / count, tile.y / count});
    const QPointF bottomRight = toScreen(MapPoint{(tile.x + 1) / count, (tile.y + 1) / count});
    return QRectF(topLeft, bottomRight);
}

MapViewport MapViewport::clamped() const {
    MapViewport result = *this;
    result.m_zoom = std::clamp(std::isfinite(m_zoom) ? m_zoom : 2.0, minimumZoom, maximumZoom);
    const double scale = result.worldSize();
    // Keep the world under the view; when it is smaller than the view, centre it.
    const auto clampAxis = [scale](double centre, double viewLength) {
        const double half = viewLength / 2 / scale;
        if (!std::isfinite(centre) || half >= 0.5) {
            return 0.5;
        }
        return std::clamp(centre, half, 1 - half);
    };
    result.m_centre = {clampAxis(m_centre.x, m_size.width()),
                       clampAxis(m_centre.y, m_size.height())};
    return result;
}

} // namespace trackloom
