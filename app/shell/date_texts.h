#pragma once

// Dates and times in the user's locale, written from a skeleton such as
// "EEEddMMyyyy" (weekday, day, month, year) or "jjmm" (hours and minutes in the
// locale's 12- or 24-hour convention). The locale only decides the pattern and
// the names; the wall clock is always read in the zone the caller passes, never
// in the process's own zone.

#include "core/base/instant.h"

#include <QLocale>
#include <QString>
#include <date/tz.h>
#include <memory>

namespace trackloom {

/// A date pattern for one locale and skeleton, made once and used for many
/// dates. Not for use by several threads at once.
class DateTemplate {
  public:
    DateTemplate(const char* skeleton, const QLocale& locale = QLocale());
    ~DateTemplate();
    DateTemplate(DateTemplate&&) noexcept;
    DateTemplate& operator=(DateTemplate&&) noexcept;

    /// The locale's pattern for the skeleton ("EEE., dd.MM.yyyy" for German).
    QString pattern() const;
    /// `instant` as the wall clock in `zone` shows it; empty outside the calendar.
    QString format(Instant instant, const date::time_zone& zone) const;

  private:
    struct Formatter;
    std::unique_ptr<Formatter> m_formatter;
};

/// `instant` in `zone` with the current default locale's pattern for `skeleton`.
/// Patterns are kept per thread, so calling this for every row is cheap.
QString formatDate(Instant instant, const date::time_zone& zone, const char* skeleton);

} // namespace trackloom
