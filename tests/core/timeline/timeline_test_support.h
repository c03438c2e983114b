#pragma once

// Small builders shared by the timeline tests.

#include "core/base/gpx_error.h"
#include "core/base/time_zones.h"
#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_document.h"
#include "core/track/track_time.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace trackloom::testing {

/// The instant of a track time text such as "2024-05-01T10:00:00Z".
inline Instant at(const std::string& text) {
    const auto instant = parseTrackTime(text);
    if (!instant) {
        throw std::invalid_argument("not a track time: " + text);
    }
    return *instant;
}

inline const date::time_zone* zone(const std::string& name) {
    const auto* found = findTimeZone(name);
    if (found == nullptr) {
        throw std::invalid_argument("unknown zone: " + name);
    }
    return found;
}

inline TimelinePoint pathPoint(std::int64_t id, std::int64_t segment, const std::string& time,
                               double latitude = 50, double longitude = 7) {
    return {id, segment,     TimelinePointKind::path, latitude, longitude, at(time), std::nullopt,
            "", std::nullopt};
}

inline TimelinePoint visitPoint(std::int64_t id, std::int64_t segment, const std::string& start,
                                const std::string& end, const std::string& label = "Home") {
    return {id, segment, TimelinePointKind::visit, 50, 7, at(start), at(end), label, std::nullopt};
}

/// The message of the `GPXError` that `action` throws; fails the test otherwise.
template <typename Action> std::string refusal(Action&& action) {
    try {
        action();
    } catch (const GPXError& error) {
        return error.message();
    }
    ADD_FAILURE() << "no GPXError thrown";
    return {};
}

inline const std::string unsupportedExport =
    "Dieses JSON ist kein unterstützter Google-Zeitachsenexport. Erwartet wird eine Liste mit "
    "startTime, visit, activity oder timelinePath.";
inline const std::string noPoints = "Keine auswertbaren Standortpunkte gefunden.";

} // namespace trackloom::testing
