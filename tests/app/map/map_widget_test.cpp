#include "app/map/heat_overlay.h"
#include "app/map/map_widget.h"
#include "app/map/points_overlay.h"
#include "app/map/polyline_overlay.h"
#include "app/map/tile_source.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_fetcher.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace trackloom {
namespace {

constexpr Coordinate cologne{50.9375, 6.9603};
constexpr Coordinate bonn{50.7374, 7.0982};
constexpr Coordinate koblenz{50.3569, 7.5890};

class MapWidgetTest : public testing::ApplicationTest {
  protected:
    MapWidgetTest() : offline(QString(), QString(), nullptr), map(&offline) {
        map.resize(640, 480);
        map.setViewport(MapViewport(project(bonn), 9, QSizeF(640, 480)));
    }

    QImage rendered() {
        QImage image(map.size(), QImage::Format_ARGB32_Premultiplied);
        map.render(&image);
        return image;
    }

    TileSource offline;
    MapWidget map;
};

TEST_F(MapWidgetTest, PaintsAGraticuleAndItsOverlaysWithoutTiles) {
    auto line = std::make_shared<PolylineOverlay>(QColor(Qt::red), 5);
    line->setPolylines({{{cologne, bonn, koblenz}, {}}});
    map.addOverlay(line);
    const QImage image = rendered();

    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 7) {
        for (int x = 0; x < image.width(); x += 7) {
            colours.insert(image.pixel(x, y));
        }
    }
    EXPECT_GT(colours.size(), 3u) << "background, graticule, line and note";
    const QPointF onLine = (map.viewport().toScreen(cologne) + map.viewport().toScreen(bonn)) / 2;
    EXPECT_EQ(image.pixelColor(onLine.toPoint()), QColor(Qt::red));

    map.removeOverlay(line.get());
    EXPECT_NE(rendered().pixelColor(onLine.toPoint()), QColor(Qt::red));
}

TEST_F(MapWidgetTest, TilesShowAsTheyArriveAndStandInForTheirChildren) {
    std::vector<testing::ScriptedFetcher::Request> requests;
    auto fetcher = std::make_unique<testing::ScriptedFetcher>(&requests);
    auto* replies = fetcher.get();
    replies->immediateReply = testing::pngTile(QColor(200, 30, 30));
    TileSource tiles("https://tiles.example.test/{z}/{x}/{y}.png", QString(), std::move(fetcher));
    MapWidget withTiles(&tiles);
    withTiles.resize(640, 480);
    withTiles.setViewport(map.viewport());
    QImage image(withTiles.size(), QImage::Format_ARGB32_Premultiplied);
    withTiles.render(&image);
    withTiles.render(&image);
    EXPECT_EQ(image.pixelColor(320, 240), QColor(200, 30, 30));

    // One level closer nothing arrives any more: the coarser tiles are enlarged.
    replies->immediateReply.emplace(std::nullopt);
    withTiles.setViewport(map.viewport().zoomed(1, {320, 240}));
    withTiles.render(&image);
    EXPECT_EQ(image.pixelColor(320, 240), QColor(200, 30, 30));
    EXPECT_FALSE(tiles.isAvailable());
}

TEST_F(MapWidgetTest, LegsTakeTheirOwnColours) {
    auto line = std::make_shared<PolylineOverlay>(QColor(Qt::black), 5);
    line->setPolylines({{{cologne, bonn, koblenz}, {QColor(Qt::green), QColor(Qt::blue)}}});
    map.addOverlay(line);
    const QImage image = rendered();
    const auto middle = [&](Coordinate a, Coordinate b) {
        return ((map.viewport().toScreen(a) + map.viewport().toScreen(b)) / 2).toPoint();
    };
    EXPECT_EQ(image.pixelColor(middle(cologne, bonn)), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(middle(bonn, koblenz)), QColor(Qt::blue));
}

TEST_F(MapWidgetTest, AFitRequestedBeforeLayoutWaitsForTheSize) {
    MapWidget fresh(&offline);
    fresh.fitCoordinates({cologne, koblenz});
    fresh.resize(400, 300);
    fresh.show();
    QCoreApplication::processEvents();
    const QPointF a = fresh.viewport().toScreen(cologne);
    const QPointF b = fresh.viewport().toScreen(koblenz);
    EXPECT_TRUE(QRectF(0, 0, 400, 300).contains(a));
    EXPECT_TRUE(QRectF(0, 0, 400, 300).contains(b));
    EXPECT_GT(fresh.viewport().zoom(), 7);
}

TEST_F(MapWidgetTest, TheWheelZoomsAroundThePointer) {
    QSignalSpy changed(&map, &MapWidget::viewportChanged);
    const QPointF pointer(500, 100);
    const Coordinate under = map.viewport().toCoordinate(pointer);
    QWheelEvent wheel(pointer, map.mapToGlobal(pointer), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&map, &wheel);
    EXPECT_NEAR(map.viewport().zoom(), 10, 1e-9);
    const QPointF after = map.viewport().toScreen(under);
    EXPECT_NEAR(after.x(), pointer.x(), 1e-6);
    EXPECT_NEAR(after.y(), pointer.y(), 1e-6);
    EXPECT_EQ(changed.count(), 1);
}

struct Picks {
    std::vector<std::optional<MapHit>> hits;
    std::vector<Coordinate> places;
};

