#pragma once

// Point density as soft coloured blobs, one per heat cell: red where the view
// holds the most points, towards blue where it holds few, on a logarithmic
// scale relative to the cells currently shown.

#include "app/map/map_overlay.h"

#include <QColor>
#include <cstdint>
#include <vector>

namespace trackloom {

/// The blob colour of a cell with `count` points when the densest has `maxCount`:
/// hue (1 − t) · 0.66 with t = ln(1 + count) / ln(1 + maxCount).
QColor heatColor(std::int64_t count, std::int64_t maxCount);

class HeatOverlay : public MapOverlay {
  public:
    /// Takes any cells with unit-square centroids `x`, `y` and a `count`, and
    /// their size in unit-square units.
    template <typename Cells> void setCells(const Cells& cells, double cellSize) {
        m_cells.clear();
        for (const auto& cell : cells) {
            m_cells.push_back({cell.x, cell.y, static_cast<std::int64_t>(cell.count)});
        }
        m_cellSize = cellSize;
    }
    void clear() { m_cells.clear(); }
    bool isEmpty() const { return m_cells.empty(); }

    void paint(QPainter& painter, const MapViewport& viewport) const override;

  private:
    struct Cell {
        double x = 0;
        double y = 0;
        std::int64_t count = 0;
    };
    std::vector<Cell> m_cells;
    double m_cellSize = 0;
};

} // namespace trackloom
