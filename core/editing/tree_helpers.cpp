#include "core/editing/tree_helpers.h"

#include "core/base/xml/xml_layout.h"

#include <libxml/tree.h>

namespace trackloom {
namespace {

const xmlChar* asXml(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string text(const xmlChar* value) {
    return value ? std::string(reinterpret_cast<const char*>(value)) : std::string();
}

/// Calls `visit` for `top` and every element below it, in document order.
template <typename Visit> void forEachElement(xmlNodePtr top, Visit visit) {
    xmlNodePtr node = top;
    while (node != nullptr) {
        if (node->type == XML_ELEMENT_NODE) {
            visit(node);
            if (node->children != nullptr) {
                node = node->children;
                continue;
            }
        }
        while (node != top && node->next == nullptr) {
            node = node->parent;
        }
        node = node == top ? nullptr : node->next;
    }
}

bool samePrefix(const xmlNs* a, const xmlNs* b) {
    return xmlStrEqual(a->prefix, b->prefix);
}

/// Whether `ns` itself is the declaration its prefix refers to at `node`.
bool isInScope(const xmlNode* node, const xmlNs* ns) {
    for (; node != nullptr && node->type == XML_ELEMENT_NODE; node = node->parent) {
        for (const xmlNs* declared = node->nsDef; declared != nullptr; declared = declared->next) {
            if (declared == ns) {
                return true;
            }
            if (samePrefix(declared, ns)) {
                return false;
            }
        }
    }
    return false;
}

/// A declaration equal to `ns` (prefix and URI) usable at `node`, declared on
/// `top` when none is in scope.
xmlNsPtr equalDeclaration(xmlNodePtr top, xmlNodePtr node, const xmlNs* ns) {
    xmlNsPtr found = xmlSearchNs(node->doc, node, ns->prefix);
    if (found != nullptr && xmlStrEqual(found->href, ns->href)) {
        return found;
    }
    if (xmlNsPtr declared = xmlNewNs(top, ns->href, ns->prefix)) {
        return declared;
    }
    // The prefix is taken on `top` for another namespace: a new one it is.
    const auto base = ns->prefix ? text(ns->prefix) : std::string("default");
    for (int suffix = 1;; ++suffix) {
        const auto prefix = base + std::to_string(suffix);
        if (xmlNsPtr renamed = xmlNewNs(top, ns->href, asXml(prefix))) {
            return renamed;
        }
    }
}

/// Points every reference to `from` in the subtree of `top` to `to`.
void repoint(xmlNodePtr top, const xmlNs* from, xmlNsPtr to) {
    forEachElement(top, [&](xmlNodePtr node) {
        if (node->ns == from) {
            node->ns = to;
        }
        for (xmlAttrPtr attribute = node->properties; attribute != nullptr;
             attribute = attribute->next) {
            if (attribute->ns == from) {
                attribute->ns = to;
            }
        }
    });
}

void redeclare(xmlNodePtr top, xmlNodePtr node, xmlNsPtr& ns) {
    if (ns == nullptr || isInScope(node, ns)) {
        return;
    }
    const xmlNsPtr replacement = equalDeclaration(top, node, ns);
    if (!samePrefix(replacement, ns)) {
        xml::detail::markTagChanged(node);
    }
    ns = replacement;
}

} // namespace

void insertAsFirstChild(xml::Element parent, xml::Element child) {
    xml::detail::markDirty(child.node()->parent);
    xml::detail::markDirty(parent.node());
    xmlNodePtr first = parent.node()->children;
    if (first == nullptr) {
        xmlAddChild(parent.node(), child.node());
    } else {
        xmlAddPrevSibling(first, child.node());
    }
}

void redeclareMovedNamespaces(xml::Element element) {
    xmlNodePtr top = element.node();
    forEachElement(top, [&](xmlNodePtr node) {
        redeclare(top, node, node->ns);
        for (xmlAttrPtr attribute = node->properties; attribute != nullptr;
             attribute = attribute->next) {
            redeclare(top, node, attribute->ns);
        }
    });
}

void dropRepeatedDeclarations(xml::Element copy) {
    xmlNodePtr top = copy.node();
    xmlNsPtr* link = &top->nsDef;
    while (*link != nullptr) {
        xmlNsPtr declaration = *link;
        const xmlNsPtr outer =
            top->parent ? xmlSearchNs(top->doc, top->parent, declaration->prefix) : nullptr;
        if (outer != nullptr && xmlStrEqual(outer->href, declaration->href)) {
            repoint(top, declaration, outer);
            *link = declaration->next;
            xmlFreeNs(declaration);
        } else {
            link = &declaration->next;
        }
    }
}

std::vector<std::pair<std::string, std::string>> namespaceDeclarations(xml::Element element) {
    std::vector<std::pair<std::string, std::string>> declarations;
    for (xmlNsPtr ns = element.node()->nsDef; ns != nullptr; ns = ns->next) {
        declarations.emplace_back(text(ns->prefix), text(ns->href));
    }
    return declarations;
}

void declareNamespace(xml::Element element, const std::string& prefix, const std::string& uri) {
    xml::detail::markDirty(element.node());
    xmlNewNs(element.node(), asXml(uri), prefix.empty() ? nullptr : asXml(prefix));
}

void adoptNamespace(xml::Element element, xml::Element model) {
    xml::detail::markTagChanged(element.node());
    xmlSetNs(element.node(), model.node()->ns);
}

} // namespace trackloom
