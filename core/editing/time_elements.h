#pragma once

// The time elements the time operations read and write, found with the same
// namespace-exact lookups as the reader.

#include "core/base/instant.h"
#include "core/base/xml/xml_document.h"

#include <string_view>
#include <vector>

namespace trackloom {

/// The point's first `time` child; when it has none, a new one in the point's
/// own namespace and prefix, placed right after its last `ele` (or first), so the
/// schema order holds.
xml::Element ensuredTimeElement(xml::Document& document, xml::Element point,
                                std::string_view namespaceURI);

/// Replaces the element's text by the instant in the track time format.
void writeTime(xml::Element element, Instant instant);

/// The `time` children of the root and of every metadata element.
std::vector<xml::Element> documentTimes(xml::Element root, std::string_view namespaceURI);

/// Every time element that moves with the track: the root's own (GPX 1.0 keeps the
/// file time there), the metadata's, and those of waypoints, route and track points.
std::vector<xml::Element> shiftableTimes(xml::Element root, std::string_view namespaceURI);

/// Sets every existing `time` of the root and of its metadata to `instant`;
/// creates none.
void setDocumentTimes(xml::Element root, std::string_view namespaceURI, Instant instant);

} // namespace trackloom
