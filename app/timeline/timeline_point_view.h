#pragma once

// The point table: sortable by every column, several rows selectable, the
// selection kept equal to the model's both ways; Delete removes the selected
// points (one undo step).

#include <QWidget>

class QSortFilterProxyModel;
class QTableView;

namespace trackloom {

class TimelineModel;
class TimelinePointTable;

class TimelinePointView : public QWidget {
    Q_OBJECT

  public:
    explicit TimelinePointView(TimelineModel& model, QWidget* parent = nullptr);

    QTableView* table() const { return m_table; }
    TimelinePointTable* rows() const { return m_rows; }

  signals:
    /// The user selected rows here (not the map or the model).
    void selectionMade();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showSelection();
    void rowsChosen();

    TimelineModel& m_model;
    TimelinePointTable* m_rows;
    QSortFilterProxyModel* m_sorted;
    QTableView* m_table;
    // Set while the view follows the model, so that it does not write back.
    bool m_following = false;
    // Set while the view hands its selection to the model.
    bool m_handingOver = false;
};

} // namespace trackloom
