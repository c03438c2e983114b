#pragma once

// Speed over distance: each pixel column shows the slowest and the fastest
// valid interval that falls into it, so the profile of a track with hundreds
// of thousands of intervals paints as fast as that of a short one. A dashed
// line marks the "Auffällig über" threshold when it is on the axis; a click
// selects the interval.

#include "core/track/gpx_track.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace trackloom {

class EditorModel;

class SpeedProfileView : public QWidget {
    Q_OBJECT

  public:
    explicit SpeedProfileView(EditorModel& model, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {600, 160}; }
    /// The top of the speed axis in km/h.
    double axisTop() const { return m_axisTop; }
    /// The threshold lies on the axis and is drawn as a line; otherwise a
    /// marker at the top edge names it.
    bool thresholdShown() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    struct Column {
        double slowest = 0;
        double fastest = -1;
    };
    void rebuild();
    QRectF plotArea() const;
    double xOf(double metres) const;
    double yOf(double kmh) const;
    std::optional<double> selectedDistance() const;

    EditorModel& m_model;
    TrackPtr m_track;
    std::vector<Column> m_columns;
    double m_axisTop = 1;
};

} // namespace trackloom
