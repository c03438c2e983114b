#pragma once

// What the editor tells about one point: where and when it was recorded, its
// section and elevation, and the readings of heart rate, cadence, temperature
// and speed that its device stored with it.

#include "core/track/gpx_track.h"

#include <QString>
#include <date/tz.h>
#include <vector>

namespace trackloom {

struct PointDetail {
    QString label;
    QString value;

    friend bool operator==(const PointDetail&, const PointDetail&) = default;
};

/// The details of point `pointID` of `track`, its time in `zone`: always its
/// number, section, time, coordinates and elevation ("–" when missing), then
/// each reading the file has for it. Nothing for an unknown id.
std::vector<PointDetail> pointDetails(const GPXTrack& track, std::int64_t pointID,
                                      const date::time_zone& zone);

} // namespace trackloom
