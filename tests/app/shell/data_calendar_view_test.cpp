#include "app/shell/data_calendar_button.h"
#include "app/shell/data_calendar_view.h"
#include "tests/app/support/qt_test_application.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

const date::time_zone& zone() {
    return *date::locate_zone("Europe/Berlin");
}

Instant noon(int day) {
    const auto local =
        date::local_days(date::year(2025) / date::May / date::day(day)) + std::chrono::hours(12);
    return Instant::fromUnixSeconds(static_cast<double>(
        std::chrono::duration_cast<std::chrono::seconds>(zone().to_sys(local).time_since_epoch())
            .count()));
}

class DataCalendarViewTest : public testing::ApplicationTest {};

QToolButton* dayButton(DataCalendarView& view, int dayOfMonth) {
    const auto cells = view.picker().grid(firstWeekday(QLocale::system()));
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].inShownMonth && cells[i].dayOfMonth == dayOfMonth) {
            return view.dayButtons()[i];
        }
    }
    return nullptr;
}

TEST_F(DataCalendarViewTest, ClicksPickARangeThatTheActionButtonHandsOver) {
    DataCalendarButton button(zone());
    button.setRange(true);
    button.setDays(noon(20), noon(20));
    button.setActionTitle("Anzeigen");
    QSignalSpy chosen(&button, &DataCalendarButton::chosen);
    button.present();
    ASSERT_TRUE(button.isPresented());
    DataCalendarView& view = *button.view();
    EXPECT_EQ(view.actionButton()->text(), "Anzeigen");

    dayButton(view, 12)->click();
    dayButton(view, 3)->click();
    EXPECT_EQ(chosen.count(), 0);
    view.actionButton()->click();
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].value<Instant>(), view.picker().first());
    EXPECT_LT(chosen[0][0].value<Instant>(), chosen[0][1].value<Instant>());
    EXPECT_EQ(button.start(), chosen[0][0].value<Instant>());
    QCoreApplication::processEvents();
}

TEST_F(DataCalendarViewTest, MarksDaysWithDataAndCancelsWhenClosed) {
    int cancels = 0;
    const auto dayThree = date::local_days(date::year(2025) / 5 / 3);
    const Instant start = Instant::fromUnixSeconds(static_cast<double>(
        std::chrono::duration_cast<std::chrono::seconds>(zone().to_sys(dayThree).time_since_epoch())
            .count()));
    auto* view = new DataCalendarView(DataCalendarPicker(
        false, zone(), {{start, 1234}}, "Punkte pro Tag", "Übernehmen", noon(20), std::nullopt,
        [](Instant, Instant) {}, [&cancels] { ++cancels; }));
    view->show();
    QToolButton* marked = dayButton(*view, 3);
    ASSERT_TRUE(marked);
    EXPECT_TRUE(marked->text().startsWith("3\n"));
    EXPECT_TRUE(marked->styleSheet().contains("background-color"));
    EXPECT_FALSE(dayButton(*view, 4)->styleSheet().contains("background-color"));
    view->close();
    EXPECT_EQ(cancels, 1);
}

} // namespace
} // namespace trackloom
