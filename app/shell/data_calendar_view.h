#pragma once

// The popover with the month grid of a DataCalendarPicker: navigation, the
// day fields with their marks and point counts, the summary, the legend and the
// confirming button. Closing it any other way cancels.

#include "app/shell/data_calendar_picker.h"

#include <QFrame>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace trackloom {

class DataCalendarView : public QFrame {
    Q_OBJECT

  public:
    explicit DataCalendarView(DataCalendarPicker picker, QWidget* parent = nullptr);

    const DataCalendarPicker& picker() const { return m_picker; }
    /// The day fields in grid order (for keyboard users and tests alike).
    const std::vector<QToolButton*>& dayButtons() const { return m_days; }
    QPushButton* actionButton() const { return m_action; }

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QLayout* buildNavigation();
    QLayout* buildGrid();
    QLayout* buildFooter();
    void refresh();
    void refreshNavigation();
    void styleDay(QToolButton* button, const CalendarCell& cell) const;

    DataCalendarPicker m_picker;
    int m_firstWeekday;
    std::vector<CalendarCell> m_cells;
    std::vector<QToolButton*> m_days;
    QLabel* m_instruction = nullptr;
    QLabel* m_summary = nullptr;
    QComboBox* m_month = nullptr;
    QComboBox* m_year = nullptr;
    QPushButton* m_action = nullptr;
    bool m_finished = false;
};

} // namespace trackloom
