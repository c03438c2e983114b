// Namespace declarations of elements that were copied or moved. Whatever changes
// how a start tag must be written is marked, so that the serialiser adds the
// declarations a recorded tag lacks and writes anew a tag whose names changed.

#include "core/base/xml/xml_document.h"
#include "core/base/xml/xml_layout.h"

#include <libxml/tree.h>
#include <memory>

namespace trackloom::xml {
namespace {

std::string asText(const xmlChar* value) {
    return value ? std::string(reinterpret_cast<const char*>(value)) : std::string();
}

/// The prefixes the element's start tag writes for its attributes.
std::string attributePrefixes(const xmlNode* element) {
    std::string prefixes;
    for (const xmlAttr* attribute = element->properties; attribute != nullptr;
         attribute = attribute->next) {
        prefixes += attribute->ns != nullptr ? asText(attribute->ns->prefix) : std::string();
        prefixes += '\n';
    }
    return prefixes;
}

/// The element's own prefix and declarations.
std::string namespaceState(const xmlNode* element) {
    std::string state = element->ns != nullptr ? asText(element->ns->prefix) : std::string();
    for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
        state += '\n' + asText(ns->prefix) + '=' + asText(ns->href);
    }
    return state;
}

struct Snapshot {
    xmlNode* element;
    std::string attributes;
    std::string namespaces;
};

/// The state of every element of the subtree, in no particular order.
std::vector<Snapshot> snapshotsOf(xmlNode* top) {
    std::vector<Snapshot> snapshots;
    std::vector<xmlNode*> pending{top};
    while (!pending.empty()) {
        xmlNode* element = pending.back();
        pending.pop_back();
        snapshots.push_back({element, attributePrefixes(element), namespaceState(element)});
        for (xmlNode* child = element->children; child != nullptr; child = child->next) {
            if (child->type == XML_ELEMENT_NODE) {
                pending.push_back(child);
            }
        }
    }
    return snapshots;
}

struct FreeWrapContext {
    void operator()(xmlDOMWrapCtxtPtr context) const { xmlDOMWrapFreeCtxt(context); }
};

} // namespace

std::vector<std::pair<std::string, std::string>> Element::namespaceDeclarations() const {
    std::vector<std::pair<std::string, std::string>> declarations;
    for (const xmlNs* ns = m_node->nsDef; ns != nullptr; ns = ns->next) {
        declarations.emplace_back(asText(ns->prefix), asText(ns->href));
    }
    return declarations;
}

void Element::declareNamespace(std::string_view prefix, std::string_view uri) {
    const std::string name(prefix);
    const std::string href(uri);
    detail::markDirty(m_node);
    xmlNewNs(m_node, reinterpret_cast<const xmlChar*>(href.c_str()),
             name.empty() ? nullptr : reinterpret_cast<const xmlChar*>(name.c_str()));
}

void Element::adoptNamespace(Element model) {
    detail::markTagChanged(m_node);
    xmlSetNs(m_node, model.m_node->ns);
}

void Element::reconcileNamespaces() {
    // libxml2's XML_DOM_RECONNS_REMOVEREDUND, which its headers do not export.
    constexpr int removeRedundantDeclarations = 1;
    std::unique_ptr<xmlDOMWrapCtxt, FreeWrapContext> context(xmlDOMWrapNewCtxt());
    if (!context) {
        return;
    }
    const auto before = snapshotsOf(m_node);
    xmlDOMWrapReconcileNamespaces(context.get(), m_node, removeRedundantDeclarations);
    for (const auto& snapshot : before) {
        if (attributePrefixes(snapshot.element) != snapshot.attributes) {
            detail::markTagChanged(snapshot.element);
        } else if (namespaceState(snapshot.element) != snapshot.namespaces) {
            detail::markDirty(snapshot.element);
        }
    }
}

} // namespace trackloom::xml
