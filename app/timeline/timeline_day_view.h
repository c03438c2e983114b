#pragma once

// The day list: a search over dates and place names, the order, and one row of
// two lines per day. Clicking a row shows that day.

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QListView;

namespace trackloom {

class TimelineModel;
class TimelineDayList;

class TimelineDayView : public QWidget {
    Q_OBJECT

  public:
    explicit TimelineDayView(TimelineModel& model, QWidget* parent = nullptr);

    QListView* list() const { return m_list; }
    TimelineDayList* rows() const { return m_rows; }
    QLineEdit* search() const { return m_search; }
    QComboBox* order() const { return m_order; }

  private:
    void refresh();
    void revealShownDay();

    TimelineModel& m_model;
    TimelineDayList* m_rows;
    QLineEdit* m_search;
    QComboBox* m_order;
    QListView* m_list;
    QLabel* m_empty;
};

} // namespace trackloom
