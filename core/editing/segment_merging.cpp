#include "core/editing/segment_merging.h"

#include "core/base/gpx_error.h"
#include "core/editing/document_points.h"
#include "core/editing/gpx_elements.h"

#include <algorithm>

namespace trackloom {
namespace {

xml::Element newElement(GPXTrack::EditableCopy& copy, std::string_view name,
                        std::string_view namespaceURI, xml::Element scope) {
    return copy.document.createElement(name, namespaceURI, copy.root.prefix(), scope);
}

/// Moves the element into `segment` as a track point, keeping its own prefix.
void moveAsTrackPoint(xml::Element point, xml::Element segment) {
    point.detach();
    point.setLocalName("trkpt");
    segment.appendChild(point);
}

std::string mergedName(const GPXTrack& track, xml::Element root) {
    if (const auto first = root.firstChild("trk", track.namespaceURI())) {
        if (const auto name = first->firstChild("name", track.namespaceURI())) {
            return name->text();
        }
    }
    return track.name();
}

void removeAll(xml::Element parent, std::string_view name, std::string_view namespaceURI) {
    for (auto child : parent.children(name, namespaceURI)) {
        child.remove();
    }
}

} // namespace

std::size_t sectionsBesideAirRoutes(const GPXTrack& track) {
    return track.segments().size() - track.airRoutes().size();
}

TrackPtr mergingSegments(const GPXTrack& track) {
    if (sectionsBesideAirRoutes(track) < 2) {
        throw GPXError("Der Track besteht nur aus einem Abschnitt.");
    }
    auto copy = track.editableCopy();
    const auto& namespaceURI = track.namespaceURI();
    const auto airRoutes = airRouteElements(track, copy.root);
    const auto points = pointElements(track, copy.root);

    auto merged = newElement(copy, "trk", namespaceURI, copy.root);
    insertBeforeRootExtensions(copy.root, merged, namespaceURI);
    auto name = newElement(copy, "name", namespaceURI, merged);
    merged.appendChild(name);
    name.setText(mergedName(track, copy.root));
    auto segment = newElement(copy, "trkseg", namespaceURI, merged);
    merged.appendChild(segment);
    for (std::size_t id = 0; id < points.size(); ++id) {
        if (!track.airRoutePointIDs().contains(static_cast<std::int64_t>(id))) {
            moveAsTrackPoint(points[id], segment);
        }
    }
    // The points may have used declarations of the containers about to go.
    merged.reconcileNamespaces();
    for (auto old : copy.root.children("trk", namespaceURI)) {
        if (!(old == merged)) {
            old.remove();
        }
    }
    for (auto route : copy.root.children("rte", namespaceURI)) {
        if (std::find(airRoutes.begin(), airRoutes.end(), route) == airRoutes.end()) {
            route.remove();
        }
    }
    return readBack(std::move(copy), track, airRoutes);
}

TrackPtr singleTrack(const GPXTrack& track, const std::string& name) {
    const auto merged = sectionsBesideAirRoutes(track) >= 2 ? mergingSegments(track) : nullptr;
    const auto& base = merged ? *merged : track;
    const auto& namespaceURI = base.namespaceURI();
    auto copy = base.editableCopy();
    auto chosen = copy.root.firstChild("trk", namespaceURI);
    if (!chosen) {
        chosen = copy.root.firstChild("rte", namespaceURI);
    }
    removeAll(copy.root, "wpt", namespaceURI);
    for (auto route : copy.root.children("rte", namespaceURI)) {
        if (!(route == *chosen)) {
            route.remove();
        }
    }
    for (const auto& metadata : copy.root.children("metadata", namespaceURI)) {
        removeAll(metadata, "bounds", namespaceURI);
    }
    if (chosen->localName() == "rte") {
        chosen->setLocalName("trk");
        chosen->adoptNamespace(copy.root);
        auto segment = newElement(copy, "trkseg", namespaceURI, *chosen);
        for (auto point : chosen->children("rtept", namespaceURI)) {
            moveAsTrackPoint(point, segment);
        }
        chosen->appendChild(segment);
    }
    if (!name.empty()) {
        setNameChild(copy.document, *chosen, namespaceURI, name);
    }
    return readBack(std::move(copy), base, {});
}

} // namespace trackloom
