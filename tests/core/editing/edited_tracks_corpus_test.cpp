// A track derived from an edited document must be the very track its bytes read
// back to: the editor and the command line no longer parse after an edit, so any
// difference between the tree and its serialisation would show up here first.

#include "core/editing/point_edits.h"
#include "core/editing/time_operations.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::readableCorpusTracks;

void expectReadsBackTheSame(const GPXTrack& derived, const std::string& name) {
    std::set<std::int64_t> airRouteIDs;
    for (const auto& route : derived.airRoutes()) {
        airRouteIDs.insert(route.id);
    }
    const auto bytes = derived.data();
    const auto parsed = GPXTrack::read(bytes, name, airRouteIDs);
    EXPECT_EQ(derived.name(), parsed->name());
    EXPECT_EQ(derived.namespaceURI(), parsed->namespaceURI());
    EXPECT_EQ(derived.points(), parsed->points());
    EXPECT_EQ(derived.segments(), parsed->segments());
    EXPECT_EQ(derived.airRoutes(), parsed->airRoutes());
    EXPECT_EQ(derived.auxiliaryInvalidTimes(), parsed->auxiliaryInvalidTimes());
    EXPECT_EQ(derived.analysis().legs, parsed->analysis().legs);
    EXPECT_EQ(parsed->data(), bytes);
}

/// The middle point of the first section that can lose one: an interior point
/// leaves the section, an end point would leave it empty.
std::optional<std::int64_t> middlePoint(const GPXTrack& track) {
    for (const auto& segment : track.segments()) {
        if (segment.pointIDs.size() >= 3 &&
            !track.airRoutePointIDs().contains(segment.pointIDs.front())) {
            return segment.pointIDs[segment.pointIDs.size() / 2];
        }
    }
    return std::nullopt;
}

TEST(EditedTracksOnCorpus, EveryEditDerivesWhatItsBytesReadBackTo) {
    const auto start = testing::at("2024-05-01T10:00:00Z");
    int edited = 0;
    for (const auto& [name, track] : readableCorpusTracks()) {
        SCOPED_TRACE(name);
        expectReadsBackTheSame(*generatedTrack(track, start, 12.5), name);
        if (const auto id = middlePoint(*track)) {
            ++edited;
            expectReadsBackTheSame(*removingPoints(*track, {*id}), name);
            expectReadsBackTheSame(*movingPoint(*track, *id, {47.5, 8.25}), name);
            expectReadsBackTheSame(*splitting(*track, *id, "Hin", "Rück & zurück"), name);
            expectReadsBackTheSame(*trimmingBefore(*track, *id), name);
        }
        if (track->start() && track->analysis().invalidTimes == 0 &&
            track->auxiliaryInvalidTimes() == 0) {
            expectReadsBackTheSame(*shiftedTrack(track, start), name);
        }
    }
    EXPECT_GT(edited, 50);
}

} // namespace
} // namespace trackloom
