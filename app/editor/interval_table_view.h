#pragma once

// Every interval of the track in a table that scrolls smoothly through all of
// them, optionally only those above the "Auffällig über" threshold or with a
// problem. Its selection and the map's are the model's one selected point.

#include <QWidget>

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QTableView;

namespace trackloom {

class EditorModel;
class IntervalTableModel;

class IntervalTableView : public QWidget {
    Q_OBJECT

  public:
    explicit IntervalTableView(EditorModel& model, QWidget* parent = nullptr);

    /// Rows the table shows at least, however small the window.
    static constexpr int visibleRows = 7;

    QTableView* table() const { return m_table; }
    IntervalTableModel* rows() const { return m_rows; }

  private:
    void fitColumns();
    void showTrack();
    void applyFilter();
    void showSelection();
    void rowChosen();

    EditorModel& m_model;
    IntervalTableModel* m_rows;
    QCheckBox* m_suspiciousOnly;
    QDoubleSpinBox* m_threshold;
    QLabel* m_count;
    QTableView* m_table;
    bool m_selecting = false;
    int m_openedRevision = -1;
};

} // namespace trackloom
