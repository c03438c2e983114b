#pragma once

// Something drawn over the tiles. Each overlay paints itself for a viewport and,
// where it has items a user can point at, says which one lies under a screen
// position; the interaction modes ask these hit tests, the workspaces own the
// overlays and change their data.

#include "app/map/map_viewport.h"

#include <QPainter>
#include <cstdint>
#include <optional>

namespace trackloom {

/// An item found under the pointer: `path` and `index` are the overlay's own
/// numbering (a point, or the leg that starts at point `index`).
struct MapHit {
    int path = 0;
    std::int64_t index = 0;
    /// Distance from the pointer in pixels.
    double distance = 0;

    friend bool operator==(const MapHit&, const MapHit&) = default;
};

class MapOverlay {
  public:
    virtual ~MapOverlay() = default;

    virtual void paint(QPainter& painter, const MapViewport& viewport) const = 0;
    /// The nearest item within `tolerance` pixels of `position`, if any.
    virtual std::optional<MapHit> hitTest(const MapViewport& viewport, QPointF position,
                                          double tolerance) const {
        (void)viewport;
        (void)position;
        (void)tolerance;
        return std::nullopt;
    }
};

} // namespace trackloom
