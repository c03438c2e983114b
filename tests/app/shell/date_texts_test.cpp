#include "app/shell/date_texts.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

// 2025-06-01T23:30:00Z: already Monday in Berlin and Tokyo, still Sunday in New York.
constexpr Instant lateOnJuneFirst = Instant::fromUnixSeconds(1748736000.0 + 23.5 * 3600);

TEST(DateTemplate, ReadsTheWallClockInTheGivenZone) {
    const QLocale german(QLocale::German, QLocale::Germany);
    const DateTemplate day("EEEddMMyyyy", german);
    EXPECT_EQ(day.format(lateOnJuneFirst, *date::locate_zone("Europe/Berlin")), "Mo., 02.06.2025");
    EXPECT_EQ(day.format(lateOnJuneFirst, *date::locate_zone("America/New_York")),
              "So., 01.06.2025");
    EXPECT_EQ(
        DateTemplate("jjmm", german).format(lateOnJuneFirst, *date::locate_zone("Asia/Tokyo")),
        "08:30");
}

TEST(DateTemplate, FollowsTheLocalesClockConvention) {
    const DateTemplate time("jjmm", QLocale(QLocale::English, QLocale::UnitedStates));
    const QString text = time.format(lateOnJuneFirst, *date::locate_zone("America/New_York"));
    EXPECT_TRUE(text.startsWith("7:30")) << text.toStdString();
    EXPECT_TRUE(text.endsWith("PM")) << text.toStdString();
    EXPECT_TRUE(time.pattern().contains('h')) << time.pattern().toStdString();
}

} // namespace
} // namespace trackloom
