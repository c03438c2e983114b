#include "core/track/gpx_track.h"

#include "core/base/geodesy.h"
#include "core/base/gpx_error.h"
#include "core/track/track_time.h"

#include <algorithm>

namespace trackloom {

GPXTrack::GPXTrack(Passkey, xml::Document document) : m_xml(std::move(document)) {}

std::optional<Instant> GPXTrack::start() const {
    const auto found = std::find_if(m_points.begin(), m_points.end(),
                                    [](const TrackPoint& point) { return point.time; });
    return found == m_points.end() ? std::nullopt : found->time;
}

std::optional<Instant> GPXTrack::end() const {
    const auto found = std::find_if(m_points.rbegin(), m_points.rend(),
                                    [](const TrackPoint& point) { return point.time; });
    return found == m_points.rend() ? std::nullopt : found->time;
}

std::string GPXTrack::data() const {
    return m_xml.serialize();
}

namespace {

GPXTrack::EditableCopy editable(xml::Document document) {
    const auto root = document.root();
    if (!root) {
        throw GPXError("Die GPX-Datei konnte nicht kopiert werden.");
    }
    document.setEncoding("UTF-8");
    return GPXTrack::EditableCopy{std::move(document), *root};
}

} // namespace

GPXTrack::EditableCopy GPXTrack::editableCopy() const {
    return editable(m_xml.copy());
}

GPXTrack::EditableCopy GPXTrack::editableDocument(TrackPtr track) {
    if (track.use_count() != 1) {
        return track->editableCopy();
    }
    // The track was made non-const; with no other reference, taking its document
    // is invisible to everyone.
    auto document = std::move(const_cast<GPXTrack&>(*track).m_xml);
    track.reset();
    return editable(std::move(document));
}

TrackPtr GPXTrack::removingAirRoutes() const {
    if (m_airRoutes.empty()) {
        return shared_from_this();
    }
    auto copy = editableCopy();
    const auto routes = children(copy.root, "rte", m_namespace);
    for (const auto& airRoute : m_airRoutes) {
        auto route = routes[static_cast<std::size_t>(airRoute.id)];
        route.remove();
    }
    return readEdited(std::move(copy.document), m_name);
}

double GPXTrack::distance(const TrackPoint& from, const TrackPoint& to) {
    return haversineDistance(from.latitude, from.longitude, to.latitude, to.longitude);
}

std::vector<xml::Element> GPXTrack::children(xml::Element element, std::string_view name,
                                             std::string_view namespaceURI) {
    return element.children(name, namespaceURI);
}

std::optional<Instant> GPXTrack::parseTime(std::string_view text) {
    return parseTrackTime(text);
}

std::string GPXTrack::formatTime(Instant instant) {
    return formatTrackTime(instant);
}

} // namespace trackloom
