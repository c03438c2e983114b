#include "app/shell/data_calendar_picker.h"
#include "core/base/instant.h"
#include "core/places/track_calendar.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

const date::time_zone& berlin() {
    return *date::locate_zone("Europe/Berlin");
}
const date::time_zone& utc() {
    return *date::locate_zone("Etc/UTC");
}

/// The instant of a wall-clock time in `zone`.
Instant at(const date::time_zone& zone, int year, unsigned month, unsigned day, int hour = 12,
           int minute = 0) {
    const auto local = date::local_days(date::year(year) / date::month(month) / date::day(day)) +
                       std::chrono::hours(hour) + std::chrono::minutes(minute);
    const auto utcTime = zone.to_sys(local);
    return Instant::fromUnixSeconds(static_cast<double>(
        std::chrono::duration_cast<std::chrono::seconds>(utcTime.time_since_epoch()).count()));
}

Instant dayStart(int year, unsigned month, unsigned day) {
    return at(berlin(), year, month, day, 0);
}

struct Chosen {
    int calls = 0;
    Instant first;
    Instant last;
    int cancels = 0;
};

DataCalendarPicker picker(bool range, Chosen& chosen, DayCounts counts = {},
                          Instant start = at(berlin(), 2025, 5, 20)) {
    return DataCalendarPicker(
        range, berlin(), std::move(counts), "Legende", "Anzeigen", start, std::nullopt,
        [&chosen](Instant first, Instant last) {
            ++chosen.calls;
            chosen.first = first;
            chosen.last = last;
        },
        [&chosen] { ++chosen.cancels; });
}

TEST(DataCalendarPicker, SingleDayModeSelectsTheClickedDay) {
    Chosen chosen;
    auto calendar = picker(false, chosen);
    calendar.select(at(berlin(), 2025, 5, 7, 23, 59));
    EXPECT_EQ(calendar.first(), dayStart(2025, 5, 7));
    EXPECT_EQ(calendar.last(), dayStart(2025, 5, 7));
    EXPECT_FALSE(calendar.choosingEnd());
    EXPECT_EQ(calendar.heading(), "Datum im Kalender wählen");
    EXPECT_EQ(calendar.instruction(), "Einen Tag anklicken und übernehmen.");

    EXPECT_EQ(chosen.calls, 0) << "only the confirming button hands the choice over";
    calendar.confirm();
    EXPECT_EQ(chosen.calls, 1);
    EXPECT_EQ(chosen.first, dayStart(2025, 5, 7));
    EXPECT_EQ(chosen.last, dayStart(2025, 5, 7));
    calendar.cancel();
    EXPECT_EQ(chosen.cancels, 1);
}

TEST(DataCalendarPicker, RangeModeOrdersARangeClickedBackwards) {
    Chosen chosen;
    auto calendar = picker(true, chosen);
    EXPECT_EQ(calendar.heading(), "Zeitraum im Kalender wählen");
    EXPECT_EQ(calendar.instruction(), "Beginn und Ende anklicken. Für einen einzelnen Tag zweimal "
                                      "denselben Tag wählen.");
    calendar.select(at(berlin(), 2025, 5, 12, 18));
    EXPECT_TRUE(calendar.choosingEnd());
    EXPECT_EQ(calendar.instruction(), "Jetzt den Endtag anklicken – auch im anderen Monat.");
    EXPECT_EQ(calendar.first(), dayStart(2025, 5, 12));
    EXPECT_EQ(calendar.last(), dayStart(2025, 5, 12));

    calendar.select(at(berlin(), 2025, 5, 3, 8));
    EXPECT_FALSE(calendar.choosingEnd());
    EXPECT_EQ(calendar.first(), dayStart(2025, 5, 3));
    EXPECT_EQ(calendar.last(), dayStart(2025, 5, 12));

    // A third click starts a new range.
    calendar.select(at(berlin(), 2025, 5, 20));
    EXPECT_TRUE(calendar.choosingEnd());
    EXPECT_EQ(calendar.first(), dayStart(2025, 5, 20));
    EXPECT_EQ(calendar.last(), dayStart(2025, 5, 20));
}

TEST(DataCalendarPicker, TheSameDayTwiceIsASingleDayRange) {
    Chosen chosen;
    auto calendar = picker(true, chosen);
    calendar.select(at(berlin(), 2025, 5, 9, 1));
    calendar.select(at(berlin(), 2025, 5, 9, 22));
    calendar.confirm();
    EXPECT_EQ(chosen.first, dayStart(2025, 5, 9));
    EXPECT_EQ(chosen.last, dayStart(2025, 5, 9));
}

