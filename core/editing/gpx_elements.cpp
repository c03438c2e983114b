#include "core/editing/gpx_elements.h"

#include <charconv>

namespace trackloom {
namespace {

bool isBlank(char32_t c) {
    return c == ' ' || (c >= 0x09 && c <= 0x0d) || c == 0x85 || c == 0xa0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200a) || c == 0x2028 || c == 0x2029 || c == 0x202f ||
           c == 0x205f || c == 0x3000;
}

/// The code point starting at `position` and its length in bytes; a byte that does
/// not start a valid sequence counts as a non-blank character of its own.
std::pair<char32_t, std::size_t> codePointAt(std::string_view text, std::size_t position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc0 || lead >= 0xf8 || position + length > text.size()) {
        return {0xfffd, 1};
    }
    char32_t value = lead & (0x7f >> length);
    for (std::size_t i = 1; i < length; ++i) {
        value = (value << 6) | (static_cast<unsigned char>(text[position + i]) & 0x3f);
    }
    return {value, length};
}

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
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t position = 0; position < text.size();) {
        const auto [character, length] = codePointAt(text, position);
        position += length;
        if (!isBlank(character)) {
            if (end == 0) {
                begin = position - length;
            }
            end = position;
        }
    }
    return std::string(text.substr(begin, end - begin));
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
