// Writing a section on its own: a copy of the document loses the containers
// and whatever describes the whole file, then is read back like any file.

#include "core/base/gpx_error.h"
#include "core/track/gpx_track.h"

#include <algorithm>

namespace trackloom {
namespace {

void removeAll(const std::vector<xml::Element>& elements) {
    for (auto element : elements) {
        element.remove();
    }
}

} // namespace

std::vector<GPXTrack::PointNode> GPXTrack::pointNodes(xml::Element root,
                                                      std::string_view namespaceURI) {
    std::vector<PointNode> nodes;
    for (const auto track : children(root, "trk", namespaceURI)) {
        for (const auto segment : children(track, "trkseg", namespaceURI)) {
            for (const auto point : children(segment, "trkpt", namespaceURI)) {
                nodes.push_back({point, std::nullopt});
            }
        }
    }
    std::int64_t route = 0;
    for (const auto container : children(root, "rte", namespaceURI)) {
        for (const auto point : children(container, "rtept", namespaceURI)) {
            nodes.push_back({point, route});
        }
        ++route;
    }
    return nodes;
}

TrackPtr GPXTrack::exportingSegment(std::int64_t segmentID) const {
    const bool known =
        std::any_of(m_segments.begin(), m_segments.end(),
                    [&](const GPXSegment& segment) { return segment.id == segmentID; });
    if (!known) {
        throw GPXError("Kein Abschnitt ausgewählt.");
    }
    auto copy = editableCopy();
    std::int64_t index = 0;
    for (auto track : children(copy.root, "trk", m_namespace)) {
        for (auto segment : children(track, "trkseg", m_namespace)) {
            if (index++ != segmentID) {
                segment.remove();
            }
        }
        if (!track.firstChild("trkseg", m_namespace)) {
            track.remove();
        }
    }
    std::int64_t route = index;
    for (auto container : children(copy.root, "rte", m_namespace)) {
        if (route++ != segmentID) {
            container.remove();
        }
    }
    removeAll(children(copy.root, "wpt", m_namespace));
    // A bounding box of the whole file would misdescribe the section.
    removeAll(children(copy.root, "bounds", m_namespace));
    for (const auto metadata : children(copy.root, "metadata", m_namespace)) {
        removeAll(children(metadata, "bounds", m_namespace));
    }
    return readEdited(std::move(copy.document), m_name);
}

} // namespace trackloom
