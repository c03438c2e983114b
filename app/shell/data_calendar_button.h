#pragma once

// The button that opens the data calendar: it shows the chosen day or range
// (or only the calendar symbol) and keeps what the popover needs — mode, zone,
// points per day, legend and the title of the confirming button.

#include "app/shell/data_calendar_picker.h"

#include <QPointer>
#include <QToolButton>

namespace trackloom {

class DataCalendarView;

class DataCalendarButton : public QToolButton {
    Q_OBJECT

  public:
    /// Single-day mode in `zone`, showing today.
    explicit DataCalendarButton(const date::time_zone& zone, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setIconOnly(bool iconOnly);
    void setRange(bool range);
    void setZone(const date::time_zone& zone);
    void setCounts(DayCounts counts);
    void setLegend(const QString& legend);
    void setActionTitle(const QString& actionTitle);
    /// The current day, or the current range when `end` is given.
    void setDays(Instant start, std::optional<Instant> end = std::nullopt);

    Instant start() const { return m_start; }
    std::optional<Instant> end() const { return m_end; }
    /// The popover is open.
    bool isPresented() const { return !m_view.isNull(); }
    DataCalendarView* view() const { return m_view; }

    /// Opens the popover below the button.
    void present();

  signals:
    /// The user confirmed `first` … `last` (the same day in single-day mode).
    void chosen(trackloom::Instant first, trackloom::Instant last);

  private:
    void updateLabel();

    QString m_title;
    bool m_iconOnly = false;
    bool m_range = false;
    const date::time_zone* m_zone;
    DayCounts m_counts;
    QString m_legend;
    QString m_actionTitle;
    Instant m_start;
    std::optional<Instant> m_end;
    QPointer<DataCalendarView> m_view;
};

} // namespace trackloom
