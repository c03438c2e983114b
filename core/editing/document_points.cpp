#include "core/editing/document_points.h"

#include <algorithm>
#include <set>

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

std::vector<xml::Element> airRouteElements(const GPXTrack& track, xml::Element root) {
    const auto routes = root.children("rte", track.namespaceURI());
    std::vector<xml::Element> result;
    for (const auto& airRoute : track.airRoutes()) {
        result.push_back(routes[static_cast<std::size_t>(airRoute.id)]);
    }
    return result;
}

TrackPtr readBack(GPXTrack::EditableCopy copy, const GPXTrack& track,
                  const std::vector<xml::Element>& airRoutes) {
    // Routes before an air route may have gone or been added, so its index is
    // taken from where it stands now.
    std::set<std::int64_t> knownAirRouteIDs;
    std::int64_t index = 0;
    for (const auto& route : copy.root.children("rte", track.namespaceURI())) {
        if (std::find(airRoutes.begin(), airRoutes.end(), route) != airRoutes.end()) {
            knownAirRouteIDs.insert(index);
        }
        ++index;
    }
    const auto bytes = copy.document.serialize();
    // The copy is as large as the result; free it before parsing that.
    { const auto released = std::move(copy.document); }
    return GPXTrack::read(bytes, track.name(), std::move(knownAirRouteIDs));
}

} // namespace trackloom
