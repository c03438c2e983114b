#pragma once

// Dates and times written by a localized template such as "EEEddMMyyyy" or
// "jjmmss": the user's locale picks the pattern for those fields (order,
// separators, 12- or 24-hour clock), the zone is given per call. ICU supplies
// only the locale data; the zone arithmetic is date/tz's, as everywhere else.

#include "core/base/instant.h"

#include <QLocale>
#include <QString>
#include <date/tz.h>
#include <memory>

namespace trackloom {

class DateTemplate {
  public:
    /// The best pattern of `locale` for the fields of `skeleton`.
    explicit DateTemplate(const QString& skeleton, const QLocale& locale = QLocale());
    ~DateTemplate();
    DateTemplate(DateTemplate&&) noexcept;
    DateTemplate& operator=(DateTemplate&&) noexcept;

    /// The pattern chosen, in ICU's (and Unicode's) notation.
    const QString& pattern() const { return m_pattern; }
    /// `instant` as the wall clock in `zone` reads it (Gregorian calendar for
    /// every year); empty for an instant outside the calendar.
    QString format(Instant instant, const date::time_zone& zone) const;

  private:
    struct Formatter;
    QString m_pattern;
    std::unique_ptr<Formatter> m_format;
};

/// `instant` in `zone` with the current default locale's pattern for `skeleton`.
/// Templates are kept per thread, so calling this for every row is cheap.
QString formatDate(Instant instant, const date::time_zone& zone, const char* skeleton);

} // namespace trackloom
