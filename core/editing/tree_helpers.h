#pragma once

// Tree operations the editing code needs and the XML layer does not offer yet.
// They stay minimal and belong in core/base/xml once that layer grows them.

#include "core/base/xml/xml_document.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace trackloom {

/// Links `child` as the very first child node of `parent`, before any text,
/// comment or element already there.
void insertAsFirstChild(xml::Element parent, xml::Element child);

/// A deep copy of `element` (of this or another document) for the document of
/// `parent`, its namespaces resolved in the scope of `parent` so that no
/// declaration already in scope there is repeated. Not yet linked; nothing when
/// the library cannot make the copy.
std::optional<xml::Element> clonedElement(xml::Element element, xml::Element parent);

/// Declares, at `element`, every namespace its subtree uses but no longer has in
/// scope; needed after moving elements out of a container that declared them.
void reconcileNamespaces(xml::Element element);

/// The namespace declarations written on the element itself, as (prefix, URI);
/// the prefix is empty for a default namespace.
std::vector<std::pair<std::string, std::string>> namespaceDeclarations(xml::Element element);

/// Declares a namespace on the element (a default namespace for an empty prefix).
void declareNamespace(xml::Element element, const std::string& prefix, const std::string& uri);

/// Puts `element` into the namespace of `model`, written with the model's prefix.
void adoptNamespace(xml::Element element, xml::Element model);

} // namespace trackloom
