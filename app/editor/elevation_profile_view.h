#pragma once

// Elevation over distance, on the same distance axis as the speed profile.
// Each pixel column shows the lowest and highest elevation that falls into
// it, joined to the next column unless points without elevation or the start
// of another section lie between them. A click selects the nearest point.

#include "core/track/elevation.h"
#include "core/track/gpx_track.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace trackloom {

class EditorModel;

class ElevationProfileView : public QWidget {
    Q_OBJECT

  public:
    explicit ElevationProfileView(EditorModel& model, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {600, 160}; }
    /// The elevation axis, in metres; equal ends when the track has no elevation.
    double axisBottom() const { return m_axisBottom; }
    double axisTop() const { return m_axisTop; }
    /// The track has no elevation to show, and the view says so.
    bool isEmpty() const { return m_samples.empty(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    struct Column {
        double first = 0;
        double last = 0;
        double lowest = 0;
        double highest = 0;
        bool filled = false;
        /// The line comes into this column from the previous filled one.
        bool joined = false;
    };
    void showTrack();
    void rebuild();
    QRectF plotArea() const;
    double xOf(double metres) const;
    double yOf(double elevation) const;
    void paintAxes(QPainter& painter, const QRectF& area) const;
    void paintSelection(QPainter& painter, const QRectF& area) const;

    EditorModel& m_model;
    TrackPtr m_track;
    std::vector<ElevationSample> m_samples;
    std::vector<Column> m_columns;
    double m_axisBottom = 0;
    double m_axisTop = 0;
};

} // namespace trackloom
