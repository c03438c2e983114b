#pragma once

// The plain values a GPXTrack is made of. Ids are positions: a point's id is its
// rank in reading order (all trkpt of all trk/trkseg, then all rtept of all rte),
// a segment's id the position of its container among all trkseg then all rte.

#include "core/base/instant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace trackloom {

struct TrackPoint {
    std::int64_t id = 0;
    std::int64_t segment = 0;
    double latitude = 0;
    double longitude = 0;
    /// Absent when the point has no time element or its text is unreadable.
    std::optional<Instant> time;
    /// The point has a time element whose text is not a valid timestamp.
    bool invalidTime = false;
    /// Metres from the `ele` element; absent when it is missing or unreadable.
    std::optional<double> elevation;

    friend bool operator==(const TrackPoint&, const TrackPoint&) = default;
};

/// One non-empty trkseg or rte.
struct GPXSegment {
    std::int64_t id = 0;
    std::string name;
    /// Ids of the segment's points, ascending.
    std::vector<std::int64_t> pointIDs;

    friend bool operator==(const GPXSegment&, const GPXSegment&) = default;
};

/// The interval between two consecutive points of one segment. Exactly one of
/// `speed` and `problem` is present.
struct TrackLeg {
    std::int64_t id = 0;
    std::int64_t segment = 0;
    std::int64_t from = 0;
    std::int64_t to = 0;
    double distance = 0;
    double cumulativeDistance = 0;
    std::optional<double> seconds;
    /// km/h, only for a valid leg.
    std::optional<double> speed;
    std::optional<std::string> problem;

    friend bool operator==(const TrackLeg&, const TrackLeg&) = default;
};

/// A separate two-point route whose ends coincide with the ends of a detailed track.
struct AirRoute {
    /// Index of the rte among all rte children of the root (not a segment id).
    std::int64_t id = 0;
    std::string name;
    double distance = 0;

    friend bool operator==(const AirRoute&, const AirRoute&) = default;
};

struct Coordinate {
    double latitude = 0;
    double longitude = 0;

    friend bool operator==(const Coordinate&, const Coordinate&) = default;
};

} // namespace trackloom
