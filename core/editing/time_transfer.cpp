#include "core/editing/time_transfer.h"

#include "core/base/geodesy.h"
#include "core/base/gpx_error.h"
#include "core/editing/document_points.h"
#include "core/editing/time_elements.h"

namespace trackloom {
namespace {

GPXTrack::EditableCopy copyForTransfer(const GPXTrack& source) {
    try {
        return source.editableCopy();
    } catch (const GPXError&) {
        throw GPXError("Die Zeiten konnten nicht übernommen werden.");
    }
}

} // namespace

TrackPtr materializingTimes(const GPXTrack& source, const GPXTrack& from, bool removesAirRoutes) {
    auto copy = copyForTransfer(source);
    const auto& namespaceURI = source.namespaceURI();
    const auto& times = from.points();
    const auto elements = pointElements(source, copy.root);
    std::size_t next = 0;
    for (std::size_t id = 0; id < elements.size(); ++id) {
        if (removesAirRoutes && source.airRoutePointIDs().contains(static_cast<std::int64_t>(id))) {
            continue;
        }
        if (next >= times.size() || !times[next].time) {
            throw GPXError("Die erzeugten Zeiten konnten nicht vollständig übernommen werden.");
        }
        writeTime(ensuredTimeElement(copy.document, elements[id], namespaceURI), *times[next].time);
        ++next;
    }
    if (next != times.size()) {
        throw GPXError("Die Punktanzahl stimmt nicht mit den erzeugten Zeiten überein.");
    }
    if (const auto start = from.start()) {
        setDocumentTimes(copy.root, namespaceURI, *start);
    }
    const auto airRoutes = airRouteElements(source, copy.root);
    return readBack(std::move(copy), source, airRoutes);
}

std::optional<std::vector<Instant>> interpolatedTimes(const TrackPoint& before,
                                                      const TrackPoint& after,
                                                      const std::vector<Coordinate>& coordinates) {
    if (!before.time || !after.time || *after.time < *before.time) {
        return std::nullopt;
    }
    const double span = after.time->secondsSince(*before.time);
    std::vector<double> cumulative;
    cumulative.reserve(coordinates.size());
    double travelled = 0;
    Coordinate previous{before.latitude, before.longitude};
    for (const auto& coordinate : coordinates) {
        travelled += haversineDistance(previous.latitude, previous.longitude, coordinate.latitude,
                                       coordinate.longitude);
        cumulative.push_back(travelled);
        previous = coordinate;
    }
    const double length = travelled + haversineDistance(previous.latitude, previous.longitude,
                                                        after.latitude, after.longitude);
    std::vector<Instant> times;
    times.reserve(coordinates.size());
    const double count = static_cast<double>(coordinates.size());
    for (std::size_t k = 0; k < cumulative.size(); ++k) {
        const double fraction =
            length > 0 ? cumulative[k] / length : static_cast<double>(k + 1) / (count + 1);
        times.push_back(before.time->advanced(span * fraction));
    }
    return times;
}

} // namespace trackloom
