#pragma once

// Tree operations the editing code needs and the XML layer does not offer yet.
// They keep the layer's record of what changed, so that the serialiser still
// writes everything else as it was read; they belong in core/base/xml once that
// layer grows them.

#include "core/base/xml/xml_document.h"

#include <string>
#include <utility>
#include <vector>

namespace trackloom {

/// Links `child` as the very first child node of `parent`, before any text,
/// comment or element already there.
void insertAsFirstChild(xml::Element parent, xml::Element child);

/// After elements were moved under `element` out of containers that will go:
/// every namespace they use whose declaration is no longer in scope is declared
/// again, with the same prefix, on `element` (or taken from an equal declaration
/// already in scope).
void redeclareMovedNamespaces(xml::Element element);

/// After linking a copied element: drops the declarations the copy added to stay
/// meaningful on its own where its new surroundings declare the same, so that no
/// tag written anew repeats them.
void dropRepeatedDeclarations(xml::Element copy);

/// The namespace declarations written on the element itself, as (prefix, URI);
/// the prefix is empty for a default namespace.
std::vector<std::pair<std::string, std::string>> namespaceDeclarations(xml::Element element);

/// Declares a namespace on the element (a default namespace for an empty prefix).
void declareNamespace(xml::Element element, const std::string& prefix, const std::string& uri);

/// Puts `element` into the namespace of `model`, written with the model's prefix.
void adoptNamespace(xml::Element element, xml::Element model);

} // namespace trackloom
