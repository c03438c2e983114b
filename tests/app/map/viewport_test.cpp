#include "app/map/map_viewport.h"

#include <cmath>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

constexpr Coordinate bonn{50.7374, 7.0982};
constexpr Coordinate sydney{-33.8688, 151.2093};

TEST(WebMercator, ProjectsOntoTheUnitSquare) {
    EXPECT_NEAR(project({0, 0}).x, 0.5, 1e-12);
    EXPECT_NEAR(project({0, 0}).y, 0.5, 1e-12);
    EXPECT_NEAR(project({0, 180}).x, 1.0, 1e-12);
    EXPECT_NEAR(project({0, -180}).x, 0.0, 1e-12);
    // Beyond the limit latitudes land on the edge instead of running off.
    EXPECT_NEAR(project({89, 0}).y, 0.0, 1e-9);
    EXPECT_NEAR(project({-89, 0}).y, 1.0, 1e-9);
    for (const Coordinate& c : {bonn, sydney, Coordinate{64.1466, -21.9426}}) {
        const Coordinate back = unproject(project(c));
        EXPECT_NEAR(back.latitude, c.latitude, 1e-9);
        EXPECT_NEAR(back.longitude, c.longitude, 1e-9);
    }
}

TEST(WebMercator, StretchesDistancesTowardsThePoles) {
    EXPECT_NEAR(mapUnitsPerMetre(0) * mercatorEquator, 1.0, 1e-12);
    EXPECT_NEAR(mapUnitsPerMetre(60) / mapUnitsPerMetre(0), 2.0, 1e-9);
}

MapViewport europe() {
    return MapViewport(project(bonn), 6, QSizeF(800, 600));
}

TEST(MapViewport, ConvertsBetweenScreenAndMap) {
    const MapViewport viewport = europe();
    const QPointF centre = viewport.toScreen(bonn);
    EXPECT_NEAR(centre.x(), 400, 1e-6);
    EXPECT_NEAR(centre.y(), 300, 1e-6);
    const Coordinate corner = viewport.toCoordinate({13, 577});
    const QPointF again = viewport.toScreen(corner);
    EXPECT_NEAR(again.x(), 13, 1e-6);
    EXPECT_NEAR(again.y(), 577, 1e-6);
    EXPECT_NEAR(viewport.visibleRegion().width(), 800 / viewport.worldSize(), 1e-12);
}

TEST(MapViewport, ZoomKeepsThePointUnderTheAnchor) {
    const MapViewport viewport = europe();
    const QPointF anchor(620, 140);
    const Coordinate before = viewport.toCoordinate(anchor);
    for (double delta : {1.0, -2.5, 0.37}) {
        const MapViewport zoomed = viewport.zoomed(delta, anchor);
        EXPECT_NEAR(zoomed.zoom(), 6 + delta, 1e-12);
        const QPointF after = zoomed.toScreen(before);
        EXPECT_NEAR(after.x(), anchor.x(), 1e-6);
        EXPECT_NEAR(after.y(), anchor.y(), 1e-6);
    }
    EXPECT_EQ(viewport.zoomed(40, anchor).zoom(), MapViewport::maximumZoom);
    EXPECT_EQ(viewport.zoomed(-40, anchor).zoom(), MapViewport::minimumZoom);
}

TEST(MapViewport, PanningMovesTheContentAndStaysInsideTheWorld) {
    const MapViewport viewport = europe();
    const MapViewport panned = viewport.panned({30, -20});
    const QPointF moved = panned.toScreen(bonn);
    EXPECT_NEAR(moved.x(), 430, 1e-6);
    EXPECT_NEAR(moved.y(), 280, 1e-6);

    const MapRect pushedAway = viewport.panned({1e9, 1e9}).visibleRegion();
    EXPECT_NEAR(pushedAway.minX, 0, 1e-12);
    EXPECT_NEAR(pushedAway.minY, 0, 1e-12);
    // A world smaller than the view sits in its middle, whatever the pan.
    const MapViewport tiny = MapViewport(project(sydney), 0, QSizeF(800, 600)).panned({300, 0});
    EXPECT_EQ(tiny.centre(), (MapPoint{0.5, 0.5}));
}

TEST(MapViewport, FittingShowsEveryCoordinateWithItsMargin) {
    const std::vector<Coordinate> track{bonn, {50.9375, 6.9603}, {50.3569, 7.5890}};
    const MapViewport fitted = europe().fitting(track, 24);
    double nearestEdge = 1e9;
    for (const Coordinate& c : track) {
        const QPointF p = fitted.toScreen(c);
        nearestEdge = std::min({nearestEdge, p.x(), p.y(), 800 - p.x(), 600 - p.y()});
    }
    EXPECT_GE(nearestEdge, 24 - 1e-6);
    EXPECT_LT(nearestEdge, 320) << "the fit should zoom in, not merely contain";

    EXPECT_EQ(europe().fitting({bonn}, 24, 17).zoom(), 17);
    EXPECT_EQ(europe().fitting({}), europe());
}

TEST(MapViewport, TilesCoverTheViewNearestFirst) {
    EXPECT_EQ(MapViewport({0.5, 0.5}, 0, QSizeF(256, 256)).visibleTiles(),
              (std::vector<TileKey>{{0, 0, 0}}));

    const MapViewport viewport = europe().zoomed(0.3, {100, 100});
    const auto tiles = viewport.visibleTiles();
    ASSERT_FALSE(tiles.empty());
    EXPECT_TRUE(viewport.tileRect(tiles.front()).contains(QPointF(400, 300)));
    // Every pixel of the view lies in some tile.
    for (int x = 0; x <= 800; x += 50) {
        for (int y = 0; y <= 600; y += 50) {
            const QPointF pixel(std::min(x, 799), std::min(y, 599));
            const bool covered = std::ranges::any_of(
                tiles, [&](const TileKey& t) { return viewport.tileRect(t).contains(pixel); });
            EXPECT_TRUE(covered) << x << "," << y;
        }
    }
    EXPECT_TRUE(MapViewport().visibleTiles().empty()) << "a view of no size needs no tiles";
}

} // namespace
} // namespace trackloom
