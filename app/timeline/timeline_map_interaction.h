#pragma once

// The timeline map's one pointer mode. What a press means is decided by the
// keyboard at that moment: with Shift it opens a rubber band, on a selected
// point it drags that point, anywhere else a drag pans. A click selects the
// point under it (with Ctrl or Cmd it adds or removes the point instead).
//
// Also the overlay of the visits: markers with their labels, where labels that
// would cover each other give way to the earlier one.

#include "app/map/map_interaction.h"

#include <QFont>
#include <QImage>
#include <QString>
#include <vector>

namespace trackloom {

class TimelineMapInteraction : public MapInteraction {
  public:
    using Picked = std::function<void(std::optional<MapHit> hit, Coordinate where, bool toggle)>;
    using Spanned = std::function<void(MapRect region, bool toggle)>;
    using Moved = DragPointInteraction::Moved;

    /// `points` are hit by clicks and the band; only `selected` (the selection's
    /// markers) can be dragged, so indices in `moving` and `dropped` are theirs.
    TimelineMapInteraction(std::shared_ptr<const MapOverlay> points,
                           std::shared_ptr<const MapOverlay> selected,
                           std::shared_ptr<RubberBandOverlay> band, Picked picked, Spanned spanned,
                           Moved moving, Moved dropped);

    Qt::CursorShape cursor() const override { return Qt::ArrowCursor; }
    bool pressed(MapInteractionHost& host, QPointF position) override;
    void dragged(MapInteractionHost& host, QPointF position) override;
    void released(MapInteractionHost& host, QPointF position) override;
    void clicked(MapInteractionHost& host, QPointF position) override;

  private:
    Picked m_picked;
    Spanned m_spanned;
    RubberBandInteraction m_band;
    DragPointInteraction m_drag;
    SelectInteraction m_select;
    MapInteraction* m_current = nullptr;
    bool m_toggle = false;
};

struct MapVisit {
    Coordinate coordinate;
    QString label;
};

class VisitOverlay : public MapOverlay {
  public:
    void setVisits(std::vector<MapVisit> visits);

    void paint(QPainter& painter, const MapViewport& viewport) const override;

  private:
    /// A label as drawn: elided to fit, with the box it needs.
    struct Label {
        QString text;
        QSizeF size;
    };
    /// Lays the labels out once per font: a year holds thousands of stays, and
    /// measuring text every frame would cost more than the frame has.
    const std::vector<Label>& labelsFor(const QFont& font) const;

    std::vector<MapPoint> m_points;
    std::vector<QString> m_labels;
    mutable std::vector<Label> m_laidOut;
    mutable QFont m_laidOutFont;
    mutable QImage m_marker;
};

} // namespace trackloom
