#include "app/shell/number_texts.h"
#include "app/shell/time_conversion.h"
#include "tests/app/support/qt_test_application.h"

#include <date/tz.h>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

class ShellTexts : public testing::ApplicationTest {
  protected:
    // Numbers follow the locale; the texts under test are German.
    ShellTexts() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    ~ShellTexts() override { QLocale::setDefault(QLocale::c()); }
};

TEST_F(ShellTexts, DurationsRoundToWholeSecondsAndSwitchToHoursAtOne) {
    EXPECT_EQ(durationText(0), "0 min 0 s");
    EXPECT_EQ(durationText(-12), "0 min 0 s");
    EXPECT_EQ(durationText(59.5), "1 min 0 s");
    EXPECT_EQ(durationText(3599.4), "59 min 59 s");
    EXPECT_EQ(durationText(3599.5), "1 h 0 min");
    EXPECT_EQ(durationText(7325), "2 h 2 min");
    EXPECT_EQ(durationText(100 * 3600 + 59), "100 h 0 min");
}

TEST_F(ShellTexts, NumbersUseTheLocaleWithoutGrouping) {
    EXPECT_EQ(decimalText(1234.56, 1), "1234,6");
    EXPECT_EQ(decimalText(-0.04, 1), "0,0");
    EXPECT_EQ(shortDecimalText(20, 2), "20");
    EXPECT_EQ(shortDecimalText(12.5, 2), "12,5");
}

TEST_F(ShellTexts, TimeFieldsShowAndTakeTheWallClockOfTheZone) {
    const auto& berlin = *date::locate_zone("Europe/Berlin");
    const Instant noon = Instant::fromUnixSeconds(1748779200.25);
    const QDateTime shown = wallClockOf(noon, berlin);
    EXPECT_EQ(shown.toString("yyyy-MM-dd HH:mm:ss.zzz"), "2025-06-01 14:00:00.250");
    EXPECT_EQ(instantOfWallClock(shown, berlin), noon);
    // Clocks jumped from 02:00 to 03:00 that night: 02:30 never happened.
    const QDateTime skipped(QDate(2025, 3, 30), QTime(2, 30), Qt::UTC);
    EXPECT_FALSE(instantOfWallClock(skipped, berlin));
}

TEST_F(ShellTexts, DistancesSwitchToKilometresAtOne) {
    EXPECT_EQ(distanceText(0), "0 m");
    EXPECT_EQ(distanceText(999.4), "999 m");
    EXPECT_EQ(distanceText(999.6), "1,0 km");
    EXPECT_EQ(distanceText(12449), "12,4 km");
}

} // namespace
} // namespace trackloom
