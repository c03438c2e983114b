#include "core/editing/tree_helpers.h"

#include <libxml/tree.h>
#include <memory>

namespace trackloom {
namespace {

const xmlChar* asXml(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string text(const xmlChar* value) {
    return value ? std::string(reinterpret_cast<const char*>(value)) : std::string();
}

struct FreeWrapContext {
    void operator()(xmlDOMWrapCtxtPtr context) const { xmlDOMWrapFreeCtxt(context); }
};

} // namespace

void insertAsFirstChild(xml::Element parent, xml::Element child) {
    xmlNodePtr first = parent.node()->children;
    if (first == nullptr) {
        xmlAddChild(parent.node(), child.node());
    } else {
        xmlAddPrevSibling(first, child.node());
    }
}

std::optional<xml::Element> copiedElement(xml::Element element, xml::Element destination) {
    xmlNodePtr copy = xmlDocCopyNode(element.node(), destination.node()->doc, 1);
    return copy ? std::optional(xml::Element(copy)) : std::nullopt;
}

void reconcileNamespaces(xml::Element element) {
    // libxml2's XML_DOM_RECONNS_REMOVEREDUND, which its headers do not export.
    constexpr int removeRedundantDeclarations = 1;
    std::unique_ptr<xmlDOMWrapCtxt, FreeWrapContext> context(xmlDOMWrapNewCtxt());
    if (context) {
        xmlDOMWrapReconcileNamespaces(context.get(), element.node(), removeRedundantDeclarations);
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
    xmlNewNs(element.node(), asXml(uri), prefix.empty() ? nullptr : asXml(prefix));
}

void adoptNamespace(xml::Element element, xml::Element model) {
    xmlSetNs(element.node(), model.node()->ns);
}

} // namespace trackloom
