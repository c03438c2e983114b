#include "core/places/heat_cells.h"

#include "core/base/cancellation.h"
#include "core/base/web_mercator.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace trackloom {

HeatSample HeatSample::projecting(PlaceCoordinate coordinate) {
    const auto point = mercatorProjected(coordinate.latitude, coordinate.longitude);
    return HeatSample{point.x, point.y};
}

namespace PlaceAnalysis {
namespace {

constexpr std::size_t heatStride = 4096;

struct Key {
    std::int64_t x;
    std::int64_t y;

    friend bool operator==(Key, Key) = default;
};

struct KeyHash {
    std::size_t operator()(Key key) const {
        return std::hash<std::uint64_t>{}(static_cast<std::uint64_t>(key.x) * 0x9e3779b97f4a7c15u ^
                                          static_cast<std::uint64_t>(key.y));
    }
};

struct Accumulator {
    double sumX = 0;
    double sumY = 0;
    std::int64_t count = 0;
};

bool isPositive(double value) {
    return std::isfinite(value) && value > 0;
}

/// Whether every column and row number in the region fits a 64-bit integer.
bool isNumberable(HeatRegion region, double cellSize) {
    constexpr double limit = 9.2e18;
    const double largest = std::max({std::abs(region.minX), std::abs(region.minX + region.width),
                                     std::abs(region.minY), std::abs(region.minY + region.height)});
    return largest / cellSize < limit;
}

} // namespace

std::vector<HeatCell> heatCells(std::span<const HeatSample> samples, HeatRegion region,
                                double cellSize, std::stop_token stop) {
    if (!isPositive(cellSize) || !isPositive(region.width) || !isPositive(region.height) ||
        !std::isfinite(region.minX) || !std::isfinite(region.minY) ||
        !isNumberable(region, cellSize)) {
        return {};
    }
    const double maxX = region.minX + region.width;
    const double maxY = region.minY + region.height;
    const double centreX = region.minX + region.width / 2;
    std::unordered_map<Key, Accumulator, KeyHash> cells;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (i % heatStride == 0) {
            throwIfCancelled(stop);
        }
        const double y = samples[i].y;
        // Rows never wrap, so most samples of a zoomed-in view are rejected here,
        // before the rounding. Acceptance tests, so that NaN is never kept.
        if (!(region.minY <= y && y <= maxY)) {
            continue;
        }
        const double x = samples[i].x + std::round(centreX - samples[i].x);
        if (!(region.minX <= x && x <= maxX)) {
            continue;
        }
        const Key key{static_cast<std::int64_t>(std::floor(x / cellSize)),
                      static_cast<std::int64_t>(std::floor(y / cellSize))};
        auto& cell = cells[key];
        cell.sumX += x;
        cell.sumY += y;
        ++cell.count;
    }
    std::vector<HeatCell> result;
    result.reserve(cells.size());
    for (const auto& [key, cell] : cells) {
        result.push_back(HeatCell{cell.sumX / cell.count, cell.sumY / cell.count, cell.count});
    }
    return result;
}

} // namespace PlaceAnalysis
} // namespace trackloom
