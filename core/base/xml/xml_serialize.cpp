// The serialiser copies the recorded bytes of every node that has not changed
// since it was read, and writes the rest the way libxml2 would: attributes in
// double quotes, `<a/>` for an element without content, the usual escapes.

#include "core/base/xml/xml_document.h"
#include "core/base/xml/xml_internal.h"
#include "core/base/xml/xml_layout.h"

#include <libxml/tree.h>
#include <utility>
#include <vector>

namespace trackloom::xml {
namespace {

using detail::Span;
using detail::spanOf;

std::string_view view(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

void appendEscaped(std::string& out, std::string_view text, bool inAttribute) {
    for (const char c : text) {
        switch (c) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        case '\r':
            out += "&#13;";
            break;
        case '"':
            out += inAttribute ? "&quot;" : "\"";
            break;
        case '\n':
            out += inAttribute ? "&#10;" : "\n";
            break;
        case '\t':
            out += inAttribute ? "&#9;" : "\t";
            break;
        default:
            out += c;
        }
    }
}

class Writer {
  public:
    explicit Writer(const xmlDoc* doc) : m_layout(detail::layoutOf(doc)) {}

    std::string document(const xmlDoc* doc) {
        const xmlNode* first = doc->children;
        if (const Span* span = spanOf(first)) {
            // One allocation for an unchanged document instead of a doubling
            // copy at its last byte; pages an export leaves unused are never touched.
            m_out.reserve(source(*span).size());
            m_out += source(*span).substr(0, span->begin);
        } else {
            m_out += "<?xml version=\"";
            m_out += doc->version ? view(doc->version) : "1.0";
            m_out += "\" encoding=\"UTF-8\"?>\n";
        }
        for (const xmlNode* node = first; node != nullptr; node = node->next) {
            tree(node);
            writeGapAfter(node);
        }
        return std::move(m_out);
    }

  private:
    /// What stood between a top-level node and the next one, or after the last.
    void writeGapAfter(const xmlNode* node) {
        const Span* here = spanOf(node);
        const Span* next = spanOf(node->next);
        if (node->next == nullptr && here != nullptr) {
            m_out += source(*here).substr(here->end);
        } else if (here != nullptr && next != nullptr && here->source == next->source &&
                   here->end <= next->begin) {
            m_out += source(*here).substr(here->end, next->begin - here->end);
        } else {
            m_out += '\n';
        }
    }

    void tree(const xmlNode* top) {
        const xmlNode* node = top;
        while (true) {
            if (enter(node)) {
                node = node->children;
                continue;
            }
            while (node != top && node->next == nullptr) {
                node = node->parent;
                leave(node);
            }
            if (node == top) {
                return;
            }
            node = node->next;
        }
    }

    /// Writes a node, or an element's start tag when its children follow (true).
    bool enter(const xmlNode* node) {
        const Span* span = spanOf(node);
        if (node->type == XML_ELEMENT_NODE) {
            return enterElement(node, span);
        }
        if (span != nullptr) {
            m_out += source(*span).substr(span->begin, span->end - span->begin);
            return false;
        }
        switch (node->type) {
        case XML_TEXT_NODE:
            appendEscaped(m_out, view(node->content), false);
            break;
        case XML_CDATA_SECTION_NODE:
            m_out.append("<![CDATA[").append(view(node->content)).append("]]>");
            break;
        case XML_COMMENT_NODE:
            m_out.append("<!--").append(view(node->content)).append("-->");
            break;
        case XML_PI_NODE:
            m_out.append("<?").append(view(node->name));
            if (node->content != nullptr) {
                m_out.append(" ").append(view(node->content));
            }
            m_out += "?>";
            break;
        case XML_ENTITY_REF_NODE:
            m_out.append("&").append(view(node->name)).append(";");
            break;
        default:
            break;
        }
        return false;
    }

    bool enterElement(const xmlNode* element, const Span* span) {
        const bool keepTag = span != nullptr && recordedTagFits(element, *span);
        if (keepTag && !span->dirty && !hasUnrecordedDeclarations(element, *span)) {
            m_out += source(*span).substr(span->begin, span->end - span->begin);
            return false;
        }
        openScope();
        if (keepTag) {
            return enterRecordedTag(element, *span);
        }
        m_out.append("<").append(qualifiedName(element));
        for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
            declare(ns);
        }
        for (const xmlAttr* attribute = element->properties; attribute != nullptr;
             attribute = attribute->next) {
            writeAttribute(attribute);
        }
        if (element->children == nullptr) {
            m_out += "/>";
            closeScope();
            return false;
        }
        m_out += ">";
        return true;
    }

