#include "app/shell/data_calendar_picker.h"

#include "core/places/track_calendar.h"

#include <QCoreApplication>
#include <set>

namespace trackloom {
namespace {

// Day starts are computed Monday-first; the weekday only matters for the grid.
ZonedCalendar calendarIn(const date::time_zone& zone) {
    return TrackCalendar::calendar(zone, ZonedCalendar::monday);
}

std::optional<date::year_month_day> dateOf(Instant instant, const date::time_zone& zone) {
    const auto day = calendarIn(zone).day(instant);
    return day ? std::optional(date::year_month_day(*day)) : std::nullopt;
}

} // namespace

DataCalendarPicker::DataCalendarPicker(bool range, const date::time_zone& zone, DayCounts counts,
                                       QString legend, QString actionTitle, Instant start,
                                       std::optional<Instant> end, Choose choose, Cancel cancel)
    : m_range(range), m_zone(&zone), m_counts(std::move(counts)), m_legend(std::move(legend)),
      m_actionTitle(std::move(actionTitle)), m_choose(std::move(choose)),
      m_cancel(std::move(cancel)), m_month(start) {
    const auto [first, last] = TrackCalendar::orderedDays(start, range && end ? *end : start, zone);
    m_first = first;
    m_last = last;
}

void DataCalendarPicker::select(Instant clicked) {
    const Instant day = calendarIn(*m_zone).startOfDay(clicked).value_or(clicked);
    if (m_range && m_choosingEnd) {
        std::tie(m_first, m_last) = TrackCalendar::orderedDays(m_first, day, *m_zone);
        m_choosingEnd = false;
        return;
    }
    m_first = m_last = day;
    m_choosingEnd = m_range;
}

void DataCalendarPicker::showMonth(int year, unsigned month) {
    if (year < 1 || year > 9999 || month < 1 || month > 12) {
        return;
    }
    const date::year_month_day firstOfMonth{date::year(year), date::month(month), date::day(1)};
    if (const auto start = calendarIn(*m_zone).start(date::local_days(firstOfMonth))) {
        m_month = *start;
    }
}

void DataCalendarPicker::showMonthOffset(int months) {
    const auto shown = dateOf(m_month, *m_zone);
    if (!shown) {
        return;
    }
    const auto target = date::year_month(shown->year(), shown->month()) + date::months(months);
    showMonth(static_cast<int>(target.year()), static_cast<unsigned>(target.month()));
}

void DataCalendarPicker::showMonthOf(Instant instant) {
    if (const auto date = dateOf(instant, *m_zone)) {
        showMonth(static_cast<int>(date->year()), static_cast<unsigned>(date->month()));
    }
}

void DataCalendarPicker::showFirstDataMonth() {
    if (!m_counts.empty()) {
        showMonthOf(m_counts.begin()->first);
    }
}

void DataCalendarPicker::showLastDataMonth() {
    if (!m_counts.empty()) {
        showMonthOf(m_counts.rbegin()->first);
    }
}

int DataCalendarPicker::shownYear() const {
    const auto shown = dateOf(m_month, *m_zone);
    return shown ? static_cast<int>(shown->year()) : 1;
}

unsigned DataCalendarPicker::shownMonth() const {
    const auto shown = dateOf(m_month, *m_zone);
    return shown ? static_cast<unsigned>(shown->month()) : 1;
}

std::vector<int> DataCalendarPicker::yearChoices() const {
    std::set<int> years;
    const int shown = shownYear();
    for (int year = std::max(1, shown - 5); year <= std::min(9999, shown + 5); ++year) {
        years.insert(year);
    }
    for (const auto& [day, count] : m_counts) {
        if (const auto date = dateOf(day, *m_zone)) {
            years.insert(static_cast<int>(date->year()));
        }
    }
    return {years.begin(), years.end()};
}

std::vector<CalendarCell> DataCalendarPicker::grid(int firstWeekday) const {
    const unsigned month = shownMonth();
    std::vector<CalendarCell> cells;
    for (const Instant start : TrackCalendar::monthGrid(m_month, *m_zone, firstWeekday)) {
        const auto date = dateOf(start, *m_zone);
        const auto count = m_counts.find(start);
        cells.push_back({start, date ? static_cast<int>(static_cast<unsigned>(date->day())) : 0,
                         date && static_cast<unsigned>(date->month()) == month,
                         count == m_counts.end() ? 0 : count->second,
                         m_first <= start && start <= m_last});
    }
    return cells;
}

QString DataCalendarPicker::heading() const {
    return m_range ? tr("Zeitraum im Kalender wählen") : tr("Datum im Kalender wählen");
}

QString DataCalendarPicker::instruction() const {
    if (!m_range) {
        return tr("Einen Tag anklicken und übernehmen.");
    }
    return m_choosingEnd
               ? tr("Jetzt den Endtag anklicken – auch im anderen Monat.")
               : tr("Beginn und Ende anklicken. Für einen einzelnen Tag zweimal denselben Tag "
                    "wählen.");
}

QString DataCalendarPicker::summary() const {
    const auto begin = m_counts.lower_bound(m_first);
    const auto end = m_counts.upper_bound(m_last);
    const auto days = m_first <= m_last ? std::distance(begin, end) : 0;
    return QString::number(days) + tr(" Tage mit Daten");
}

void DataCalendarPicker::confirm() const {
    if (m_choose) {
        m_choose(m_first, m_last);
    }
}

void DataCalendarPicker::cancel() const {
    if (m_cancel) {
        m_cancel();
    }
}

int firstWeekday(const QLocale& locale) {
    // Qt counts Monday = 1 … Sunday = 7.
    return static_cast<int>(locale.firstDayOfWeek()) % 7 + 1;
}

QStringList weekdaySymbols(const QLocale& locale, int firstWeekday) {
    QStringList symbols;
    for (int column = 0; column < 7; ++column) {
        const int weekday = (firstWeekday - 1 + column) % 7 + 1;
        const int qtDay = weekday == 1 ? 7 : weekday - 1;
        symbols += locale.standaloneDayName(qtDay, QLocale::ShortFormat);
    }
    return symbols;
}

} // namespace trackloom
