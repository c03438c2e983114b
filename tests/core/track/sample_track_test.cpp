#include "core/track/sample_track.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <regex>

namespace trackloom {
namespace {

TEST(SampleTrack, IsOneLineOfGpx11ReadLikeAnyFile) {
    const auto data = sampleTrackData();
    EXPECT_EQ(data.find('\n'), std::string::npos);
    EXPECT_TRUE(data.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?><gpx "
                                 "xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" "
                                 "creator=\"Trackloom\"><trk><name>Beispielrunde</name><desc>"
                                 "Synthetischer Track zum Ausprobieren, keine echte "
                                 "Aufzeichnung.</desc><trkseg><trkpt lat=\"48.14\" "
                                 "lon=\"11.596\"><ele>520</ele><time>2025-06-01T08:30:00.000000Z"
                                 "</time></trkpt><trkpt "));
    EXPECT_TRUE(data.ends_with("</trkpt></trkseg></trk></gpx>"));

    const auto track = sampleTrack();
    EXPECT_EQ(track->name(), "Beispielrunde");
    EXPECT_EQ(track->data(), data);
    ASSERT_EQ(track->points().size(), 241u);
    ASSERT_EQ(track->segments().size(), 1u);
    const auto& first = track->points().front();
    const auto& last = track->points().back();
    EXPECT_EQ(last.latitude, first.latitude);
    EXPECT_EQ(last.longitude, first.longitude);
}

TEST(SampleTrack, CoordinatesAreExactAndWrittenInShortestForm) {
    const std::regex pointPattern(R"re(<trkpt lat="([^"]+)" lon="([^"]+)">)re");
    const auto data = sampleTrackData();
    int index = 0;
    for (auto match = std::sregex_iterator(data.begin(), data.end(), pointPattern);
         match != std::sregex_iterator(); ++match, ++index) {
        const double theta = 2 * std::numbers::pi * index / 240;
        EXPECT_EQ(std::stod((*match)[1]),
                  48.14 + 0.013 * std::sin(theta) + 0.002 * std::sin(3 * theta));
        EXPECT_EQ(std::stod((*match)[2]),
                  11.57 + 0.026 * std::cos(theta) + 0.003 * std::sin(4 * theta));
        // At most 17 significant digits, and no padding zeros.
        for (const auto& number : {(*match)[1].str(), (*match)[2].str()}) {
            EXPECT_LE(number.size(), 18u) << number;
            EXPECT_NE(number.back(), '0') << number;
        }
    }
    EXPECT_EQ(index, 241);
}

TEST(SampleTrack, StepsTakeNineToNineteenSecondsExceptOneHastyOne) {
    const auto track = sampleTrack();
    const auto& points = track->points();
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto seconds = points[i].time->secondsSince(*points[i - 1].time);
        if (i == 152) {
            EXPECT_NEAR(seconds, 1, 1e-5);
        } else {
            const double theta = 2 * std::numbers::pi * static_cast<double>(i) / 240;
            EXPECT_NEAR(seconds, 9 + 5 * (std::sin(2 * theta) + 1), 1e-5) << i;
        }
    }
    // The hasty step is what the speed analysis is meant to find.
    const auto& legs = track->analysis().legs;
    const auto fastest =
        std::max_element(legs.begin(), legs.end(), [](const auto& a, const auto& b) {
            return a.speed.value_or(0) < b.speed.value_or(0);
        });
    EXPECT_EQ(fastest->to, 152);
}

} // namespace
} // namespace trackloom