TEST(DataCalendarPicker, NavigatingKeepsAPendingEnd) {
    Chosen chosen;
    auto calendar = picker(true, chosen);
    calendar.select(at(berlin(), 2025, 5, 28));
    calendar.showNextMonth();
    EXPECT_EQ(calendar.shownMonth(), 6u);
    EXPECT_TRUE(calendar.choosingEnd());
    calendar.select(at(berlin(), 2025, 6, 2));
    EXPECT_EQ(calendar.first(), dayStart(2025, 5, 28));
    EXPECT_EQ(calendar.last(), dayStart(2025, 6, 2));

    for (int month = 0; month < 6; ++month) {
        calendar.showPreviousMonth();
    }
    EXPECT_EQ(calendar.shownYear(), 2024);
    EXPECT_EQ(calendar.shownMonth(), 12u);
    calendar.showMonth(0, 3);
    EXPECT_EQ(calendar.shownYear(), 2024) << "years outside 1…9999 are ignored";
}

TEST(DataCalendarPicker, SummarisesTheDaysWithDataInTheSelection) {
    Chosen chosen;
    const DayCounts counts{{dayStart(2025, 4, 30), 5},
                           {dayStart(2025, 5, 3), 120},
                           {dayStart(2025, 5, 12), 7},
                           {dayStart(2025, 5, 13), 1}};
    auto calendar = picker(true, chosen, counts);
    calendar.select(at(berlin(), 2025, 5, 12));
    EXPECT_EQ(calendar.summary(), "1 Tage mit Daten");
    calendar.select(at(berlin(), 2025, 5, 3));
    EXPECT_EQ(calendar.summary(), "2 Tage mit Daten") << "both ends count";
    calendar.select(at(berlin(), 2025, 5, 20));
    EXPECT_EQ(calendar.summary(), "0 Tage mit Daten");
}

TEST(DataCalendarPicker, MarksFollowTheGivenZone) {
    // 23:30 UTC on 4 May is already 5 May in Berlin.
    const Instant lateEvening = at(utc(), 2025, 5, 4, 23, 30);
    const std::vector<Instant> points{lateEvening, lateEvening.advanced(60)};
    Chosen chosen;
    auto calendar = picker(false, chosen, TrackCalendar::pointCounts(points, berlin()));
    const auto grid = calendar.grid(2);
    ASSERT_EQ(grid.size(), 42u);
    const auto cell = [&](int day) {
        return *std::ranges::find_if(
            grid, [&](const CalendarCell& c) { return c.inShownMonth && c.dayOfMonth == day; });
    };
    EXPECT_EQ(cell(5).count, 2);
    EXPECT_EQ(cell(4).count, 0);
    EXPECT_EQ(grid.front().start, dayStart(2025, 4, 28)) << "Monday first";
    EXPECT_FALSE(grid.front().inShownMonth);
    EXPECT_EQ(calendar.grid(1).front().start, dayStart(2025, 4, 27)) << "Sunday first";
}

TEST(DataCalendarPicker, JumpsToTheMonthsWithData) {
    Chosen chosen;
    const DayCounts counts{{dayStart(2019, 2, 14), 3}, {dayStart(2023, 11, 2), 9}};
    auto calendar = picker(false, chosen, counts);
    const auto marks = calendar.grid(2);
    EXPECT_TRUE(std::ranges::none_of(marks, [](const CalendarCell& c) { return c.count > 0; }));

    calendar.showFirstDataMonth();
    EXPECT_EQ(calendar.shownYear(), 2019);
    EXPECT_EQ(calendar.shownMonth(), 2u);
    calendar.showLastDataMonth();
    EXPECT_EQ(calendar.shownYear(), 2023);
    EXPECT_EQ(calendar.shownMonth(), 11u);

    const auto years = calendar.yearChoices();
    EXPECT_TRUE(std::ranges::is_sorted(years));
    EXPECT_NE(std::ranges::find(years, 2019), years.end()) << "years with data are offered";
    EXPECT_NE(std::ranges::find(years, 2028), years.end());

    auto empty = picker(false, chosen);
    empty.showFirstDataMonth();
    EXPECT_EQ(empty.shownMonth(), 5u) << "without data the jumps stay put";
}

TEST(DataCalendarPicker, WeekdayHeadsFollowTheLocale) {
    const QLocale german(QLocale::German, QLocale::Germany);
    EXPECT_EQ(firstWeekday(german), 2);
    EXPECT_EQ(firstWeekday(QLocale(QLocale::English, QLocale::UnitedStates)), 1);
    const QStringList mondayFirst = weekdaySymbols(german, 2);
    ASSERT_EQ(mondayFirst.size(), 7);
    EXPECT_EQ(mondayFirst.front(), german.standaloneDayName(1, QLocale::ShortFormat));
    EXPECT_EQ(weekdaySymbols(german, 1).front(), german.standaloneDayName(7, QLocale::ShortFormat));
    EXPECT_EQ(weekdaySymbols(german, 1)[1], mondayFirst[0]);
}

} // namespace
} // namespace trackloom
