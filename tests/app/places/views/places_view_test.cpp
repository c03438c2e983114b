#include "app/map/heat_overlay.h"
#include "app/map/map_widget.h"
#include "app/map/tile_source.h"
#include "app/places/place_day_list.h"
#include "app/places/place_explorer_view.h"
#include "app/places/place_search_panel.h"
#include "app/places/places_workspace.h"
#include "app/shell/main_window.h"
#include "app/shell/screenshot.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QListWidget>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <random>

namespace trackloom {
namespace {

const PlaceCoordinate home{50.7374, 7.0982};

QImage paintedHeat(const std::vector<HeatCell>& cells, double cellSize,
                   const MapViewport& viewport) {
    HeatOverlay overlay;
    overlay.setCells(cells, cellSize);
    QImage image(viewport.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    overlay.paint(painter, viewport);
    return image;
}

TEST(HeatOverlay, DrawsTheDensestCellRedAndSparseOnesTowardsBlue) {
    const MapViewport viewport({0.5, 0.5}, 10, QSizeF(200, 200));
    const double cellSize = 22 * viewport.unitsPerPixel();
    const QImage single = paintedHeat({{0.5, 0.5, 7}}, cellSize, viewport);
    const QColor centre = single.pixelColor(100, 100);
    EXPECT_GT(centre.red(), 200);
    EXPECT_LT(centre.green(), 120);
    EXPECT_LT(centre.blue(), 120);
    // The blob fades out within 1.25 cells of its centre.
    EXPECT_EQ(single.pixelColor(100 + 30, 100), QColor(Qt::white));
    EXPECT_NE(single.pixelColor(100 + 20, 100), QColor(Qt::white));

    EXPECT_NEAR(heatColor(1, 1000).hueF(), (1 - std::log(2.0) / std::log(1001.0)) * 0.66, 1e-3);
    EXPECT_NEAR(heatColor(1, 1000).hueF(), 0.594, 1e-3);
    EXPECT_NEAR(heatColor(1000, 1000).hueF(), 0, 1e-6);
    EXPECT_NEAR(heatColor(1000, 1000).alphaF(), 0.78, 1e-2);
}

/// No single-line text is cut: every shown label and button gets its width.
void expectNoCutText(QWidget& view) {
    for (auto* label : view.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->wordWrap() && !label->text().isEmpty()) {
            EXPECT_GE(label->width(), label->minimumSizeHint().width())
                << label->text().toStdString();
        }
    }
    for (auto* button : view.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->text().isEmpty()) {
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        }
    }
}

class PlacesScreenTest : public testing::ApplicationTest {
  protected:
    PlacesScreenTest()
        : tiles(QString(), QString(), nullptr),
          store(folder.filePath("s.ini"), QSettings::IniFormat), settings(store) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    /// A made-up history: walks around home and a few other towns for a year.
    static PlaceScope generatedScope() {
        std::mt19937 random(7);
        std::normal_distribution<double> step(0, 0.002);
        auto points = std::make_shared<std::vector<TimelinePoint>>();
        const PlaceCoordinate towns[] = {home, {50.94, 6.96}, {51.23, 6.78}, {50.11, 8.68}};
        for (int day = 0; day < 365; ++day) {
            PlaceCoordinate at = towns[day % 7 == 0 ? 1 + day % 3 : 0];
            TimelinePoint stay;
            stay.id = static_cast<std::int64_t>(points->size());
            stay.kind = TimelinePointKind::visit;
            stay.label = "Besuch bei Freunden " + std::to_string(day % 4);
            stay.latitude = at.latitude;
            stay.longitude = at.longitude;
            stay.time = Instant::fromUnixSeconds(1.7e9 + day * 86400.0 - 3600);
            stay.endTime = stay.time.advanced(1800);
            points->push_back(stay);
            for (int i = 0; i < 60; ++i) {
                TimelinePoint point;
                point.id = static_cast<std::int64_t>(points->size());
                point.latitude = at.latitude;
                point.longitude = at.longitude;
                point.time = Instant::fromUnixSeconds(1.7e9 + day * 86400.0 + i * 600.0);
                points->push_back(point);
                at = {at.latitude + step(random), at.longitude + step(random)};
            }
        }
        return {points, std::nullopt, QStringLiteral("Gesamter Verlauf"),
                date::locate_zone("Europe/Berlin"), std::nullopt};
    }

