#include "core/editing/document_points.h"

namespace trackloom {
namespace {

void appendChildren(std::vector<xml::Element>& out, xml::Element parent, std::string_view name,
                    std::string_view namespaceURI) {
    for (auto child = parent.firstChild(name, namespaceURI); child;
         child = child->nextSibling(name, namespaceURI)) {
        out.push_back(*child);
    }
}

} // namespace

std::vector<xml::Element> pointElements(xml::Element root, std::string_view namespaceURI) {
    std::vector<xml::Element> result;
    for (const auto& track : root.children("trk", namespaceURI)) {
        for (const auto& segment : track.children("trkseg", namespaceURI)) {
            appendChildren(result, segment, "trkpt", namespaceURI);
        }
    }
    for (const auto& route : root.children("rte", namespaceURI)) {
        appendChildren(result, route, "rtept", namespaceURI);
    }
    return result;
}

std::set<std::int64_t> airRouteIDs(const GPXTrack& track) {
    std::set<std::int64_t> ids;
    for (const auto& route : track.airRoutes()) {
        ids.insert(route.id);
    }
    return ids;
}

TrackPtr readBack(const GPXTrack::EditableCopy& copy, const GPXTrack& track,
                  std::set<std::int64_t> knownAirRouteIDs) {
    return GPXTrack::read(copy.document.serialize(), track.name(), std::move(knownAirRouteIDs));
}

} // namespace trackloom
