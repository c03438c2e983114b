#pragma once

// What a press, drag or click on the map means is decided by the active mode, a
// small strategy object the map widget forwards its pointer events to: select,
// select by rubber band, drag a point, click to insert, click to pick a place.
// A drag that no mode takes pans the map, so every mode can still be moved around.

#include "app/map/map_overlay.h"
#include "app/map/shape_overlays.h"

#include <functional>
#include <memory>
#include <optional>

namespace trackloom {

/// What a mode may use of the map it runs on.
class MapInteractionHost {
  public:
    virtual ~MapInteractionHost() = default;
    virtual const MapViewport& currentViewport() const = 0;
    /// Repaints the overlays after a mode changed one of them.
    virtual void refreshOverlays() = 0;
};

class MapInteraction {
  public:
    /// Pointer distance in pixels within which an item counts as hit.
    static constexpr double hitTolerance = 6;

    virtual ~MapInteraction() = default;
    virtual Qt::CursorShape cursor() const { return Qt::OpenHandCursor; }
    /// A button went down at `position`; true takes the drag that may follow, so
    /// the map does not pan.
    virtual bool pressed(MapInteractionHost& host, QPointF position);
    virtual void dragged(MapInteractionHost& host, QPointF position);
    virtual void released(MapInteractionHost& host, QPointF position);
    /// A press and release without noticeable movement.
    virtual void clicked(MapInteractionHost& host, QPointF position);
};

/// A click picks the item of `target` under the pointer (none on empty map).
class SelectInteraction : public MapInteraction {
  public:
    using Picked = std::function<void(std::optional<MapHit> hit, Coordinate where)>;
    SelectInteraction(std::shared_ptr<const MapOverlay> target, Picked picked);

    void clicked(MapInteractionHost& host, QPointF position) override;

  protected:
    std::optional<MapHit> hitAt(const MapViewport& viewport, QPointF position) const;

  private:
    std::shared_ptr<const MapOverlay> m_target;
    Picked m_picked;
};

/// Dragging opens a rectangle and hands over the region it covers; clicks select.
class RubberBandInteraction : public SelectInteraction {
  public:
    using Spanned = std::function<void(MapRect region)>;
    RubberBandInteraction(std::shared_ptr<const MapOverlay> target,
                          std::shared_ptr<RubberBandOverlay> band, Picked picked, Spanned spanned);

    Qt::CursorShape cursor() const override { return Qt::CrossCursor; }
    bool pressed(MapInteractionHost& host, QPointF position) override;
    void dragged(MapInteractionHost& host, QPointF position) override;
    void released(MapInteractionHost& host, QPointF position) override;

  private:
    std::shared_ptr<RubberBandOverlay> m_band;
    Spanned m_spanned;
    MapPoint m_anchor;
};

/// Pressing on a point of `target` drags it: `moving` follows the pointer,
/// `dropped` reports where it was let go. Drags beside the points pan.
class DragPointInteraction : public SelectInteraction {
  public:
    using Moved = std::function<void(std::int64_t index, Coordinate where)>;
    DragPointInteraction(std::shared_ptr<const MapOverlay> target, Picked picked, Moved moving,
                         Moved dropped);

    bool pressed(MapInteractionHost& host, QPointF position) override;
    void dragged(MapInteractionHost& host, QPointF position) override;
    void released(MapInteractionHost& host, QPointF position) override;

  private:
    Moved m_moving;
    Moved m_dropped;
    std::optional<std::int64_t> m_dragged;
};

/// A click places a new point; when it lands on a leg of `line`, the leg is
/// reported too, so the point can go between its ends.
class InsertPointInteraction : public MapInteraction {
  public:
    using Placed = std::function<void(Coordinate where, std::optional<MapHit> leg)>;
    InsertPointInteraction(std::shared_ptr<const MapOverlay> line, Placed placed);

    Qt::CursorShape cursor() const override { return Qt::CrossCursor; }
    void clicked(MapInteractionHost& host, QPointF position) override;

  private:
    std::shared_ptr<const MapOverlay> m_line;
    Placed m_placed;
};

/// A click chooses a place on the map.
class PickPlaceInteraction : public MapInteraction {
  public:
    using Picked = std::function<void(Coordinate where)>;
    explicit PickPlaceInteraction(Picked picked);

    Qt::CursorShape cursor() const override { return Qt::CrossCursor; }
    void clicked(MapInteractionHost& host, QPointF position) override;

  private:
    Picked m_picked;
};

} // namespace trackloom