    void waitUntilIdle(const PlacesWorkspace& workspace) {
        const QDeadlineTimer deadline(20000);
        do {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QThread::msleep(5);
        } while (workspace.isBusy() && !deadline.hasExpired());
        QCoreApplication::processEvents();
        ASSERT_FALSE(workspace.isBusy());
    }

    QTemporaryDir folder;
    TileSource tiles;
    QSettings store;
    AppSettings settings;
    testing::ScriptedDialogs dialogs;
};

struct RecordingDays : DayReceiver {
    std::vector<Instant> shown;
    void showDay(Instant day, const date::time_zone*) override { shown.push_back(day); }
};

TEST_F(PlacesScreenTest, OpensFromAScopeShowsDaysHeatAndFitsAt1024By700) {
    MainWindow window(settings, dialogs, tiles);
    RecordingDays days;
    auto owned = std::make_unique<PlacesWorkspace>(dialogs, &tiles, nullptr, &days);
    PlacesWorkspace* workspace = owned.get();
    window.addWorkspace(std::move(owned));
    auto* sidebar = window.findChild<QListWidget*>(QStringLiteral("workspaceSidebar"));
    ASSERT_TRUE(sidebar);
    EXPECT_FALSE(sidebar->item(0)->flags() & Qt::ItemIsEnabled);
    EXPECT_EQ(sidebar->item(0)->text(), "Wann war ich hier?");
    EXPECT_EQ(window.activeWorkspace(), nullptr);

    workspace->exploreForScreenshot(generatedScope(), home);
    EXPECT_TRUE(sidebar->item(0)->flags() & Qt::ItemIsEnabled);
    EXPECT_EQ(window.activeWorkspace(), workspace);

    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.resize(1024, 700);
    window.show();
    waitUntilIdle(*workspace);
    const QString picture = QString::fromUtf8(qgetenv("TRACKLOOM_PLACES_PICTURE"));
    if (!picture.isEmpty()) {
        ASSERT_FALSE(
            writeScreenshot(window, {1024, 700}, picture, [&] { return workspace->isBusy(); }));
    }
    auto* view = static_cast<PlaceExplorerView*>(workspace->view());
    EXPECT_FALSE(view->heatOverlay().isEmpty());
    EXPECT_GT(workspace->model()->days().size(), 300u);

    auto* radius = view->findChild<QComboBox*>(QStringLiteral("placeRadius"));
    ASSERT_TRUE(radius);
    QStringList radii;
    for (int i = 0; i < radius->count(); ++i) {
        radii << radius->itemText(i);
    }
    EXPECT_EQ(radii, (QStringList{"50 m", "100 m", "250 m", "500 m", "1 km", "5 km", "10 km"}));
    EXPECT_EQ(radius->currentText(), "250 m");

    expectNoCutText(*view);

    auto* list = view->dayList()->list();
    ASSERT_GT(list->count(), 0);
    EXPECT_EQ(list->item(0)->toolTip(), "Den vollständigen Tag mit seinen Strecken öffnen");
    emit list->itemClicked(list->item(0));
    EXPECT_EQ(days.shown, std::vector<Instant>{workspace->model()->days()[0].day});

    // Candidates, the chosen place and map picking together still fit.
    workspace->model()->setQuery(QStringLiteral("besuch"));
    workspace->model()->searchSavedPlaces();
    EXPECT_EQ(workspace->model()->candidates().size(), 16u);
    workspace->model()->setChoosingLocation(true);
    QCoreApplication::processEvents();
    expectNoCutText(*view);
    if (!picture.isEmpty()) {
        ASSERT_FALSE(writeScreenshot(window, {1024, 700},
                                     QString(picture).replace(".png", "-search.png"),
                                     [&] { return workspace->isBusy(); }));
    }
}

} // namespace
} // namespace trackloom
