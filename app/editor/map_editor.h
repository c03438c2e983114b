#pragma once

// The editor's map: the track as lines (coloured by speed when asked), its
// points, the selection and the points waiting to be inserted, with the three
// tools — select, move by dragging, insert by clicking on the line. Clicks and
// drags go to the model; what the map shows always comes back from it.

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

  private:
    void showTrack();
    void showSelection();
    void showPending();
    void applyTool();
    QToolButton* toolButton(const QString& text, const QString& help, int tool);

    EditorModel& m_model;
    MapWidget* m_map;
    SpeedLegend* m_legend;
    QToolButton* m_finish = nullptr;
    QToolButton* m_cancel = nullptr;
    std::vector<QToolButton*> m_tools;
    std::shared_ptr<PolylineOverlay> m_lines;
    std::shared_ptr<PolylineOverlay> m_airLines;
    std::shared_ptr<PointsOverlay> m_points;
    std::shared_ptr<PointsOverlay> m_selection;
    std::shared_ptr<PointsOverlay> m_pending;
    // The displayed index of the first point of each line of `m_lines`.
    std::vector<std::int64_t> m_lineStarts;
    int m_shownRevision = -1;
    bool m_shownColoured = false;
    int m_shownFit = 0;
};

} // namespace trackloom
