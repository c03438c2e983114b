#include "app/map/scale_bar.h"

#include <QLocale>
#include <cmath>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

TEST(ScaleBar, TakesTheLongestRoundLengthThatFits) {
    struct Case {
        double metresPerPixel;
        double expected;
    };
    // 1, 2 and 5 of each decade, also where the room is exactly a round length.
    for (const auto& [perPixel, expected] :
         {Case{10, 1000}, Case{9.99, 500}, Case{7, 500}, Case{4, 200}, Case{1.9, 100},
          Case{0.03, 2}, Case{15000, 1'000'000}, Case{25000, 2'000'000}, Case{60000, 5'000'000}}) {
        const ScaleBar bar = roundScaleBar(perPixel, 100);
        EXPECT_DOUBLE_EQ(bar.metres, expected) << perPixel;
        EXPECT_LE(bar.pixels, 100 + 1e-9);
        EXPECT_GT(bar.pixels, 40) << "a round length is never less than 40 % of the room";
        EXPECT_NEAR(bar.pixels * perPixel, bar.metres, 1e-6);
    }
    EXPECT_EQ(roundScaleBar(0, 100).pixels, 0);
    EXPECT_EQ(roundScaleBar(10, 0).pixels, 0);
}

TEST(ScaleBar, MeasuresAtTheLatitudeOfTheViewCentre) {
    const QSizeF size(800, 600);
    const double equator = metresPerPixel(MapViewport(project({0, 10}), 0, size));
    EXPECT_NEAR(equator, mercatorEquator / 256, 1e-6);
    // The same zoom covers half the ground at 60°, where Mercator doubles lengths.
    const MapViewport north(project({60, 10}), 12, size);
    EXPECT_NEAR(metresPerPixel(north), equator / std::exp2(12) / 2, 1e-6);
    EXPECT_NEAR(metresPerPixel(MapViewport(project({-60, 10}), 12, size)), metresPerPixel(north),
                1e-9);
}

TEST(ScaleBar, NamesMetresBelowAKilometreAndKilometresAbove) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(scaleBarText(500), "500 m");
    EXPECT_EQ(scaleBarText(1), "1 m");
    EXPECT_EQ(scaleBarText(0.5), "0,5 m");
    EXPECT_EQ(scaleBarText(1000), "1 km");
    EXPECT_EQ(scaleBarText(2000), "2 km");
    EXPECT_EQ(scaleBarText(5'000'000), "5000 km");
}

} // namespace
} // namespace trackloom
