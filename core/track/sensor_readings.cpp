#include "core/track/sensor_readings.h"

#include "core/base/text_trimming.h"
#include "core/track/number_parsing.h"

#include <algorithm>
#include <array>

namespace trackloom {
namespace {

// The element of point `pointID`: its container is found by position among
// all trkseg, then all rte, and the point by its offset in the container.
std::optional<xml::Element> pointElement(const GPXTrack& track, std::int64_t pointID) {
    if (pointID < 0 || pointID >= static_cast<std::int64_t>(track.points().size())) {
        return std::nullopt;
    }
    const auto& point = track.points()[static_cast<std::size_t>(pointID)];
    const auto segment = std::ranges::find(track.segments(), point.segment, &GPXSegment::id);
    const auto root = track.xml().root();
    if (segment == track.segments().end() || !root) {
        return std::nullopt;
    }
    const auto& ns = track.namespaceURI();
    std::vector<std::pair<xml::Element, const char*>> containers;
    for (const auto trk : root->children("trk", ns)) {
        for (const auto trkseg : trk.children("trkseg", ns)) {
            containers.emplace_back(trkseg, "trkpt");
        }
    }
    for (const auto rte : root->children("rte", ns)) {
        containers.emplace_back(rte, "rtept");
    }
    if (point.segment >= static_cast<std::int64_t>(containers.size())) {
        return std::nullopt;
    }
    const auto& [container, pointName] = containers[static_cast<std::size_t>(point.segment)];
    auto offset = pointID - segment->pointIDs.front();
    auto element = container.firstChild(pointName, ns);
    while (element && offset-- > 0) {
        element = element->nextSibling(pointName, ns);
    }
    return element;
}

std::optional<double> numberIn(xml::Element element) {
    return parseFiniteNumber(trimmedWhitespace(element.text()));
}

enum Quantity { heartRate, cadence, temperature, waterTemperature, speed, quantities };

struct Vocabulary {
    std::string_view name;
    Quantity quantity;
};

constexpr std::array garminNames{Vocabulary{"hr", heartRate}, Vocabulary{"cad", cadence},
                                 Vocabulary{"atemp", temperature},
                                 Vocabulary{"wtemp", waterTemperature}, Vocabulary{"speed", speed}};
constexpr std::array cluetrustNames{Vocabulary{"hr", heartRate}, Vocabulary{"cadence", cadence},
                                    Vocabulary{"temp", temperature}};
constexpr std::array plainNames{Vocabulary{"hr", heartRate},     Vocabulary{"heartrate", heartRate},
                                Vocabulary{"cad", cadence},      Vocabulary{"cadence", cadence},
                                Vocabulary{"temp", temperature}, Vocabulary{"speed", speed}};

// Values by quantity, each source filling only what a stronger one left open.
using Values = std::array<std::optional<double>, quantities>;

template <std::size_t N>
void collect(xml::Element parent, std::string_view namespaceURI,
             const std::array<Vocabulary, N>& names, Values& values) {
    for (const auto child : parent.childElements()) {
        if (child.namespaceURI() != namespaceURI) {
            continue;
        }
        for (const auto& [name, quantity] : names) {
            if (child.localName() == name && !values[quantity]) {
                values[quantity] = numberIn(child);
            }
        }
    }
}

} // namespace

SensorReadings sensorReadings(const GPXTrack& track, std::int64_t pointID) {
    const auto point = pointElement(track, pointID);
    if (!point) {
        return {};
    }
    const auto& ns = track.namespaceURI();
    Values values;
    for (const auto extensions : point->children("extensions", ns)) {
        for (const auto garmin : {garminTrackPointV1Namespace, garminTrackPointV2Namespace}) {
            for (const auto block : extensions.children("TrackPointExtension", garmin)) {
                collect(block, garmin, garminNames, values);
            }
        }
    }
    for (const auto extensions : point->children("extensions", ns)) {
        collect(extensions, cluetrustNamespace, cluetrustNames, values);
    }
    // Unprefixed elements take the document's default namespace, which is
    // usually GPX's own; files without a namespace leave them in none.
    for (const auto extensions : point->children("extensions", ns)) {
        collect(extensions, ns, plainNames, values);
        if (!ns.empty()) {
            collect(extensions, "", plainNames, values);
        }
    }
    collect(*point, ns, std::array{Vocabulary{"speed", speed}}, values);
    const auto kmh = values[speed] ? std::optional(*values[speed] * 3.6) : std::nullopt;
    return {values[heartRate], values[cadence],
            values[temperature] ? values[temperature] : values[waterTemperature], kmh};
}

} // namespace trackloom
