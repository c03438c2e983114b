#include "core/editing/gpx_elements.h"

#include "core/base/text_trimming.h"

#include <charconv>

namespace trackloom {
namespace {

std::string coordinateText(double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

void removeChildrenWithout(xml::Element parent, std::string_view name, std::string_view inner,
                           std::string_view namespaceURI) {
    for (auto child : parent.children(name, namespaceURI)) {
        if (!child.firstChild(inner, namespaceURI)) {
            child.remove();
        }
    }
}

} // namespace

std::string trimmedName(std::string_view text) {
    return std::string(trimmedWhitespace(text));
}

void setNameChild(xml::Document& document, xml::Element element, std::string_view namespaceURI,
                  std::string_view name) {
    auto existing = element.firstChild("name", namespaceURI);
    if (!existing) {
        existing = document.createElement("name", namespaceURI, element.prefix(), element);
        element.prependChild(*existing);
    }
    existing->setText(name);
}

void setPosition(xml::Element point, Coordinate coordinate) {
    point.setAttribute("lat", coordinateText(coordinate.latitude));
    point.setAttribute("lon", coordinateText(coordinate.longitude));
}

void removeEmptyContainers(xml::Element root, std::string_view namespaceURI) {
    for (const auto& track : root.children("trk", namespaceURI)) {
        removeChildrenWithout(track, "trkseg", "trkpt", namespaceURI);
    }
    removeChildrenWithout(root, "trk", "trkseg", namespaceURI);
    removeChildrenWithout(root, "rte", "rtept", namespaceURI);
}

void insertBeforeRootExtensions(xml::Element root, xml::Element element,
                                std::string_view namespaceURI) {
    if (auto extensions = root.firstChild("extensions", namespaceURI)) {
        extensions->insertBefore(element);
    } else {
        root.appendChild(element);
    }
}

} // namespace trackloom
