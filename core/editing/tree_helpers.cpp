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

std::optional<xml::Element> clonedElement(xml::Element element, xml::Element parent) {
    std::unique_ptr<xmlDOMWrapCtxt, FreeWrapContext> context(xmlDOMWrapNewCtxt());
    xmlNodePtr clone = nullptr;
    if (!context ||
        xmlDOMWrapCloneNode(context.get(), element.node()->doc, element.node(), &clone,
                            parent.node()->doc, parent.node(), 1, 0) != 0 ||
        clone == nullptr) {
        return std::nullopt;
    }
    // The clone only borrowed the parent for resolving namespaces.
    clone->parent = nullptr;
    return xml::Element(clone);
}

void reconcileNamespaces(xml::Element element) {
    xmlReconciliateNs(element.node()->doc, element.node());
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
