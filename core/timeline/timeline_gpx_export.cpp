#include "core/timeline/timeline_gpx_export.h"

#include "core/base/json_writer.h"
#include "core/base/localization.h"
#include "core/track/gpx_track.h"

#include <map>

namespace trackloom {
namespace {

/// Text content escaped for XML. Characters XML 1.0 cannot carry at all (most
/// control characters, U+FFFE, U+FFFF) become U+FFFD, so the file always reads
/// back; a carriage return is kept as a reference, which parsers do not fold.
void appendText(std::string& out, std::string_view text) {
    static constexpr std::string_view replacement = "\xef\xbf\xbd";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\r':
            out += "&#13;";
            break;
        case '\t':
        case '\n':
            out += static_cast<char>(c);
            break;
        default:
            if (c < 0x20) {
                out += replacement;
            } else if (c == 0xef && text.substr(i + 1, 2) == "\xbf\xbe") {
                out += replacement;
                i += 2;
            } else if (c == 0xef && text.substr(i + 1, 2) == "\xbf\xbf") {
                out += replacement;
                i += 2;
            } else {
                out += static_cast<char>(c);
            }
        }
    }
}

void appendElement(std::string& out, std::string_view name, std::string_view text) {
    out.append("<").append(name).append(">");
    appendText(out, text);
    out.append("</").append(name).append(">");
}

/// A point element with its position and time, the way track files hold them.
void appendPointStart(std::string& out, std::string_view name, const TimelinePoint& point) {
    out.append("<").append(name);
    out.append(" lat=\"").append(JsonWriter::formatNumber(point.latitude));
    out.append("\" lon=\"").append(JsonWriter::formatNumber(point.longitude)).append("\">");
    appendElement(out, "time", GPXTrack::formatTime(point.time));
}

void appendWaypoint(std::string& out, const TimelinePoint& visit, DateInterval interval) {
    appendPointStart(out, "wpt", visit);
    appendElement(out, "name", visit.label.empty() ? localized("Aufenthalt") : visit.label);
    if (visit.endTime) {
        auto description = localized("Aufenthalt bis ") + GPXTrack::formatTime(*visit.endTime);
        if (*visit.endTime > interval.end) {
            description += localized("; für den ausgewählten Tag begrenzt.");
        }
        appendElement(out, "desc", description);
    }
    out.append("</wpt>");
}

void appendTrack(std::string& out, const std::vector<TimelinePoint>& points,
                 const std::string& title) {
    const auto& first = points.front();
    out.append("<trk>");
    if (first.kind == TimelinePointKind::activity) {
        appendElement(out, "name", localized("Grobe Fahrt – nur gespeicherte Endpunkte"));
        appendElement(out, "desc",
                      localized("Keine aufgezeichnete Wegstrecke; Google hat nur Start und Ziel "
                                "gespeichert."));
    } else {
        appendElement(out, "name", first.label.empty() ? title : first.label);
    }
    out.append("<trkseg>");
    for (const auto& point : points) {
        appendPointStart(out, "trkpt", point);
        out.append("</trkpt>");
    }
    out.append("</trkseg></trk>");
}

} // namespace

std::string timelineExportTitle(DateInterval interval, const TimelineCalendar& calendar) {
    const auto first = calendar.dateText(interval.start);
    const auto last = calendar.dateText(interval.end.advanced(-0.000001));
    const auto prefix = localized("Google-Zeitachse ");
    return first == last ? prefix + first : prefix + first + " – " + last;
}

TimelineGPX writeTimelineGPX(const std::vector<TimelinePoint>& points, DateInterval interval,
                             const std::string& title) {
    TimelineGPX gpx;
    auto& out = gpx.data;
    out.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gpx xmlns=\"")
        .append(gpx11Namespace)
        .append("\" version=\"1.1\" creator=\"Trackloom\"><metadata>");
    appendElement(out, "name", title);
    out.append("</metadata>");
    std::map<std::int64_t, std::vector<TimelinePoint>> tracks;
    for (const auto& point : points) {
        if (point.kind == TimelinePointKind::visit) {
            appendWaypoint(out, point, interval);
            ++gpx.waypoints;
        } else {
            tracks[point.segment].push_back(point);
            ++gpx.trackPoints;
        }
    }
    for (const auto& [segment, trackPoints] : tracks) {
        appendTrack(out, trackPoints, title);
        ++gpx.tracks;
    }
    out.append("</gpx>\n");
    return gpx;
}

} // namespace trackloom
