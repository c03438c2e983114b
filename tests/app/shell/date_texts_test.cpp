#include "app/shell/date_texts.h"

#include <gtest/gtest.h>
#include <limits>

namespace trackloom {
namespace {

Instant unix(double seconds) {
    return Instant::fromUnixSeconds(seconds);
}

TEST(DateTemplates, TheLocaleChoosesThePatternAndTheZoneTheWallClock) {
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    const auto& berlin = *date::locate_zone("Europe/Berlin");
    const auto& tokyo = *date::locate_zone("Asia/Tokyo");
    // 2025-06-01T21:30:00Z: still Sunday in Berlin, already Monday in Tokyo.
    const Instant lateEvening = unix(1748813400);
    const DateTemplate germanDay(QStringLiteral("EEEddMMyyyy"), german);
    EXPECT_EQ(germanDay.format(lateEvening, berlin), "So., 01.06.2025");
    EXPECT_EQ(germanDay.format(lateEvening, tokyo), "Mo., 02.06.2025");
    EXPECT_EQ(DateTemplate(QStringLiteral("jjmmss"), german).format(lateEvening, berlin),
              "23:30:00");
    EXPECT_EQ(DateTemplate(QStringLiteral("jjmm"), american).format(lateEvening, tokyo),
              "6:30\u202fAM");
}

TEST(DateTemplates, EveryYearIsGregorianAndInstantsBeyondTheCalendarGiveNothing) {
    const auto& utc = *date::locate_zone("UTC");
    const DateTemplate day(QStringLiteral("ddMMyyyy"), QLocale(QLocale::German, QLocale::Germany));
    // 1 March 1500 in the proleptic Gregorian calendar.
    const Instant early = unix(-14826672000.0);
    EXPECT_EQ(day.format(early, utc), "01.03.1500");
    EXPECT_TRUE(day.format(Instant(std::numeric_limits<double>::infinity()), utc).isEmpty());
}

} // namespace
} // namespace trackloom
