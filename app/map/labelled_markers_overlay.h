#pragma once

// Markers with a name beside them: the timeline's visits, the editor's
// waypoints. A label stands right of its marker, or left where that is taken,
// always inside the map, off the grid's degree labels and clear of other
// labels and markers; where neither
// side is free the label gives way and its marker is still drawn.

#include "app/map/map_overlay.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <vector>

namespace trackloom {

struct LabelledMarker {
    Coordinate coordinate;
    /// Empty for a marker without a label.
    QString label;
};

class LabelledMarkersOverlay : public MapOverlay {
  public:
    explicit LabelledMarkersOverlay(QColor markerColour);

    void setMarkers(std::vector<LabelledMarker> markers);
    std::size_t size() const { return m_points.size(); }

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

    QColor m_colour;
    std::vector<MapPoint> m_points;
    std::vector<QString> m_labels;
    mutable std::vector<Label> m_laidOut;
    mutable QFont m_laidOutFont;
    mutable QImage m_marker;
};

} // namespace trackloom
