#pragma once

// The selected points as dots. A history of millions of points cannot be drawn
// point by point every frame, so the model bins them into cells of a few screen
// points in the background and this overlay draws one dot per cell.

#include "app/map/map_overlay.h"
#include "core/places/heat_cells.h"

#include <vector>

namespace trackloom {

class DotsOverlay : public MapOverlay {
  public:
    void setCells(const std::vector<HeatCell>& cells) { m_cells = cells; }
    std::size_t size() const { return m_cells.size(); }

    void paint(QPainter& painter, const MapViewport& viewport) const override;

  private:
    std::vector<HeatCell> m_cells;
};

} // namespace trackloom
