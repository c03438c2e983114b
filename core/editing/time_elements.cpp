#include "core/editing/time_elements.h"

#include "core/track/gpx_track.h"

namespace trackloom {
namespace {

void appendTimes(std::vector<xml::Element>& out, xml::Element parent,
                 std::string_view namespaceURI) {
    for (const auto& time : parent.children("time", namespaceURI)) {
        out.push_back(time);
    }
}

} // namespace

xml::Element ensuredTimeElement(xml::Document& document, xml::Element point,
                                std::string_view namespaceURI) {
    if (const auto existing = point.firstChild("time", namespaceURI)) {
        return *existing;
    }
    auto time = document.createElement("time", namespaceURI, point.prefix(), point);
    std::optional<xml::Element> lastElevation;
    for (auto ele = point.firstChild("ele", namespaceURI); ele;
         ele = ele->nextSibling("ele", namespaceURI)) {
        lastElevation = ele;
    }
    if (lastElevation) {
        lastElevation->insertAfter(time);
    } else {
        point.prependChild(time);
    }
    return time;
}

void writeTime(xml::Element element, Instant instant) {
    element.setText(GPXTrack::formatTime(instant));
}

std::vector<xml::Element> documentTimes(xml::Element root, std::string_view namespaceURI) {
    std::vector<xml::Element> times;
    appendTimes(times, root, namespaceURI);
    for (const auto& metadata : root.children("metadata", namespaceURI)) {
        appendTimes(times, metadata, namespaceURI);
    }
    return times;
}

std::vector<xml::Element> shiftableTimes(xml::Element root, std::string_view namespaceURI) {
    auto times = documentTimes(root, namespaceURI);
    for (const auto& waypoint : root.children("wpt", namespaceURI)) {
        appendTimes(times, waypoint, namespaceURI);
    }
    for (const auto& route : root.children("rte", namespaceURI)) {
        for (const auto& point : route.children("rtept", namespaceURI)) {
            appendTimes(times, point, namespaceURI);
        }
    }
    for (const auto& track : root.children("trk", namespaceURI)) {
        for (const auto& segment : track.children("trkseg", namespaceURI)) {
            for (const auto& point : segment.children("trkpt", namespaceURI)) {
                appendTimes(times, point, namespaceURI);
            }
        }
    }
    return times;
}

void setDocumentTimes(xml::Element root, std::string_view namespaceURI, Instant instant) {
    for (const auto& time : documentTimes(root, namespaceURI)) {
        writeTime(time, instant);
    }
}

} // namespace trackloom
