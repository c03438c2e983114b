#pragma once

// The pure half of the heat map: coordinates projected once onto the unit
// square of the web Mercator projection, then binned into square cells for the
// visible part of the map on every pan and zoom.

#include "core/places/place_analysis.h"

#include <cstdint>
#include <span>
#include <stop_token>
#include <vector>

namespace trackloom {

/// A position on the unit square: x from 0 at 180° west to 1 at 180° east, y from
/// 0 at the projection's northern limit to 1 at its southern one.
struct HeatSample {
    double x = 0;
    double y = 0;

    /// The web Mercator position of `coordinate`; latitudes beyond ±85.05112878°
    /// land on the edge, longitudes beyond ±180° outside the square.
    static HeatSample projecting(PlaceCoordinate coordinate);

    friend bool operator==(const HeatSample&, const HeatSample&) = default;
};

/// One non-empty cell: the centroid of its samples and how many there are.
struct HeatCell {
    double x = 0;
    double y = 0;
    std::int64_t count = 0;

    friend bool operator==(const HeatCell&, const HeatCell&) = default;
};

/// The part of the unit square to bin (it may extend beyond the square where
/// the map shows a neighbouring copy of the world).
struct HeatRegion {
    double minX = 0;
    double minY = 0;
    double width = 0;
    double height = 0;
};

namespace PlaceAnalysis {

/// The cells of side `cellSize` that hold samples inside `region`, bounds
/// included, in no particular order. Samples are first moved by whole world
/// widths onto the copy of the world nearest the region's centre, so a view
/// across the 180° meridian still shows them. Cells are anchored at the square's
/// origin, so a cell stays put while the view pans. Empty for a region or cell
/// size that is not finite and positive, or a grid too fine to number.
/// Throws `CancellationError` when stopped.
std::vector<HeatCell> heatCells(std::span<const HeatSample> samples, HeatRegion region,
                                double cellSize, std::stop_token stop = {});

} // namespace PlaceAnalysis
} // namespace trackloom
