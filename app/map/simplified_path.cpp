#include "app/map/simplified_path.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trackloom {
namespace {

constexpr float always = std::numeric_limits<float>::infinity();

MapRect boundsOf(const std::vector<MapPoint>& points, std::size_t first, std::size_t last) {
    MapRect bounds{points[first].x, points[first].y, points[first].x, points[first].y};
    for (std::size_t i = first + 1; i <= last; ++i) {
        bounds = {std::min(bounds.minX, points[i].x), std::min(bounds.minY, points[i].y),
                  std::max(bounds.maxX, points[i].x), std::max(bounds.maxY, points[i].y)};
    }
    return bounds;
}

} // namespace

double segmentDistance(MapPoint p, MapPoint a, MapPoint b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double lengthSquared = dx * dx + dy * dy;
    double t = 0;
    if (lengthSquared > 0) {
        t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / lengthSquared, 0.0, 1.0);
    }
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

SimplifiedPath::SimplifiedPath(const std::vector<Coordinate>& coordinates)
    : m_significance(coordinates.size(), 0.0f) {
    m_points.reserve(coordinates.size());
    for (const Coordinate& coordinate : coordinates) {
        m_points.push_back(project(coordinate));
    }
    if (m_points.empty()) {
        return;
    }
    for (std::size_t first = 0;; first += chunkLength) {
        const std::size_t last = std::min(first + chunkLength, m_points.size() - 1);
        m_chunks.push_back({first, last, boundsOf(m_points, first, last)});
        rankChunk(m_chunks.back());
        if (last == m_points.size() - 1) {
            break;
        }
    }
}

void SimplifiedPath::rankChunk(const Chunk& chunk) {
    m_significance[chunk.first] = always;
    m_significance[chunk.last] = always;
    struct Span {
        std::size_t from;
        std::size_t to;
        float ceiling;
    };
    // Depth first without recursion; a point never ranks above the point that
    // split its span, so filtering by one tolerance gives a consistent line.
    std::vector<Span> spans{{chunk.first, chunk.last, always}};
    while (!spans.empty()) {
        const Span span = spans.back();
        spans.pop_back();
        if (span.to - span.from < 2) {
            continue;
        }
        std::size_t farthest = span.from + 1;
        double distance = -1;
        for (std::size_t i = span.from + 1; i < span.to; ++i) {
            const double d = segmentDistance(m_points[i], m_points[span.from], m_points[span.to]);
            if (d > distance) {
                distance = d;
                farthest = i;
            }
        }
        const float rank = std::min(static_cast<float>(distance), span.ceiling);
        m_significance[farthest] = rank;
        spans.push_back({span.from, farthest, rank});
        spans.push_back({farthest, span.to, rank});
    }
}

std::vector<std::vector<std::size_t>> SimplifiedPath::visibleRuns(const MapRect& region,
                                                                  double tolerance) const {
    std::vector<std::vector<std::size_t>> runs;
    std::vector<std::size_t> run;
    const auto closeRun = [&] {
        if (run.size() >= 2) {
            runs.push_back(std::move(run));
        }
        run.clear();
    };
    for (const Chunk& chunk : m_chunks) {
        if (!chunk.bounds.intersects(region)) {
            closeRun();
            continue;
        }
        // The first point is shared with the previous chunk when that one was drawn.
        std::size_t i = run.empty() ? chunk.first : chunk.first + 1;
        for (; i <= chunk.last; ++i) {
            if (m_significance[i] >= tolerance) {
                run.push_back(i);
            }
        }
    }
    closeRun();
    return runs;
}

std::optional<SimplifiedPath::NearestLeg> SimplifiedPath::nearestLeg(MapPoint point,
                                                                     double tolerance) const {
    std::optional<NearestLeg> nearest;
    const MapRect around{point.x, point.y, point.x, point.y};
    for (const Chunk& chunk : m_chunks) {
        if (!chunk.bounds.enlarged(tolerance).intersects(around)) {
            continue;
        }
        for (std::size_t i = chunk.first; i < chunk.last; ++i) {
            const double d = segmentDistance(point, m_points[i], m_points[i + 1]);
            if (d <= tolerance && (!nearest || d < nearest->distance)) {
                nearest = NearestLeg{i, d};
            }
        }
    }
    return nearest;
}

} // namespace trackloom
