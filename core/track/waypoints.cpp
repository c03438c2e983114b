#include "core/track/waypoints.h"

#include "core/base/text_trimming.h"
#include "core/track/number_parsing.h"

#include <cmath>

namespace trackloom {
namespace {

std::optional<double> numberIn(const std::optional<std::string>& text) {
    return text ? parseFiniteNumber(trimmedWhitespace(*text)) : std::nullopt;
}

std::optional<std::string> childText(xml::Element parent, std::string_view name,
                                     std::string_view namespaceURI) {
    const auto child = parent.firstChild(name, namespaceURI);
    return child ? std::optional(child->text()) : std::nullopt;
}

} // namespace

std::vector<Waypoint> waypointsOf(const GPXTrack& track) {
    std::vector<Waypoint> waypoints;
    const auto root = track.xml().root();
    if (!root) {
        return waypoints;
    }
    const auto& ns = track.namespaceURI();
    for (auto element = root->firstChild("wpt", ns); element;
         element = element->nextSibling("wpt", ns)) {
        const auto latitude = numberIn(element->attribute("lat"));
        const auto longitude = numberIn(element->attribute("lon"));
        if (!latitude || !longitude || std::abs(*latitude) > 90 || std::abs(*longitude) > 180) {
            continue;
        }
        Waypoint waypoint{
            std::string(trimmedWhitespace(childText(*element, "name", ns).value_or(""))),
            {*latitude, *longitude},
            std::nullopt,
            numberIn(childText(*element, "ele", ns))};
        if (const auto time = childText(*element, "time", ns)) {
            waypoint.time = GPXTrack::parseTime(*time);
        }
        waypoints.push_back(std::move(waypoint));
    }
    return waypoints;
}

} // namespace trackloom
