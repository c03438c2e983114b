#pragma once

// The map's positions on the web Mercator unit square (see
// core/base/web_mercator.h). It is the square the heat cells are binned on, so
// the map's projected units need no conversion for them.

#include "core/base/web_mercator.h"
#include "core/track/track_model.h"

#include <algorithm>

namespace trackloom {

/// A position on the unit square, as the heat cells have it too.
using MapPoint = MercatorPoint;

/// An axis-aligned rectangle on the unit square (min inclusive, max inclusive).
struct MapRect {
    double minX = 0;
    double minY = 0;
    double maxX = 0;
    double maxY = 0;

    double width() const { return maxX - minX; }
    double height() const { return maxY - minY; }
    bool contains(MapPoint p) const {
        return p.x >= minX && p.x <= maxX && p.y >= minY && p.y <= maxY;
    }
    bool intersects(const MapRect& other) const {
        return other.minX <= maxX && other.maxX >= minX && other.minY <= maxY && other.maxY >= minY;
    }
    /// The same rectangle grown by `margin` on every side.
    MapRect enlarged(double margin) const {
        return {minX - margin, minY - margin, maxX + margin, maxY + margin};
    }
    /// The smallest rectangle holding both corners, in whatever order they come.
    static MapRect spanning(MapPoint a, MapPoint b) {
        return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    }
};

/// Projects a coordinate; latitudes beyond the limit are clamped to it.
MapPoint project(const Coordinate& coordinate);

/// The coordinate of a projected point (the inverse of `project` inside the limits).
Coordinate unproject(MapPoint point);

/// Unit-square units per metre on the ground at `latitude` (Mercator stretches
/// distances by 1 / cos(latitude)).
double mapUnitsPerMetre(double latitude);

} // namespace trackloom
