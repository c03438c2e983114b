#pragma once

// What recording devices store beside a point's position, in the extension
// vocabularies that most GPX writers use: Garmin's TrackPointExtension (v1 and
// v2), the Cluetrust GPXDATA elements, and plain unprefixed elements such as
// `hr` or `heartrate` directly in `extensions`. A GPX 1.0 point's own `speed`
// element counts as well. Where a file states a value twice, the Garmin one
// wins, then Cluetrust, then the plain one.

#include "core/track/gpx_track.h"

#include <optional>

namespace trackloom {

inline constexpr std::string_view garminTrackPointV1Namespace =
    "http://www.garmin.com/xmlschemas/TrackPointExtension/v1";
inline constexpr std::string_view garminTrackPointV2Namespace =
    "http://www.garmin.com/xmlschemas/TrackPointExtension/v2";
inline constexpr std::string_view cluetrustNamespace = "http://www.cluetrust.com/XML/GPXDATA/1/0";

struct SensorReadings {
    /// Beats per minute.
    std::optional<double> heartRate;
    /// Revolutions (or steps) per minute.
    std::optional<double> cadence;
    /// Degrees Celsius; the air temperature, or the water temperature without one.
    std::optional<double> temperature;
    /// km/h (files store metres per second).
    std::optional<double> speed;

    bool empty() const { return !heartRate && !cadence && !temperature && !speed; }
    friend bool operator==(const SensorReadings&, const SensorReadings&) = default;
};

/// The readings stored with the point whose id is `pointID`; all absent for
/// an unknown id or unreadable values.
SensorReadings sensorReadings(const GPXTrack& track, std::int64_t pointID);

} // namespace trackloom
