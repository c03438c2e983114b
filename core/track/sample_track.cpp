#include "core/track/sample_track.h"

#include "core/base/json_writer.h"
#include "core/base/localization.h"
#include "core/track/track_time.h"

#include <cmath>
#include <numbers>

namespace trackloom {
namespace {

constexpr int sampleIntervals = 240;
constexpr int hastyPoint = 152;

/// The point at angle `theta` of the loop.
std::string samplePoint(double theta, Instant time) {
    const double latitude = 48.14 + 0.013 * std::sin(theta) + 0.002 * std::sin(3 * theta);
    const double longitude = 11.57 + 0.026 * std::cos(theta) + 0.003 * std::sin(4 * theta);
    return "<trkpt lat=\"" + JsonWriter::formatNumber(latitude) + "\" lon=\"" +
           JsonWriter::formatNumber(longitude) + "\"><ele>520</ele><time>" + formatTrackTime(time) +
           "</time></trkpt>";
}

} // namespace

std::string sampleTrackData() {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                       "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" "
                       "creator=\"Trackloom\"><trk><name>" +
                       xml::escapedText(localized("Beispielrunde")) + "</name><desc>" +
                       xml::escapedText(localized("Synthetischer Track zum Ausprobieren, keine "
                                                  "echte Aufzeichnung.")) +
                       "</desc><trkseg>";
    const auto start = *parseTrackTime("2025-06-01T08:30:00Z");
    double elapsed = 0;
    for (int index = 0; index <= sampleIntervals; ++index) {
        const double theta = 2 * std::numbers::pi * index / sampleIntervals;
        if (index == hastyPoint) {
            elapsed += 1;
        } else if (index > 0) {
            elapsed += 9 + 5 * (std::sin(2 * theta) + 1);
        }
        text += samplePoint(theta, start.advanced(elapsed));
    }
    return text + "</trkseg></trk></gpx>";
}

TrackPtr sampleTrack() {
    return GPXTrack::read(sampleTrackData(), localized("Beispielrunde") + ".gpx");
}

} // namespace trackloom
