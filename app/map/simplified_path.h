#pragma once

// A line of hundreds of thousands of points cannot be drawn point by point at
// every repaint. The path is projected once and each point gets a significance:
// the largest Douglas–Peucker tolerance at which it still has to be kept. A
// frame then keeps the points whose significance reaches the tolerance of one
// pixel at its zoom, and skips chunks that lie outside the view altogether.

#include "app/map/web_mercator.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace trackloom {

class SimplifiedPath {
  public:
    /// Points per chunk; neighbouring chunks share their end point.
    static constexpr std::size_t chunkLength = 1024;

    explicit SimplifiedPath(const std::vector<Coordinate>& coordinates);

    const std::vector<MapPoint>& points() const { return m_points; }
    /// The largest tolerance (unit-square units) at which point `index` is kept;
    /// infinite for the path's and the chunks' end points.
    float significance(std::size_t index) const { return m_significance[index]; }

    /// The indices to draw for `region` at `tolerance`, as runs of consecutive
    /// kept points; a run ends where a chunk outside the region was skipped.
    std::vector<std::vector<std::size_t>> visibleRuns(const MapRect& region,
                                                      double tolerance) const;

    /// Distance (unit-square units) from `point` to the leg from `index` to
    /// `index + 1`; the nearest leg within `tolerance`, or none.
    struct NearestLeg {
        std::size_t index = 0;
        double distance = 0;
    };
    std::optional<NearestLeg> nearestLeg(MapPoint point, double tolerance) const;

  private:
    struct Chunk {
        std::size_t first = 0;
        std::size_t last = 0;
        MapRect bounds;
    };
    void rankChunk(const Chunk& chunk);

    std::vector<MapPoint> m_points;
    std::vector<float> m_significance;
    std::vector<Chunk> m_chunks;
};

/// Distance from `p` to the segment from `a` to `b`.
double segmentDistance(MapPoint p, MapPoint a, MapPoint b);

} // namespace trackloom
