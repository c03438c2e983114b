#include "app/shell/date_texts.h"

#include "core/places/zoned_calendar.h"

#include <QDateTime>
#include <QHash>
#include <cmath>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace trackloom {

namespace {

QString fromUnicode(const icu::UnicodeString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

} // namespace

// ICU formats in one fixed zone (GMT) the wall-clock reading that date/tz
// computed, so ICU's own zone data never disagrees with the rest of the program.
struct DateTemplate::Formatter {
    std::unique_ptr<icu::SimpleDateFormat> icu;
    QString fallbackPattern;
    QLocale locale;
};

DateTemplate::DateTemplate(const char* skeleton, const QLocale& locale)
    : m_formatter(std::make_unique<Formatter>()) {
    m_formatter->locale = locale;
    const icu::Locale icuLocale(locale.name().toUtf8().constData());
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(icuLocale, status));
    if (U_SUCCESS(status)) {
        const auto pattern = generator->getBestPattern(icu::UnicodeString(skeleton), status);
        if (U_SUCCESS(status)) {
            auto format = std::make_unique<icu::SimpleDateFormat>(pattern, icuLocale, status);
            if (U_SUCCESS(status)) {
                format->adoptTimeZone(icu::TimeZone::createTimeZone("GMT"));
                m_formatter->icu = std::move(format);
            }
        }
    }
    if (!m_formatter->icu) {
        // Without ICU's data the locale's own short formats are the nearest thing.
        const QString wanted = QString::fromLatin1(skeleton);
        m_formatter->fallbackPattern = wanted.contains(QLatin1Char('y'))
                                           ? locale.dateFormat(QLocale::ShortFormat)
                                           : locale.timeFormat(QLocale::ShortFormat);
    }
}

DateTemplate::~DateTemplate() = default;
DateTemplate::DateTemplate(DateTemplate&&) noexcept = default;
DateTemplate& DateTemplate::operator=(DateTemplate&&) noexcept = default;

QString DateTemplate::pattern() const {
    if (!m_formatter->icu) {
        return m_formatter->fallbackPattern;
    }
    icu::UnicodeString pattern;
    m_formatter->icu->toPattern(pattern);
    return fromUnicode(pattern);
}

QString DateTemplate::format(Instant instant, const date::time_zone& zone) const {
    const auto local = ZonedCalendar(zone).localTime(instant);
    if (!local) {
        return {};
    }
    // Whole seconds of the local reading; the fraction never shows in these texts.
    const double wallSeconds =
        static_cast<double>(local->day.time_since_epoch().count()) * 86400.0 +
        std::floor(local->secondsIntoDay);
    if (!m_formatter->icu) {
        const auto wallClock =
            QDateTime::fromSecsSinceEpoch(static_cast<qint64>(wallSeconds), Qt::UTC);
        return m_formatter->locale.toString(wallClock, m_formatter->fallbackPattern);
    }
    icu::UnicodeString text;
    m_formatter->icu->format(static_cast<UDate>(wallSeconds * 1000.0), text);
    return fromUnicode(text);
}

QString formatDate(Instant instant, const date::time_zone& zone, const char* skeleton) {
    thread_local QHash<QString, std::shared_ptr<DateTemplate>> templates;
    const QLocale locale;
    const QString key = locale.name() + QLatin1Char('|') + QLatin1String(skeleton);
    auto& found = templates[key];
    if (!found) {
        found = std::make_shared<DateTemplate>(skeleton, locale);
    }
    return found->format(instant, zone);
}

} // namespace trackloom