TEST_F(MapWidgetTest, ClicksSelectAndDragsPan) {
    auto points = std::make_shared<PointsOverlay>();
    points->setPoints({cologne, bonn, koblenz});
    map.addOverlay(points);
    Picks picks;
    map.setInteraction(std::make_unique<SelectInteraction>(
        points, [&](std::optional<MapHit> hit, Coordinate) { picks.hits.push_back(hit); }));

    const QPoint onBonn = map.viewport().toScreen(bonn).toPoint() + QPoint(2, 1);
    QTest::mouseClick(&map, Qt::LeftButton, {}, onBonn);
    QTest::mouseClick(&map, Qt::LeftButton, {}, QPoint(5, 5));
    ASSERT_EQ(picks.hits.size(), 2u);
    ASSERT_TRUE(picks.hits[0]);
    EXPECT_EQ(picks.hits[0]->index, 1);
    EXPECT_FALSE(picks.hits[1]);

    const MapPoint centre = map.viewport().centre();
    QTest::mousePress(&map, Qt::LeftButton, {}, QPoint(300, 200));
    QTest::mouseMove(&map, QPoint(340, 230));
    QTest::mouseRelease(&map, Qt::LeftButton, {}, QPoint(340, 230));
    EXPECT_EQ(picks.hits.size(), 2u) << "a drag is no click";
    EXPECT_NE(map.viewport().centre(), centre);
}

TEST_F(MapWidgetTest, RubberBandHandsOverTheSpannedRegion) {
    auto band = std::make_shared<RubberBandOverlay>();
    map.addOverlay(band);
    std::optional<MapRect> spanned;
    map.setInteraction(std::make_unique<RubberBandInteraction>(
        nullptr, band, [](auto, auto) {}, [&](MapRect region) { spanned = region; }));
    const MapPoint centre = map.viewport().centre();
    QTest::mousePress(&map, Qt::LeftButton, {}, QPoint(400, 300));
    QTest::mouseMove(&map, QPoint(300, 250));
    EXPECT_TRUE(band->region()) << "the band shows while dragging";
    QTest::mouseMove(&map, QPoint(100, 100));
    QTest::mouseRelease(&map, Qt::LeftButton, {}, QPoint(100, 100));
    ASSERT_TRUE(spanned);
    EXPECT_FALSE(band->region());
    EXPECT_EQ(map.viewport().centre(), centre) << "the band does not pan";
    const MapRect expected =
        MapRect::spanning(map.viewport().toMap({100, 100}), map.viewport().toMap({400, 300}));
    EXPECT_NEAR(spanned->minX, expected.minX, 1e-12);
    EXPECT_NEAR(spanned->maxY, expected.maxY, 1e-12);
}

TEST_F(MapWidgetTest, DraggingAPointReportsWhereItWasDropped) {
    auto points = std::make_shared<PointsOverlay>();
    points->setPoints({cologne, bonn});
    std::vector<std::pair<std::int64_t, Coordinate>> moving, dropped;
    map.setInteraction(std::make_unique<DragPointInteraction>(
        points, [](auto, auto) {}, [&](auto i, Coordinate c) { moving.emplace_back(i, c); },
        [&](auto i, Coordinate c) { dropped.emplace_back(i, c); }));
    const MapPoint centre = map.viewport().centre();
    const QPoint from = map.viewport().toScreen(cologne).toPoint();
    QTest::mousePress(&map, Qt::LeftButton, {}, from);
    QTest::mouseMove(&map, from + QPoint(20, 0));
    QTest::mouseMove(&map, from + QPoint(40, 10));
    QTest::mouseRelease(&map, Qt::LeftButton, {}, from + QPoint(40, 10));
    EXPECT_EQ(moving.size(), 2u);
    ASSERT_EQ(dropped.size(), 1u);
    EXPECT_EQ(dropped[0].first, 0);
    const QPointF landed = map.viewport().toScreen(dropped[0].second);
    EXPECT_NEAR(landed.x(), from.x() + 40, 1e-6);
    EXPECT_EQ(map.viewport().centre(), centre);

    // Beside the points the same drag pans instead.
    QTest::mousePress(&map, Qt::LeftButton, {}, QPoint(600, 20));
    QTest::mouseMove(&map, QPoint(560, 60));
    QTest::mouseRelease(&map, Qt::LeftButton, {}, QPoint(560, 60));
    EXPECT_EQ(dropped.size(), 1u);
    EXPECT_NE(map.viewport().centre(), centre);
}

TEST_F(MapWidgetTest, InsertingReportsTheLegUnderTheClick) {
    auto line = std::make_shared<PolylineOverlay>();
    line->setPolylines({{{cologne, bonn, koblenz}, {}}});
    std::vector<std::pair<Coordinate, std::optional<MapHit>>> placed;
    map.setInteraction(std::make_unique<InsertPointInteraction>(
        line, [&](Coordinate c, std::optional<MapHit> leg) { placed.emplace_back(c, leg); }));
    const QPointF onSecondLeg =
        (map.viewport().toScreen(bonn) + map.viewport().toScreen(koblenz)) / 2;
    QTest::mouseClick(&map, Qt::LeftButton, {}, onSecondLeg.toPoint());
    QTest::mouseClick(&map, Qt::LeftButton, {}, QPoint(10, 470));
    ASSERT_EQ(placed.size(), 2u);
    ASSERT_TRUE(placed[0].second);
    EXPECT_EQ(placed[0].second->index, 1);
    EXPECT_FALSE(placed[1].second);
    EXPECT_NEAR(map.viewport().toScreen(placed[1].first).y(), 470, 1e-6);
}

TEST(HeatColor, RunsFromBlueForSparseToRedForTheDensestCell) {
    EXPECT_NEAR(heatColor(7, 7).hueF(), 0.0, 1e-3);
    EXPECT_NEAR(heatColor(1, 1000).hsvHueF(), (1 - std::log(2.0) / std::log(1001.0)) * 0.66, 1e-3);
    EXPECT_NEAR(heatColor(1, 1000).alphaF(), 0.78, 1e-2);
}

} // namespace
} // namespace trackloom
