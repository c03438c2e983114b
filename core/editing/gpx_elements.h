#pragma once

// Small element edits shared by the structural track operations.

#include "core/base/xml/xml_document.h"
#include "core/track/track_model.h"

#include <string>
#include <string_view>

namespace trackloom {

/// `text` without white space and line breaks (ASCII and Unicode) at either end.
std::string trimmedName(std::string_view text);

/// Sets the text of the element's first `name` child, creating it as the first
/// child (in the element's namespace) when there is none. The element must be
/// linked into the document.
void setNameChild(xml::Document& document, xml::Element element, std::string_view namespaceURI,
                  std::string_view name);

/// Writes `lat` and `lon` as the shortest decimal texts that read back as the
/// same doubles.
void setPosition(xml::Element point, Coordinate coordinate);

/// Removes every trkseg without trkpt, then every trk without trkseg and every
/// rte without rtept, so that no empty section survives an edit.
void removeEmptyContainers(xml::Element root, std::string_view namespaceURI);

/// Inserts `element` under the root before its first `extensions` child (root
/// extensions stay last), or at the end of the root.
void insertBeforeRootExtensions(xml::Element root, xml::Element element,
                                std::string_view namespaceURI);

} // namespace trackloom
