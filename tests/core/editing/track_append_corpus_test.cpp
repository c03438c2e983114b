// Real files appended to one another: whatever their namespaces, prefixes and
// versions, a successful append holds every point of both.

#include "core/editing/track_append.h"
#include "gpx_fixtures.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

std::vector<std::pair<double, double>> coordinates(const GPXTrack& track) {
    std::vector<std::pair<double, double>> result;
    for (const auto& point : track.points()) {
        result.emplace_back(point.latitude, point.longitude);
    }
    std::sort(result.begin(), result.end());
    return result;
}

TEST(AppendingOnCorpus, KeepsEveryPointOfBothFiles) {
    const auto tracks = testing::readableCorpusTracks();
    ASSERT_GT(tracks.size(), 50u);
    int joined = 0;
    // Each file followed by the next and by one three further on, so that
    // neighbours of different makers and versions meet.
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t step : {1u, 3u}) {
            const auto& [firstName, first] = tracks[i];
            const auto& [secondName, second] = tracks[(i + step) % tracks.size()];
            SCOPED_TRACE(firstName + " + " + secondName);
            TrackPtr result;
            try {
                result = appending(*first, *second);
            } catch (const GPXError&) {
                continue;
            }
            ++joined;
            auto expected = coordinates(*first);
            const auto added = coordinates(*second);
            expected.insert(expected.end(), added.begin(), added.end());
            std::sort(expected.begin(), expected.end());
            ASSERT_EQ(coordinates(*result), expected) << result->data().substr(0, 1500);
        }
    }
    EXPECT_GT(joined, 100);
}

} // namespace
} // namespace trackloom
