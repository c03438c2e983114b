// Construction of a GPXTrack from bytes: validation in a fixed order (the first
// failing rule decides the message), then the derived views and the analysis.

#include "core/base/gpx_error.h"
#include "core/base/text_trimming.h"
#include "core/track/air_route_detection.h"
#include "core/track/gpx_track.h"
#include "core/track/number_parsing.h"
#include "core/track/track_time.h"

#include <filesystem>

namespace trackloom {

/// Fills a GPXTrack's derived fields from its document; see `GPXTrack::read`.
class GPXTrackReader {
  public:
    GPXTrackReader(GPXTrack& track, xml::Element root) : m_track(track), m_root(root) {}

    /// Every derived view and the analysis, in the order the refusals rank.
    void run(std::string_view filename,
             const std::optional<std::set<std::int64_t>>& knownAirRouteIDs) {
        m_track.m_namespace = std::string(m_root.namespaceURI());
        readPoints();
        nameSegments();
        detectAirRoutes(knownAirRouteIDs);
        nameTrack(filename);
        countAuxiliaryInvalidTimes();
        m_track.m_analysis = TrackAnalysis::analyze(m_track.m_points);
    }

  private:
    void readPoints();
    void nameSegments();
    void detectAirRoutes(const std::optional<std::set<std::int64_t>>& knownAirRouteIDs);
    void nameTrack(std::string_view filename);
    void countAuxiliaryInvalidTimes();

    struct Container {
        xml::Element element;
        bool isRoute;
    };
    std::optional<xml::Element> first(xml::Element parent, std::string_view name) const {
        return parent.firstChild(name, m_track.m_namespace);
    }
    std::optional<xml::Element> next(xml::Element sibling) const {
        return sibling.nextSibling(sibling.localName(), m_track.m_namespace);
    }
    void readPoint(xml::Element element, std::int64_t segment);
    std::vector<Container> containers() const;

