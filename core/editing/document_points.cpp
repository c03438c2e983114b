#include "core/editing/document_points.h"

#include <algorithm>
#include <set>

namespace trackloom {
std::vector<xml::Element> pointElements(const GPXTrack& track, xml::Element root) {
    return pointElements(track.namespaceURI(), root);
}

std::vector<xml::Element> pointElements(std::string_view namespaceURI, xml::Element root) {
    std::vector<xml::Element> elements;
    for (const auto& node : GPXTrack::pointNodes(root, namespaceURI)) {
        elements.push_back(node.element);
    }
    return elements;
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
    return GPXTrack::readEdited(std::move(copy.document), track.name(),
                                std::move(knownAirRouteIDs));
}

} // namespace trackloom
