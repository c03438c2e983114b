#pragma once

// The rules of the calendar both workspaces pick dates with: a month grid in
// which the days holding data are marked with their number of points, one day
// or a range of days selected by clicks, navigation between months, and the
// texts around it. The popover that shows it is DataCalendarView; this value
// holds everything that can be decided without a screen.

#include "core/base/instant.h"

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <date/tz.h>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace trackloom {

/// Points per day, keyed by the instant the day starts (as `TrackCalendar::pointCounts` gives
/// them).
using DayCounts = std::map<Instant, std::int64_t>;

/// One field of the month grid.
struct CalendarCell {
    Instant start;
    int dayOfMonth = 0;
    bool inShownMonth = false;
    /// Points on that day; 0 for a day without data (which gets no mark).
    std::int64_t count = 0;
    bool selected = false;
};

class DataCalendarPicker {
    Q_DECLARE_TR_FUNCTIONS(trackloom::DataCalendarPicker)

  public:
    using Choose = std::function<void(Instant first, Instant last)>;
    using Cancel = std::function<void()>;

    /// The colour of the day marks, as 0xAARRGGBB.
    static constexpr std::uint32_t green = 0xFF34C759;

    /// Opens on the month of `start` with `start` … `end` (or the single day
    /// `start`) selected, all reduced to day starts in `zone`.
    DataCalendarPicker(bool range, const date::time_zone& zone, DayCounts counts, QString legend,
                       QString actionTitle, Instant start, std::optional<Instant> end,
                       Choose choose, Cancel cancel);

    bool range() const { return m_range; }
    const date::time_zone& zone() const { return *m_zone; }
    const DayCounts& counts() const { return m_counts; }
    const QString& legend() const { return m_legend; }
    const QString& actionTitle() const { return m_actionTitle; }
    Instant month() const { return m_month; }
    Instant first() const { return m_first; }
    Instant last() const { return m_last; }
    bool choosingEnd() const { return m_choosingEnd; }

    /// A click on the day containing `clicked`: the single day, or the start or
    /// the end of a range (a range may be clicked backwards).
    void select(Instant clicked);

    void showPreviousMonth() { showMonthOffset(-1); }
    void showNextMonth() { showMonthOffset(1); }
    /// Shows `month` (1…12) of `year`; years outside 1…9999 are ignored.
    void showMonth(int year, unsigned month);
    /// Show the months of the earliest and the latest day with data; nothing
    /// happens without data.
    void showFirstDataMonth();
    void showLastDataMonth();
    int shownYear() const;
    /// 1 = January … 12 = December.
    unsigned shownMonth() const;
    /// The years the year picker offers: five around the shown one and every
    /// year with data, ascending.
    std::vector<int> yearChoices() const;

    /// The 42 fields showing the shown month, weeks beginning on `firstWeekday`
    /// (1 = Sunday … 7 = Saturday).
    std::vector<CalendarCell> grid(int firstWeekday) const;

    QString heading() const;
    QString instruction() const;
    /// The number of days with data in the selection + " Tage mit Daten".
    QString summary() const;

    /// The confirming button: hands the selection to `choose`.
    void confirm() const;
    /// Closing without confirming.
    void cancel() const;

  private:
    void showMonthOffset(int months);
    void showMonthOf(Instant instant);

    bool m_range;
    const date::time_zone* m_zone;
    DayCounts m_counts;
    QString m_legend;
    QString m_actionTitle;
    Choose m_choose;
    Cancel m_cancel;
    Instant m_month;
    Instant m_first;
    Instant m_last;
    bool m_choosingEnd = false;
};

/// The first weekday of `locale`'s calendar, 1 = Sunday … 7 = Saturday.
int firstWeekday(const QLocale& locale);

/// The locale's short stand-alone weekday names, beginning with `firstWeekday`.
QStringList weekdaySymbols(const QLocale& locale, int firstWeekday);

} // namespace trackloom