    GPXTrack& m_track;
    xml::Element m_root;
    std::vector<std::int64_t> m_pointsPerContainer;
    std::string m_textStorage;
};

namespace {

xml::Document parseDocument(std::string_view data) {
    try {
        return xml::Document::parse(data);
    } catch (const xml::ParseError& error) {
        if (error.kind() == xml::ParseError::Kind::documentType) {
            throw GPXError("GPX-Dateien mit einer DTD werden nicht unterstützt.");
        }
        throw GPXError::withDetail("Die Datei enthält kein lesbares GPX-XML: ", error.what());
    }
}

bool isSupportedNamespace(std::string_view uri) {
    return uri.empty() || uri == gpx11Namespace || uri == gpx10Namespace;
}

std::optional<double> coordinate(const std::optional<std::string_view>& text, double limit) {
    if (!text) {
        return std::nullopt;
    }
    const auto value = parseFiniteNumber(*text);
    if (!value || *value < -limit || *value > limit) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::vector<GPXTrackReader::Container> GPXTrackReader::containers() const {
    std::vector<Container> result;
    for (auto track = first(m_root, "trk"); track; track = next(*track)) {
        for (auto segment = first(*track, "trkseg"); segment; segment = next(*segment)) {
            result.push_back({*segment, false});
        }
    }
    for (auto route = first(m_root, "rte"); route; route = next(*route)) {
        result.push_back({*route, true});
    }
    return result;
}

void GPXTrackReader::readPoint(xml::Element element, std::int64_t segment) {
    auto& points = m_track.m_points;
    const auto id = static_cast<std::int64_t>(points.size());
    const auto latitude = coordinate(element.attribute("lat", m_textStorage), 90);
    const auto longitude = coordinate(element.attribute("lon", m_textStorage), 180);
    if (!latitude || !longitude) {
        throw GPXError::withNumber("Punkt ", id + 1, " hat ungültige Koordinaten.");
    }
    TrackPoint point{id, segment, *latitude, *longitude, std::nullopt, false, std::nullopt};
    if (const auto time = first(element, "time")) {
        if (next(*time)) {
            throw GPXError::withNumber("Punkt ", id + 1, " enthält mehrere Zeitstempel.");
        }
        point.time = parseTrackTime(time->text(m_textStorage));
        point.invalidTime = !point.time;
    }
    if (const auto elevation = first(element, "ele")) {
        point.elevation = parseFiniteNumber(trimmedWhitespace(elevation->text(m_textStorage)));
    }
    points.push_back(point);
}

void GPXTrackReader::readPoints() {
    const auto all = containers();
    for (std::size_t index = 0; index < all.size(); ++index) {
        const auto& container = all[index];
        const auto pointName = container.isRoute ? "rtept" : "trkpt";
        const auto before = m_track.m_points.size();
        for (auto point = first(container.element, pointName); point; point = next(*point)) {
            readPoint(*point, static_cast<std::int64_t>(index));
        }
        m_pointsPerContainer.push_back(static_cast<std::int64_t>(m_track.m_points.size() - before));
    }
    if (m_track.m_points.empty()) {
        throw GPXError("Die GPX-Datei enthält keine Track- oder Routenpunkte. Einzelne "
                       "Wegpunkte reichen nicht aus.");
    }
}

void GPXTrackReader::nameSegments() {
    std::vector<std::string> names;
    for (auto track = first(m_root, "trk"); track; track = next(*track)) {
        const auto nameElement = first(*track, "name");
        const auto base = nameElement ? nameElement->text() : std::string("Track");
        const auto segments = track->children("trkseg", m_track.m_namespace);
        for (std::size_t position = 1; position <= segments.size(); ++position) {
            names.push_back(segments.size() > 1 ? base + " · Abschnitt " + std::to_string(position)
                                                : base);
        }
    }
    for (auto route = first(m_root, "rte"); route; route = next(*route)) {
        const auto nameElement = first(*route, "name");
        names.push_back(nameElement ? nameElement->text() : std::string("Route"));
    }
    std::int64_t firstPoint = 0;
    for (std::size_t index = 0; index < m_pointsPerContainer.size(); ++index) {
        const auto count = m_pointsPerContainer[index];
        if (count > 0) {
            GPXSegment segment{static_cast<std::int64_t>(index), names[index], {}};
            segment.pointIDs.resize(static_cast<std::size_t>(count));
            for (std::int64_t i = 0; i < count; ++i) {
                segment.pointIDs[static_cast<std::size_t>(i)] = firstPoint + i;
            }
            m_track.m_segments.push_back(std::move(segment));
        }
        firstPoint += count;
    }
}

void GPXTrackReader::detectAirRoutes(
    const std::optional<std::set<std::int64_t>>& knownAirRouteIDs) {
    std::vector<TrackEnds> detailedTracks;
    std::size_t container = 0;
    std::int64_t firstPoint = 0;
    for (auto track = first(m_root, "trk"); track; track = next(*track)) {
        std::int64_t count = 0;
        for (auto segment = first(*track, "trkseg"); segment; segment = next(*segment)) {
            count += m_pointsPerContainer[container++];
        }
        if (count >= 3) {
            detailedTracks.push_back(
                {m_track.m_points[static_cast<std::size_t>(firstPoint)],
                 m_track.m_points[static_cast<std::size_t>(firstPoint + count - 1)]});
        }
        firstPoint += count;
    }
    std::int64_t routeIndex = 0;
    for (auto route = first(m_root, "rte"); route; route = next(*route), ++routeIndex) {
        const auto count = m_pointsPerContainer[container++];
        const auto p = firstPoint;
        firstPoint += count;
        if (count != 2) {
            continue;
        }
        const auto& a = m_track.m_points[static_cast<std::size_t>(p)];
        const auto& b = m_track.m_points[static_cast<std::size_t>(p + 1)];
        const bool isAirRoute = knownAirRouteIDs ? knownAirRouteIDs->contains(routeIndex)
                                                 : matchesDetailedTrack(a, b, detailedTracks);
        if (!isAirRoute) {
            continue;
        }
        m_track.m_airRoutePointIDs.insert(p);
        m_track.m_airRoutePointIDs.insert(p + 1);
        const auto nameElement = first(*route, "name");
        m_track.m_airRoutes.push_back(
            {routeIndex,
             nameElement ? nameElement->text() : "Route " + std::to_string(routeIndex + 1),
             GPXTrack::distance(a, b)});
    }
}

void GPXTrackReader::nameTrack(std::string_view filename) {
    const auto nameOf = [&](std::optional<xml::Element> parent) -> std::optional<std::string> {
        if (!parent) {
            return std::nullopt;
        }
        const auto name = first(*parent, "name");
        return name ? std::optional(name->text()) : std::nullopt;
    };
    auto name = nameOf(first(m_root, "trk"));
    if (!name) {
        name = nameOf(first(m_root, "rte"));
    }
    if (!name) {
        name = nameOf(first(m_root, "metadata"));
    }
    m_track.m_name = name ? *name : std::filesystem::path(filename).stem().string();
}

void GPXTrackReader::countAuxiliaryInvalidTimes() {
    std::int64_t failing = 0;
    const auto countFailing = [&](xml::Element parent) {
        for (auto time = first(parent, "time"); time; time = next(*time)) {
            if (!parseTrackTime(time->text())) {
                ++failing;
            }
        }
    };
    countFailing(m_root);
    if (const auto metadata = first(m_root, "metadata")) {
        countFailing(*metadata);
    }
    for (auto waypoint = first(m_root, "wpt"); waypoint; waypoint = next(*waypoint)) {
        countFailing(*waypoint);
    }
    // Track and route points hold at most one time each, and each unreadable one
    // is already an invalid point time: they cancel out of the count.
    m_track.m_auxiliaryInvalidTimes = failing;
}

namespace {

void refuseOversized(std::size_t size) {
    if (size > maximumGPXFileSize) {
        throw GPXError("Die Datei ist größer als 50 MB. Bitte teile den Track vor dem Import auf.");
    }
}

TrackPtr derived(std::shared_ptr<GPXTrack> track, std::string_view filename,
                 const std::optional<std::set<std::int64_t>>& knownAirRouteIDs) {
    const auto root = track->xml().root();
    if (!root || root->localName() != "gpx") {
        throw GPXError("Die Datei ist keine GPX-Datei. Das gpx-Wurzelelement fehlt.");
    }
    if (!isSupportedNamespace(root->namespaceURI())) {
        throw GPXError("Der GPX-Namensraum dieser Datei wird nicht unterstützt.");
    }
    GPXTrackReader reader(*track, *root);
    reader.run(filename, knownAirRouteIDs);
    return track;
}

} // namespace

TrackPtr GPXTrack::read(std::string_view data, std::string_view filename,
                        std::optional<std::set<std::int64_t>> knownAirRouteIDs) {
    refuseOversized(data.size());
    return derived(std::make_shared<GPXTrack>(Passkey{}, parseDocument(data)), filename,
                   knownAirRouteIDs);
}

TrackPtr GPXTrack::readEdited(xml::Document document, std::string_view filename,
                              std::optional<std::set<std::int64_t>> knownAirRouteIDs) {
    // Text the parser would refuse: parsing the bytes gives exactly its refusal.
    if (document.holdsUnwritableText()) {
        return read(document.serialize(), filename, std::move(knownAirRouteIDs));
    }
    // The bytes are measured, not kept: writing them costs a fraction of a parse.
    refuseOversized(document.serialize().size());
    return derived(std::make_shared<GPXTrack>(Passkey{}, std::move(document)), filename,
                   knownAirRouteIDs);
}

} // namespace trackloom