    /// The recorded start tag, with the declarations a copy needs added where
    /// its new surroundings do not already make them.
    bool enterRecordedTag(const xmlNode* element, const Span& span) {
        const bool wasEmpty = span.openEnd == span.end;
        const auto tagClose = span.openEnd - (wasEmpty ? 2 : 1);
        const auto tag = startTag(span);
        m_out += source(span).substr(span.begin, tagClose - span.begin);
        for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
            if (detail::startTagDeclares(tag, view(ns->prefix))) {
                m_scope.emplace_back(view(ns->prefix), view(ns->href));
            }
        }
        for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
            if (!detail::startTagDeclares(tag, view(ns->prefix)) && !isBound(ns)) {
                declare(ns);
            }
        }
        if (element->children != nullptr) {
            m_out += ">";
            return true;
        }
        m_out += wasEmpty ? "/>" : ">";
        if (!wasEmpty) {
            m_out += recordedEndTag(span);
        }
        closeScope();
        return false;
    }

    void leave(const xmlNode* element) {
        const Span* span = spanOf(element);
        if (span != nullptr && span->openEnd != span->end && recordedTagFits(element, *span)) {
            m_out += recordedEndTag(*span);
        } else {
            m_out.append("</").append(qualifiedName(element)).append(">");
        }
        closeScope();
    }

    void writeAttribute(const xmlAttr* attribute) {
        m_out += ' ';
        if (attribute->ns != nullptr && attribute->ns->prefix != nullptr) {
            m_out.append(view(attribute->ns->prefix)).append(":");
        }
        m_out.append(view(attribute->name)).append("=\"");
        for (const xmlNode* part = attribute->children; part != nullptr; part = part->next) {
            if (part->type == XML_ENTITY_REF_NODE) {
                m_out.append("&").append(view(part->name)).append(";");
            } else {
                appendEscaped(m_out, view(part->content), true);
            }
        }
        m_out += '"';
    }

    void declare(const xmlNs* ns) {
        m_out += " xmlns";
        if (ns->prefix != nullptr) {
            m_out.append(":").append(view(ns->prefix));
        }
        m_out += "=\"";
        appendEscaped(m_out, view(ns->href), true);
        m_out += '"';
        m_scope.emplace_back(view(ns->prefix), view(ns->href));
    }

    void openScope() { m_scopeStarts.push_back(m_scope.size()); }
    void closeScope() {
        m_scope.resize(m_scopeStarts.back());
        m_scopeStarts.pop_back();
    }

    bool isBound(const xmlNs* ns) const {
        for (auto binding = m_scope.rbegin(); binding != m_scope.rend(); ++binding) {
            if (binding->first == view(ns->prefix)) {
                return binding->second == view(ns->href);
            }
        }
        return false;
    }

    /// Whether the recorded tags still name the element as it stands.
    bool recordedTagFits(const xmlNode* element, const Span& span) const {
        if (span.tagChanged) {
            return false;
        }
        const auto name = detail::startTagName(startTag(span));
        const auto prefix = element->ns != nullptr ? view(element->ns->prefix) : "";
        if (prefix.empty()) {
            return name == view(element->name);
        }
        return name.size() == prefix.size() + 1 + view(element->name).size() &&
               name.starts_with(prefix) && name[prefix.size()] == ':' &&
               name.ends_with(view(element->name));
    }

    /// Whether a copy carries declarations its recorded start tag lacks.
    bool hasUnrecordedDeclarations(const xmlNode* element, const Span& span) const {
        for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
            if (!detail::startTagDeclares(startTag(span), view(ns->prefix))) {
                return true;
            }
        }
        return false;
    }

    static std::string qualifiedName(const xmlNode* element) {
        std::string name;
        if (element->ns != nullptr && element->ns->prefix != nullptr) {
            name.append(view(element->ns->prefix)).append(":");
        }
        return name.append(view(element->name));
    }

    std::string_view recordedEndTag(const Span& span) const {
        const auto text = source(span);
        const auto begin = text.rfind('<', span.end - 1);
        return text.substr(begin, span.end - begin);
    }

    std::string_view source(const Span& span) const { return m_layout->source(span.source); }
    std::string_view startTag(const Span& span) const {
        return source(span).substr(span.begin, span.openEnd - span.begin);
    }

    const detail::Layout* m_layout;
    std::string m_out;
    /// The namespace bindings in force at the current point of the output.
    std::vector<std::pair<std::string_view, std::string_view>> m_scope;
    std::vector<std::size_t> m_scopeStarts;
};

} // namespace

std::string escapedText(std::string_view text) {
    std::string escaped;
    appendEscaped(escaped, text, false);
    return escaped;
}

std::string serializeDocument(const xmlDoc* doc) {
    return Writer(doc).document(doc);
}

} // namespace trackloom::xml
