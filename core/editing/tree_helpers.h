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

/// A deep copy of `element` (of this or another document) owned by the document
/// of `destination`, not yet linked; nothing when the library cannot make it.
/// Reconcile its namespaces once it is linked.
std::optional<xml::Element> copiedElement(xml::Element element, xml::Element destination);

/// Makes every namespace the element's subtree uses declared in its scope (needed
/// after copying or moving elements) and drops declarations that repeat one
/// already in scope.
void reconcileNamespaces(xml::Element element);

/// The namespace declarations written on the element itself, as (prefix, URI);
/// the prefix is empty for a default namespace.
std::vector<std::pair<std::string, std::string>> namespaceDeclarations(xml::Element element);

/// Declares a namespace on the element (a default namespace for an empty prefix).
void declareNamespace(xml::Element element, const std::string& prefix, const std::string& uri);

/// Puts `element` into the namespace of `model`, written with the model's prefix.
void adoptNamespace(xml::Element element, xml::Element model);

} // namespace trackloom
