#include "core/editing/point_edits.h"

#include "core/base/gpx_error.h"
#include "core/editing/document_points.h"
#include "core/editing/gpx_elements.h"
#include "core/editing/time_elements.h"
#include "core/editing/time_transfer.h"

#include <algorithm>
#include <cmath>

namespace trackloom {
namespace {

bool isValidID(const GPXTrack& track, std::int64_t id) {
    return id >= 0 && id < static_cast<std::int64_t>(track.points().size());
}

bool isEditable(const GPXTrack& track, std::int64_t id) {
    return isValidID(track, id) && !track.airRoutePointIDs().contains(id);
}

bool isValidCoordinate(Coordinate coordinate) {
    return std::isfinite(coordinate.latitude) && std::abs(coordinate.latitude) <= 90 &&
           std::isfinite(coordinate.longitude) && std::abs(coordinate.longitude) <= 180;
}

/// Removes the point children of `container` before (or after) `boundary`.
void removePointsBeside(xml::Element container, xml::Element boundary, bool before,
                        std::string_view namespaceURI) {
    const auto name = boundary.localName();
    bool passed = false;
    for (auto point : container.children(name, namespaceURI)) {
        if (point == boundary) {
            passed = true;
        } else if (passed != before) {
            point.remove();
        }
    }
}

/// Keeps the part of `trk` (or `rte`) from the chosen point on (or up to it).
void keepPart(xml::Element container, std::size_t segmentIndex, std::size_t pointIndex,
              bool fromPoint, bool isRoute, std::string_view namespaceURI) {
    auto section = container;
    if (!isRoute) {
        auto segments = container.children("trkseg", namespaceURI);
        section = segments[segmentIndex];
        for (std::size_t index = 0; index < segments.size(); ++index) {
            if (fromPoint ? index < segmentIndex : index > segmentIndex) {
                segments[index].remove();
            }
        }
    }
    const auto points = section.children(isRoute ? "rtept" : "trkpt", namespaceURI);
    removePointsBeside(section, points[pointIndex], fromPoint, namespaceURI);
}

template <typename T> std::size_t positionOf(const std::vector<T>& list, const T& item) {
    return static_cast<std::size_t>(std::find(list.begin(), list.end(), item) - list.begin());
}

} // namespace

bool canSplit(const GPXTrack& track, std::int64_t id) {
    for (const auto& segment : track.segments()) {
        const auto& ids = segment.pointIDs;
        const auto found = std::find(ids.begin(), ids.end(), id);
        if (found != ids.end()) {
            const auto position = found - ids.begin();
            return position > 0 && position < static_cast<std::ptrdiff_t>(ids.size()) - 1;
        }
    }
    return false;
}

TrackPtr splitting(const GPXTrack& track, std::int64_t id, const std::string& firstName,
                   const std::string& secondName) {
    if (!canSplit(track, id)) {
        throw GPXError(
            "Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.");
    }
    const auto first = trimmedName(firstName);
    const auto second = trimmedName(secondName);
    if (first.empty() || second.empty()) {
        throw GPXError("Bitte gib beiden Abschnitten einen Namen.");
    }
    auto copy = track.editableCopy();
    const auto& namespaceURI = track.namespaceURI();
    const auto elements = pointElements(track, copy.root);
    if (id >= static_cast<std::int64_t>(elements.size())) {
        throw GPXError("Der ausgewählte Punkt wurde nicht gefunden.");
    }
    const auto chosen = elements[static_cast<std::size_t>(id)];
    const auto section = *chosen.parent();
    const bool isRoute = section.localName() == "rte";
    auto container = isRoute ? section : *section.parent();
    const auto segmentIndex =
        isRoute ? 0 : positionOf(container.children("trkseg", namespaceURI), section);
    const auto pointIndex = positionOf(section.children(chosen.localName(), namespaceURI), chosen);

    const auto airRoutes = airRouteElements(track, copy.root);
    auto secondPart = container.copyInto(copy.document);
    keepPart(container, segmentIndex, pointIndex, false, isRoute, namespaceURI);
    keepPart(secondPart, segmentIndex, pointIndex, true, isRoute, namespaceURI);
    container.insertAfter(secondPart);
    // Linked first, so that a new name element finds its namespace in scope.
    setNameChild(copy.document, container, namespaceURI, first);
    setNameChild(copy.document, secondPart, namespaceURI, second);
    return readBack(std::move(copy), track, airRoutes);
}

TrackPtr trimmingBefore(const GPXTrack& track, std::int64_t id) {
    if (!isEditable(track, id)) {
        throw GPXError("Dieser Punkt lässt sich nicht als Anfang setzen.");
    }
    std::set<std::int64_t> earlier;
    for (std::int64_t other = 0; other < id; ++other) {
        if (!track.airRoutePointIDs().contains(other)) {
            earlier.insert(other);
        }
    }
    if (earlier.empty()) {
        throw GPXError("Vor diesem Punkt liegt nichts mehr.");
    }
    return removingPoints(track, earlier);
}

TrackPtr trimmingAfter(const GPXTrack& track, std::int64_t id) {
    if (!isEditable(track, id)) {
        throw GPXError("Dieser Punkt lässt sich nicht als Ende setzen.");
    }
    std::set<std::int64_t> later;
    const auto count = static_cast<std::int64_t>(track.points().size());
    for (std::int64_t other = id + 1; other < count; ++other) {
        if (!track.airRoutePointIDs().contains(other)) {
            later.insert(other);
        }
    }
    if (later.empty()) {
        throw GPXError("Nach diesem Punkt liegt nichts mehr.");
    }
    return removingPoints(track, later);
}

TrackPtr removingPoints(const GPXTrack& track, const std::set<std::int64_t>& ids) {
    if (ids.empty()) {
        throw GPXError("Es ist kein Punkt ausgewählt.");
    }
    for (const auto id : ids) {
        if (track.airRoutePointIDs().contains(id)) {
            throw GPXError("Punkte einer Luftlinien-Route lassen sich nicht bearbeiten.");
        }
    }
    std::size_t remaining = 0;
    for (const auto& point : track.points()) {
        remaining += ids.contains(point.id) ? 0 : 1;
    }
    if (remaining <= 1) {
        throw GPXError("Mindestens zwei Punkte müssen erhalten bleiben.");
    }
    auto copy = track.editableCopy();
    const auto airRoutes = airRouteElements(track, copy.root);
    auto elements = pointElements(track, copy.root);
    for (const auto id : ids) {
        if (isValidID(track, id)) {
            elements[static_cast<std::size_t>(id)].remove();
        }
    }
    removeEmptyContainers(copy.root, track.namespaceURI());
    return readBack(std::move(copy), track, airRoutes);
}

TrackPtr movingPoint(const GPXTrack& track, std::int64_t id, Coordinate to) {
    if (!isEditable(track, id)) {
        throw GPXError("Dieser Punkt lässt sich nicht verschieben.");
    }
    if (!isValidCoordinate(to)) {
        throw GPXError("Die neue Position ist ungültig.");
    }
    auto copy = track.editableCopy();
    const auto airRoutes = airRouteElements(track, copy.root);
    auto element = pointElements(track, copy.root)[static_cast<std::size_t>(id)];
    setPosition(element, to);
    return readBack(std::move(copy), track, airRoutes);
}

bool canInsert(const GPXTrack& track, std::int64_t afterID) {
    if (!isEditable(track, afterID) || !isEditable(track, afterID + 1)) {
        return false;
    }
    const auto& points = track.points();
    return points[static_cast<std::size_t>(afterID)].segment ==
           points[static_cast<std::size_t>(afterID + 1)].segment;
}

TrackPtr inserting(const GPXTrack& track, const std::vector<Coordinate>& coordinates,
                   std::int64_t afterID) {
    if (!canInsert(track, afterID)) {
        throw GPXError("Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. Am "
                       "Ende eines Abschnitts lässt sich nichts einfügen; verbinde vorher die "
                       "Abschnitte.");
    }
    if (coordinates.empty()) {
        throw GPXError("Es wurden keine Punkte gesetzt.");
    }
    if (!std::all_of(coordinates.begin(), coordinates.end(), isValidCoordinate)) {
        throw GPXError("Mindestens ein gesetzter Punkt ist ungültig.");
    }
    const auto& points = track.points();
    const auto times =
        interpolatedTimes(points[static_cast<std::size_t>(afterID)],
                          points[static_cast<std::size_t>(afterID + 1)], coordinates);
    auto copy = track.editableCopy();
    const auto& namespaceURI = track.namespaceURI();
    const auto airRoutes = airRouteElements(track, copy.root);
    const auto elements = pointElements(track, copy.root);
    if (afterID >= static_cast<std::int64_t>(elements.size()) ||
        !elements[static_cast<std::size_t>(afterID)].parent()) {
        throw GPXError("Der Punkt konnte nicht gefunden werden.");
    }
    auto previous = elements[static_cast<std::size_t>(afterID)];
    for (std::size_t index = 0; index < coordinates.size(); ++index) {
        auto point = copy.document.createElement(previous.localName(), namespaceURI,
                                                 previous.prefix(), previous);
        setPosition(point, coordinates[index]);
        previous.insertAfter(point);
        if (times) {
            auto time = copy.document.createElement("time", namespaceURI, point.prefix(), point);
            point.appendChild(time);
            writeTime(time, (*times)[index]);
        }
        previous = point;
    }
    return readBack(std::move(copy), track, airRoutes);
}

std::optional<std::int64_t> sourcePointID(const GPXTrack& track, std::int64_t displayed,
                                          bool removesAirRoutes) {
    if (displayed < 0) {
        return std::nullopt;
    }
    std::int64_t skipped = 0;
    for (const auto& point : track.points()) {
        if (removesAirRoutes && track.airRoutePointIDs().contains(point.id)) {
            continue;
        }
        if (skipped == displayed) {
            return point.id;
        }
        ++skipped;
    }
    return std::nullopt;
}

} // namespace trackloom
