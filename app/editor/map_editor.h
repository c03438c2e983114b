#pragma once

// The editor's map: the track as lines (coloured by speed when asked), its
// points, the selection and the points waiting to be inserted, the waypoints
// and the selected section (`MapAnnotations`), with the three
// tools — select, move by dragging, insert by clicking on the line. Clicks and
// drags go to the model; what the map shows always comes back from it.
//
// Preparing the lines of a long track takes a noticeable moment, so it runs on
// the map's own job runner; the newest preparation replaces the shown one.

#include "app/editor/map_annotations.h"
#include "app/shell/job_runner.h"

#include <QWidget>
#include <memory>
#include <vector>

class QToolButton;

namespace trackloom {

class EditorModel;
class MapWidget;
class PointsOverlay;
class PolylineOverlay;
class SpeedLegend;
class TileSource;

class MapEditor : public QWidget {
    Q_OBJECT

  public:
    MapEditor(EditorModel& model, TileSource* tiles, QWidget* parent = nullptr);

    MapWidget* map() const { return m_map; }
    /// The lines of the model's current track are still being prepared.
    bool isPreparing() const { return m_jobs.isBusy(); }

    /// The overlays of one state of the track.
    struct Overlays {
        std::shared_ptr<PolylineOverlay> lines;
        std::shared_ptr<PolylineOverlay> airLines;
        std::shared_ptr<PointsOverlay> points;
        // The displayed index of the first point of each line of `lines`.
        std::vector<std::int64_t> lineStarts;
    };

  private:
    void showTrack();
    void fit();
    void install(Overlays overlays);
    void arrangeOverlays();
    void showSelection();
    void followSelection();
    void showPending();
    void applyTool();
    QToolButton* toolButton(const QString& text, const QString& help, int tool);

    EditorModel& m_model;
    MapWidget* m_map;
    SpeedLegend* m_legend;
    QToolButton* m_finish = nullptr;
    QToolButton* m_cancel = nullptr;
    std::vector<QToolButton*> m_tools;
    Overlays m_overlays;
    std::shared_ptr<PointsOverlay> m_selection;
    std::shared_ptr<PointsOverlay> m_pending;
    MapAnnotations m_annotations;
    int m_shownRevision = -1;
    const void* m_shownScale = nullptr;
    int m_shownFit = 0;
    // Last, so that it is destroyed first: its jobs install into the members above.
    JobRunner m_jobs;
};

} // namespace trackloom
