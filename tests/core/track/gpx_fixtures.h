#pragma once

// Small GPX documents for the track tests.

#include "core/track/gpx_track.h"

#include <string>
#include <string_view>

namespace trackloom::testing {

/// A GPX 1.1 document with `body` inside its root.
inline std::string gpx11(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<gpx version=\"1.1\" creator=\"test\" xmlns=\"http://www.topografix.com/GPX/1/1\">" +
           std::string(body) + "</gpx>";
}

/// A trkpt or rtept element with optional time text.
inline std::string point(std::string_view element, double latitude, double longitude,
                         std::string_view time = {}) {
    std::string text = "<" + std::string(element) + " lat=\"" + std::to_string(latitude) +
                       "\" lon=\"" + std::to_string(longitude) + "\">";
    if (!time.empty()) {
        text += "<time>" + std::string(time) + "</time>";
    }
    return text + "</" + std::string(element) + ">";
}

inline TrackPtr readGPX(std::string_view data, std::string_view filename = "test.gpx") {
    return GPXTrack::read(data, filename);
}

} // namespace trackloom::testing
