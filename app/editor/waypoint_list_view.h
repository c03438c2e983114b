#pragma once

// The file's waypoints in a table, or a note that it has none. Choosing one
// centres the map on it, at the zoom the map has.

#include <QWidget>

class QLabel;
class QStackedWidget;
class QTableView;

namespace trackloom {

class EditorModel;
class MapWidget;
class WaypointTableModel;

class WaypointListView : public QWidget {
    Q_OBJECT

  public:
    /// `map` is the map to centre; it must outlive this view.
    WaypointListView(EditorModel& model, MapWidget* map, QWidget* parent = nullptr);

    QTableView* table() const { return m_table; }
    WaypointTableModel* rows() const { return m_rows; }
    /// The note for a file without waypoints is shown instead of the table.
    bool showsEmptyNote() const;

  private:
    void showWaypoints();
    void rowChosen();

    EditorModel& m_model;
    MapWidget* m_map;
    WaypointTableModel* m_rows;
    QTableView* m_table;
    QLabel* m_empty;
    QStackedWidget* m_pages;
    const void* m_shownTrack = nullptr;
};

} // namespace trackloom
