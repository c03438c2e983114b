#include "core/base/xml/xml_characters.h"
#include "core/base/xml/xml_document.h"
#include "core/base/xml/xml_internal.h"
#include "core/base/xml/xml_layout.h"

#include <cstring>
#include <libxml/tree.h>
#include <new>

namespace trackloom::xml {
namespace {

const xmlChar* asXml(std::string_view text) {
    return reinterpret_cast<const xmlChar*>(text.data());
}

std::string_view view(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

/// Whether the C string `text` equals `expected`, without measuring `text` first.
bool equals(const xmlChar* text, std::string_view expected) {
    if (text == nullptr) {
        return expected.empty();
    }
    const auto* characters = reinterpret_cast<const char*>(text);
    return std::strncmp(characters, expected.data(), expected.size()) == 0 &&
           characters[expected.size()] == '\0';
}

bool matches(const xmlNode* node, std::string_view localName, std::string_view namespaceURI) {
    return node->type == XML_ELEMENT_NODE && equals(node->name, localName) &&
           equals(node->ns ? node->ns->href : nullptr, namespaceURI);
}

std::optional<Element> firstMatchFrom(xmlNode* node, std::string_view localName,
                                      std::string_view namespaceURI) {
    for (; node != nullptr; node = node->next) {
        if (matches(node, localName, namespaceURI)) {
            return Element(node);
        }
    }
    return std::nullopt;
}

/// Links `node` by `link` (a libxml2 call that returns null when it refuses).
/// The tree owns what it holds, so a linked node leaves its document's unlinked
/// nodes; one that stayed outside keeps its owner.
template <typename Link> void linkOwned(xmlNode* node, Link link) {
    xmlDoc* home = node->doc;
    if (link() != nullptr) {
        detail::forgetUnlinked(home, node);
    }
}

} // namespace

std::string_view Element::localName() const {
    return view(m_node->name);
}

std::string_view Element::namespaceURI() const {
    return view(m_node->ns ? m_node->ns->href : nullptr);
}

std::string_view Element::prefix() const {
    return view(m_node->ns ? m_node->ns->prefix : nullptr);
}

std::optional<std::string> Element::attribute(std::string_view name) const {
    std::string storage;
    const auto value = attribute(name, storage);
    return value ? std::optional<std::string>(std::string(*value)) : std::nullopt;
}

std::optional<std::string_view> Element::attribute(std::string_view name,
                                                   std::string& storage) const {
    for (xmlAttrPtr attribute = m_node->properties; attribute != nullptr;
         attribute = attribute->next) {
        if (attribute->ns != nullptr || !equals(attribute->name, name)) {
            continue;
        }
        const xmlNode* only = attribute->children;
        if (only == nullptr) {
            return std::string_view();
        }
        if (only->next == nullptr && only->type == XML_TEXT_NODE) {
            return view(only->content);
        }
        const OwnedText value(xmlNodeListGetString(m_node->doc, attribute->children, 1));
        storage.assign(view(value.get()));
        return std::string_view(storage);
    }
    return std::nullopt;
}

std::string Element::text() const {
    std::string storage;
    const auto content = text(storage);
    return content.data() == storage.data() ? storage : std::string(content);
}

std::string_view Element::text(std::string& storage) const {
    const xmlNode* only = m_node->children;
    if (only != nullptr && only->next == nullptr &&
        (only->type == XML_TEXT_NODE || only->type == XML_CDATA_SECTION_NODE)) {
        return view(only->content);
    }
    const OwnedText content(xmlNodeGetContent(m_node));
    storage.assign(view(content.get()));
    return storage;
}

std::optional<Element> Element::firstChild(std::string_view localName,
                                           std::string_view namespaceURI) const {
    return firstMatchFrom(m_node->children, localName, namespaceURI);
}

std::optional<Element> Element::nextSibling(std::string_view localName,
                                            std::string_view namespaceURI) const {
    return firstMatchFrom(m_node->next, localName, namespaceURI);
}

std::vector<Element> Element::children(std::string_view localName,
                                       std::string_view namespaceURI) const {
    std::vector<Element> result;
    for (xmlNode* child = m_node->children; child != nullptr; child = child->next) {
        if (matches(child, localName, namespaceURI)) {
            result.emplace_back(child);
        }
    }
    return result;
}

std::vector<Element> Element::childElements() const {
    std::vector<Element> result;
    for (xmlNode* child = m_node->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) {
            result.emplace_back(child);
        }
    }
    return result;
}

std::optional<Element> Element::parent() const {
    if (m_node->parent == nullptr || m_node->parent->type != XML_ELEMENT_NODE) {
        return std::nullopt;
    }
    return Element(m_node->parent);
}

void Element::setText(std::string_view text) {
    const std::string value(text);
    const OwnedText escaped(xmlEncodeSpecialChars(m_node->doc, asXml(value)));
    detail::noteWrittenText(m_node->doc, text);
    detail::markDirty(m_node);
    xmlNodeSetContent(m_node, escaped.get());
}

void Element::setAttribute(std::string_view name, std::string_view value) {
    const std::string key(name);
    const std::string text(value);
    detail::noteWrittenText(m_node->doc, value);
    detail::markTagChanged(m_node);
    xmlSetNsProp(m_node, nullptr, asXml(key), asXml(text));
}

void Element::setLocalName(std::string_view localName) {
    const std::string name(localName);
    detail::markTagChanged(m_node);
    xmlNodeSetName(m_node, asXml(name));
}

void Element::remove() {
    detail::markDirty(m_node->parent);
    detail::forgetUnlinked(m_node->doc, m_node);
    xmlUnlinkNode(m_node);
    const OwnedNode removed(m_node);
    m_node = nullptr;
}

void Element::detach() {
    if (m_node->parent == nullptr) {
        return; // Unlinked already, and owned by its document since.
    }
    // Owned before it leaves the tree, so that no failure can drop it in between.
    detail::keepUnlinked(m_node);
    detail::markDirty(m_node->parent);
    xmlUnlinkNode(m_node);
}

void Element::appendChild(Element child) {
    detail::markDirty(child.m_node->parent);
    detail::markDirty(m_node);
    linkOwned(child.m_node, [&] { return xmlAddChild(m_node, child.m_node); });
}

void Element::prependChild(Element child) {
    detail::markDirty(child.m_node->parent);
    detail::markDirty(m_node);
    linkOwned(child.m_node, [&] {
        return m_node->children == nullptr ? xmlAddChild(m_node, child.m_node)
                                           : xmlAddPrevSibling(m_node->children, child.m_node);
    });
}

void Element::insertBefore(Element sibling) {
    detail::markDirty(sibling.m_node->parent);
    detail::markDirty(m_node->parent);
    linkOwned(sibling.m_node, [&] { return xmlAddPrevSibling(m_node, sibling.m_node); });
}

void Element::insertAfter(Element sibling) {
    detail::markDirty(sibling.m_node->parent);
    detail::markDirty(m_node->parent);
    linkOwned(sibling.m_node, [&] { return xmlAddNextSibling(m_node, sibling.m_node); });
}

Element Element::copyInto(Document& document) const {
    OwnedNode copy(xmlDocCopyNode(m_node, document.m_doc.get(), 1));
    if (!copy) {
        throw std::bad_alloc();
    }
    detail::copySpans(m_node, copy.get());
    detail::keepUnlinked(copy.get());
    return Element(copy.release());
}

} // namespace trackloom::xml
