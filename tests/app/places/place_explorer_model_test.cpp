#include "core/base/file_io.h"
#include "tests/app/places/places_test_support.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace trackloom::testing {
namespace {

const PlaceCoordinate home{50.7374, 7.0982};

/// Points at home on June 1 and 2, one 2 km north on June 3, and a visit on
/// June 4 in the interval used below.
std::vector<TimelinePoint> history() {
    return {pathPoint(home.latitude, home.longitude, juneTime(1, 9, 15)),
            pathPoint(home.latitude, home.longitude, juneTime(1, 17, 40)),
            pathPoint(home.latitude + 0.0005, home.longitude, juneTime(2, 12)),
            pathPoint(home.latitude + 0.018, home.longitude, juneTime(3, 12)),
            visit("Zuhause", home.latitude, home.longitude, juneTime(4, 22), juneTime(5, 2))};
}

std::vector<Instant> dayStarts(const std::vector<PlaceDay>& days) {
    std::vector<Instant> starts;
    for (const auto& day : days) {
        starts.push_back(day.day);
    }
    return starts;
}

class PlaceExplorerModelTest : public PlacesModelTest {};

TEST_F(PlaceExplorerModelTest, StartsWithTheDefaultsAndSelectsOnRebuild) {
    model = std::make_unique<PlaceExplorerModel>(scopeOf(history()), dialogs, &search);
    EXPECT_TRUE(model->entireHistory());
    EXPECT_TRUE(model->includeVisits());
    EXPECT_FALSE(model->includeActivities());
    EXPECT_TRUE(model->heatEnabled());
    EXPECT_EQ(model->radius(), 250);
    EXPECT_EQ(model->revision(), 0);

    QSignalSpy fits(model.get(), &PlaceExplorerModel::fitRequested);
    model->rebuild();
    EXPECT_TRUE(model->preparing());
    EXPECT_EQ(model->revision(), 1);
    waitForIdle(*model);
    EXPECT_FALSE(model->preparing());
    EXPECT_EQ(model->filtered().size(), 5u);
    EXPECT_EQ(model->samples().size(), 5u);
    EXPECT_EQ(model->revision(), 2);
    EXPECT_EQ(model->fitRequest(), 1);
    EXPECT_EQ(fits.count(), 1);

    model->setIncludeVisits(false);
    waitForIdle(*model);
    EXPECT_EQ(model->filtered().size(), 4u);
}

TEST_F(PlaceExplorerModelTest, FindsTheDaysOfAChosenPlaceNewestFirst) {
    auto& explorer = open(history());
    EXPECT_TRUE(explorer.days().empty());
    explorer.choose(QStringLiteral("Zuhause"), home, false);
    EXPECT_TRUE(explorer.finding());
    waitForIdle(explorer);
    EXPECT_FALSE(explorer.finding());
    ASSERT_EQ(explorer.days().size(), 4u);
    EXPECT_EQ(dayStarts(explorer.days()), (std::vector<Instant>{juneTime(5, 0), juneTime(4, 0),
                                                                juneTime(2, 0), juneTime(1, 0)}));
    EXPECT_EQ(explorer.days()[3].count, 2);

    // Only the interval: the shown range is June 4 to 6.
    model = std::make_unique<PlaceExplorerModel>(
        scopeOf(history(), DateInterval{juneTime(4, 0), juneTime(6, 0)}), dialogs, &search);
    model->setEntireHistory(false);
    model->choose(QStringLiteral("Zuhause"), home, false);
    waitForIdle(*model);
    EXPECT_EQ(dayStarts(model->days()), (std::vector<Instant>{juneTime(5, 0), juneTime(4, 0)}));
}

TEST_F(PlaceExplorerModelTest, ANewRadiusCancelsTheOlderDaySearch) {
    std::vector<TimelinePoint> points;
    // Many points so the first search is still running when the radius changes.
    for (int i = 0; i < 200000; ++i) {
        points.push_back(pathPoint(home.latitude + 0.01, home.longitude, juneTime(1 + i % 20, 12)));
    }
    points.push_back(pathPoint(home.latitude, home.longitude, juneTime(25, 12)));
    auto& explorer = open(std::move(points));

    std::vector<std::size_t> shown;
    QObject::connect(&explorer, &PlaceExplorerModel::daysChanged, [&] {
        if (!explorer.days().empty()) {
            shown.push_back(explorer.days().size());
        }
    });
    explorer.choose(QStringLiteral("Zuhause"), home, false);
    explorer.setRadius(5000);
    waitForIdle(explorer);
    // With 250 m only June 25 would count; only the 5 km answer ever shows.
    EXPECT_EQ(shown, std::vector<std::size_t>{21});
}

TEST_F(PlaceExplorerModelTest, RadiusChangesFindTheDaysOfEveryDistance) {
    // About 1 km, 8 km and 20 km north of home, one day each.
    auto& explorer = open({pathPoint(home.latitude + 0.009, home.longitude, juneTime(1, 12)),
                           pathPoint(home.latitude + 0.072, home.longitude, juneTime(2, 12)),
                           pathPoint(home.latitude + 0.18, home.longitude, juneTime(3, 12))});
    explorer.choose(QStringLiteral("Zuhause"), home, false);
    waitForIdle(explorer);
    EXPECT_TRUE(explorer.days().empty());
    for (const auto& [radius, count] : std::vector<std::pair<double, std::size_t>>{
             {10000, 2}, {50000, 3}, {1000, 0}, {5000, 1}, {100000, 3}}) {
        explorer.setRadius(radius);
        waitForIdle(explorer);
        EXPECT_EQ(explorer.days().size(), count) << radius;
    }
    explorer.choose(QStringLiteral("Norden"), {home.latitude + 0.18, home.longitude}, false);
    waitForIdle(explorer);
    EXPECT_EQ(explorer.days().size(), 3u);
}

TEST_F(PlaceExplorerModelTest, RowTextsFollowTheZoneAndEndAtTwentyFour) {
    auto& explorer = open(history());
    explorer.choose(QStringLiteral("Zuhause"), home, false);
    waitForIdle(explorer);
    const auto& days = explorer.days();
    ASSERT_EQ(days.size(), 4u);
    EXPECT_EQ(explorer.dayText(days[3]), "So., 01.06.2025");
    EXPECT_EQ(explorer.evidence(days[3]), "09:15 – 17:40");
    // The visit from 22:00 to 02:00 reaches midnight on its first day.
    EXPECT_EQ(explorer.evidence(days[1]), "22:00 – 24:00");
    EXPECT_EQ(explorer.evidence(days[0]), "00:00 – 02:00");
    // One piece of evidence: one time.
    EXPECT_EQ(explorer.evidence(days[2]), "12:00");
}

TEST_F(PlaceExplorerModelTest, ExportsTheDaysAsCsvNeverOverTheHistory) {
    auto scope = scopeOf(history());
    QTemporaryDir folder;
    const QString historyPath = folder.filePath("Timeline.json");
    writeFileAtomically(historyPath.toStdString(), "[]");
    scope.sourcePath = historyPath;
    model = std::make_unique<PlaceExplorerModel>(std::move(scope), dialogs, &search);
    model->rebuild();
    model->choose(QStringLiteral("Zuhause"), home, false);
    waitForIdle(*model);

    const QString target = folder.filePath("tage.csv");
    dialogs.filesToSave = {std::nullopt, target, historyPath};
    EXPECT_FALSE(model->exportDays());
    EXPECT_TRUE(model->exportDays());
    EXPECT_EQ(readFileBytes(target.toStdString()), "Tag,Erster Nachweis,Letzter Nachweis,Punkte\r\n"
                                                   "2025-06-05,00:00:00,02:00:00,1\r\n"
                                                   "2025-06-04,22:00:00,24:00:00,1\r\n"
                                                   "2025-06-02,12:00:00,12:00:00,1\r\n"
                                                   "2025-06-01,09:15:00,17:40:00,2\r\n");
    EXPECT_FALSE(model->exportDays());
    EXPECT_EQ(readFileBytes(historyPath.toStdString()), "[]");
    ASSERT_EQ(dialogs.messages.size(), 1u);
}

TEST_F(PlaceExplorerModelTest, HeatCellsFollowTheNewestViewOnly) {
    std::vector<TimelinePoint> points;
    for (int i = 0; i < 50000; ++i) {
        points.push_back(pathPoint(home.latitude, home.longitude, juneTime(1, 12)));
        points.push_back(pathPoint(-33.9, 151.2, juneTime(2, 12)));
    }
    auto& explorer = open(std::move(points));
    QSignalSpy heat(&explorer, &PlaceExplorerModel::heatChanged);
    const auto bonn = HeatSample::projecting(home);
    const auto sydney = HeatSample::projecting({-33.9, 151.2});
    explorer.setView({bonn.x - 0.001, bonn.y - 0.001, 0.002, 0.002}, 800);
    explorer.setView({sydney.x - 0.001, sydney.y - 0.001, 0.002, 0.002}, 800);
    waitForIdle(explorer);
    ASSERT_EQ(heat.count(), 1);
    ASSERT_EQ(explorer.heat().cells.size(), 1u);
    EXPECT_NEAR(explorer.heat().cells[0].x, sydney.x, 1e-9);
    EXPECT_EQ(explorer.heat().cells[0].count, 50000);
    EXPECT_NEAR(explorer.heat().cellSize, 0.002 / 800 * 22, 1e-15);

    // Switched off, the heat map is gone at once.
    explorer.setHeatEnabled(false);
    EXPECT_TRUE(explorer.heat().cells.empty());
    EXPECT_EQ(heat.count(), 2);
    waitForIdle(explorer);
    EXPECT_EQ(heat.count(), 2);
}

TEST(CellGrid, IsTwentyTwoPointsWideAndEnlargedByTwoCells) {
    const auto grid = cellGrid({0.25, 0.5, 0.01, 0.005}, 1000, 22);
    ASSERT_TRUE(grid);
    EXPECT_DOUBLE_EQ(grid->cellSize, 0.00022);
    EXPECT_DOUBLE_EQ(grid->region.minX, 0.25 - 0.00044);
    EXPECT_DOUBLE_EQ(grid->region.height, 0.005 + 0.00088);
    EXPECT_EQ(cellGrid({0, 0, 1e-12, 1e-12}, 1000, 22)->cellSize, 1e-8);
    EXPECT_FALSE(cellGrid({0, 0, 1, 1}, 0, 22));
}

} // namespace
} // namespace trackloom::testing
