#pragma once

// Small GPX documents for the editing tests, written inline so that each test
// shows the structure it depends on.

#include "core/base/gpx_error.h"
#include "core/track/gpx_track.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace trackloom::testing {

inline TrackPtr trackFrom(const std::string& xml) {
    return GPXTrack::read(xml, "fixture.gpx");
}

/// A GPX 1.1 document with `body` as the root's content.
inline std::string gpx11(const std::string& body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"test\">" +
           body + "</gpx>\n";
}

inline std::string point(const std::string& kind, double latitude, double longitude,
                         const std::string& content = "") {
    return "<" + kind + " lat=\"" + std::to_string(latitude) + "\" lon=\"" +
           std::to_string(longitude) + "\">" + content + "</" + kind + ">";
}

inline std::string timed(const std::string& text) {
    return "<time>" + text + "</time>";
}

inline Instant at(const std::string& text) {
    const auto time = GPXTrack::parseTime(text);
    EXPECT_TRUE(time) << text;
    return time.value_or(Instant());
}

/// `count` points of element `kind` at `latitude`, one every 0.001° of longitude.
inline std::string pointsAt(const std::string& kind, double latitude, int count) {
    std::string points;
    for (int i = 0; i < count; ++i) {
        points += point(kind, latitude, i * 0.001);
    }
    return points;
}

/// A trkseg of `count` points along `latitude` (see `pointsAt`).
inline std::string segment(double latitude, int count) {
    return "<trkseg>" + pointsAt("trkpt", latitude, count) + "</trkseg>";
}

/// The message of the `GPXError` that `action` throws, or "" when it throws none.
template <typename Action> std::string refusal(Action action) {
    try {
        action();
    } catch (const GPXError& error) {
        return error.message();
    }
    return "";
}

/// The document with every element whose local name is "time" taken out, so that
/// two documents can be compared for everything except their times.
std::string withoutTimeElements(const std::string& xml);

/// Every file of the GPX corpus that reads, with its file name, in name order.
std::vector<std::pair<std::string, TrackPtr>> readableCorpusTracks();

} // namespace trackloom::testing
