#include "core/base/xml/xml_document.h"

#include "core/base/xml/xml_internal.h"
#include "core/base/xml/xml_layout.h"

#include <libxml/tree.h>
#include <new>

namespace trackloom::xml {

void FreeText::operator()(xmlChar* text) const {
    xmlFree(text);
}

void FreeNode::operator()(xmlNode* node) const {
    xmlFreeNode(node);
}

void Document::Free::operator()(_xmlDoc* doc) const {
    // The layout owns the document's unlinked nodes, whose names may live in the
    // document's dictionary: they go first.
    detail::releaseLayout(doc);
    xmlFreeDoc(doc);
}

Document::Document(_xmlDoc* doc) : m_doc(doc) {}
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;
Document::~Document() = default;

Document Document::copy() const {
    Document copied(xmlCopyDoc(m_doc.get(), 1));
    detail::copyDocumentSpans(m_doc.get(), copied.m_doc.get());
    return copied;
}

std::optional<Element> Document::root() const {
    xmlNodePtr root = m_doc ? xmlDocGetRootElement(m_doc.get()) : nullptr;
    return root ? std::optional<Element>(Element(root)) : std::nullopt;
}

void Document::setEncoding(std::string_view encoding) {
    const std::string text(encoding);
    const OwnedText previous(const_cast<xmlChar*>(m_doc->encoding));
    m_doc->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>(text.c_str()));
}

std::string Document::serialize() const {
    return serializeDocument(m_doc.get());
}

bool Document::holdsUnwritableText() const {
    const auto* layout = detail::layoutOf(m_doc.get());
    return layout != nullptr && layout->holdsUnwritableText();
}

Element Document::createElement(std::string_view localName, std::string_view namespaceURI,
                                std::string_view prefix, Element scope) {
    const std::string name(localName);
    const std::string uri(namespaceURI);
    OwnedNode node(xmlNewDocNode(m_doc.get(), nullptr,
                                 reinterpret_cast<const xmlChar*>(name.c_str()), nullptr));
    if (!node) {
        throw std::bad_alloc();
    }
    if (!uri.empty()) {
        xmlNsPtr ns = xmlSearchNsByHref(m_doc.get(), scope.node(),
                                        reinterpret_cast<const xmlChar*>(uri.c_str()));
        if (ns == nullptr) {
            const std::string declared(prefix);
            ns = xmlNewNs(node.get(), reinterpret_cast<const xmlChar*>(uri.c_str()),
                          declared.empty() ? nullptr
                                           : reinterpret_cast<const xmlChar*>(declared.c_str()));
        }
        xmlSetNs(node.get(), ns);
    }
    detail::keepUnlinked(node.get());
    return Element(node.release());
}

} // namespace trackloom::xml
