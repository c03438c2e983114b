#pragma once

// Times are shown and typed in the editor's zone (UTC or the local zone the
// model was given), the same zone its calendar counts days in. Qt's date
// widgets only know UTC and the process's own zone, so they get the wall-clock
// reading in a UTC carrier and the zone arithmetic stays with ZonedCalendar.

#include "core/base/instant.h"
#include "core/base/zoned_calendar.h"

#include <QDateTime>
#include <cmath>
#include <optional>

namespace trackloom {

/// The wall-clock reading of `instant` in `zone`, to the millisecond, carried in
/// a UTC date and time; invalid outside the calendar.
inline QDateTime wallClockOf(Instant instant, const date::time_zone& zone) {
    const auto local = ZonedCalendar(zone).localTime(instant);
    if (!local) {
        return {};
    }
    const date::year_month_day day(local->day);
    const auto milliseconds = static_cast<int>(std::llround(local->secondsIntoDay * 1000.0));
    return QDateTime(QDate(int(day.year()), int(unsigned(day.month())), int(unsigned(day.day()))),
                     QTime::fromMSecsSinceStartOfDay(std::min(milliseconds, 86399999)), Qt::UTC);
}

/// The instant at which the wall clock in `zone` shows `wallClock`'s fields; nothing
/// for a reading the clocks skip.
inline std::optional<Instant> instantOfWallClock(const QDateTime& wallClock,
                                                 const date::time_zone& zone) {
    const QDate date = wallClock.date();
    const date::local_days day{date::year(date.year()) / date.month() / date.day()};
    return ZonedCalendar(zone).instant(
        LocalTime{day, wallClock.time().msecsSinceStartOfDay() / 1000.0});
}

} // namespace trackloom
