#include "app/shell/date_texts.h"

#include "core/base/zoned_calendar.h"

#include <QHash>
#include <cmath>
#include <limits>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace trackloom {
namespace {

icu::UnicodeString unicode(const QString& text) {
    return icu::UnicodeString(reinterpret_cast<const UChar*>(text.utf16()),
                              static_cast<int32_t>(text.size()));
}

QString qtString(const icu::UnicodeString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

icu::Locale icuLocale(const QLocale& locale) {
    return icu::Locale(locale.name().toUtf8().constData());
}

/// ICU's fallback when the locale has no data: the skeleton's fields in order.
QString bestPattern(const QString& skeleton, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) {
        return skeleton;
    }
    const auto pattern = generator->getBestPattern(unicode(skeleton), status);
    return U_FAILURE(status) ? skeleton : qtString(pattern);
}

} // namespace

struct DateTemplate::Formatter {
    icu::SimpleDateFormat format;
};

DateTemplate::DateTemplate(const QString& skeleton, const QLocale& locale) {
    const auto icuLocaleValue = icuLocale(locale);
    m_pattern = bestPattern(skeleton, icuLocaleValue);
    UErrorCode status = U_ZERO_ERROR;
    m_format = std::make_unique<Formatter>(
        Formatter{icu::SimpleDateFormat(unicode(m_pattern), icuLocaleValue, status)});
    if (U_FAILURE(status)) {
        m_format.reset();
        return;
    }
    // The wall-clock reading is computed with date/tz and handed over as if it
    // were UTC, so ICU's own zone data never decides a day; and the calendar is
    // Gregorian for every year, as the day index's is.
    auto calendar = std::make_unique<icu::GregorianCalendar>(icu::TimeZone::createTimeZone("UTC"),
                                                             icuLocaleValue, status);
    calendar->setGregorianChange(-std::numeric_limits<double>::max(), status);
    if (U_SUCCESS(status)) {
        m_format->format.adoptCalendar(calendar.release());
    }
}

DateTemplate::~DateTemplate() = default;
DateTemplate::DateTemplate(DateTemplate&&) noexcept = default;
DateTemplate& DateTemplate::operator=(DateTemplate&&) noexcept = default;

QString DateTemplate::format(Instant instant, const date::time_zone& zone) const {
    const auto local = ZonedCalendar(zone).localTime(instant);
    if (!local || !m_format) {
        return {};
    }
    const double days = static_cast<double>(local->day.time_since_epoch().count());
    const UDate wallClock = (days * 86400.0 + std::floor(local->secondsIntoDay)) * 1000.0;
    icu::UnicodeString text;
    m_format->format.format(wallClock, text);
    return qtString(text);
}

QString formatDate(Instant instant, const date::time_zone& zone, const char* skeleton) {
    thread_local QHash<QString, std::shared_ptr<DateTemplate>> templates;
    const QLocale locale;
    auto& found = templates[locale.name() + QLatin1Char('|') + QLatin1String(skeleton)];
    if (!found) {
        found = std::make_shared<DateTemplate>(QString::fromLatin1(skeleton), locale);
    }
    return found->format(instant, zone);
}

} // namespace trackloom
