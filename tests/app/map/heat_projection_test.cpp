#include "app/map/web_mercator.h"
#include "core/places/heat_cells.h"

#include <gtest/gtest.h>
#include <random>

namespace trackloom {
namespace {

// The heat overlay draws cells binned on the heat cells' projection at the
// map's projected positions: any difference shows as cells beside their points.
TEST(WebMercator, MapAndHeatCellsPutAPointAtTheSamePlace) {
    const auto agree = [](double latitude, double longitude) {
        const auto map = project({latitude, longitude});
        const auto heat = HeatSample::projecting({latitude, longitude});
        EXPECT_EQ(map.x, heat.x) << latitude << ", " << longitude;
        EXPECT_EQ(map.y, heat.y) << latitude << ", " << longitude;
    };
    // The limits and beyond, the antimeridian and a neighbouring copy of the world.
    for (const double latitude : {0.0, 85.05112878, -85.05112878, 85.06, -89.9, 90.0, -90.0}) {
        for (const double longitude : {-180.0, 0.0, 180.0, 179.999, 190.0, -540.0}) {
            agree(latitude, longitude);
        }
    }
    std::mt19937 random(11);
    std::uniform_real_distribution<double> latitude(-90, 90);
    std::uniform_real_distribution<double> longitude(-200, 200);
    for (int i = 0; i < 10000; ++i) {
        agree(latitude(random), longitude(random));
    }
}

} // namespace
} // namespace trackloom
