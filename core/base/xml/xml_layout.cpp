// Recording walks the parsed tree and the source text side by side: the parser
// has already checked that the text is well-formed, so a small scanner that knows
// where markup starts and ends is enough to find each node's bytes. Every walk
// here is iterative, because documents may nest deeper than a thread's stack.

#include "core/base/xml/xml_layout.h"

#include "core/base/xml/xml_characters.h"

#include <algorithm>
#include <libxml/tree.h>

namespace trackloom::xml::detail {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The node after `node` in document order within the subtree of `top`, or null.
/// Only elements are entered (an entity reference's children are shared).
template <typename Node> Node* nextInSubtree(Node* node, const xmlNode* top) {
    if (node->type == XML_ELEMENT_NODE && node->children != nullptr) {
        return node->children;
    }
    while (node != top && node->next == nullptr) {
        node = node->parent;
    }
    return node == top ? nullptr : node->next;
}

void clearSpans(xmlNode* top) {
    for (xmlNode* node = top; node != nullptr; node = nextInSubtree(node, top)) {
        node->_private = nullptr;
    }
}

class Recorder {
  public:
    Recorder(std::string_view text, Layout& layout, std::uint32_t source)
        : m_text(text), m_layout(layout), m_source(source) {}

    /// Finds the spans of all top-level nodes; false when tree and text disagree.
    bool recordDocument(xmlDoc* doc) {
        skipDeclaration();
        for (xmlNode* top = doc->children; top != nullptr; top = top->next) {
            skipBlanks();
            if (!recordTree(top)) {
                return false;
            }
        }
        return true;
    }

  private:
    bool recordTree(xmlNode* top) {
        xmlNode* node = top;
        while (true) {
            bool descend = false;
            if (!enter(node, descend)) {
                return false;
            }
            if (descend) {
                node = node->children;
                continue;
            }
            while (node != top && node->next == nullptr) {
                node = node->parent;
                if (!closeElement(node)) {
                    return false;
                }
            }
            if (node == top) {
                return true;
            }
            node = node->next;
        }
    }

    bool enter(xmlNode* node, bool& descend) {
        Span span;
        span.source = m_source;
        span.begin = static_cast<std::uint32_t>(m_position);
        bool found = false;
        switch (node->type) {
        case XML_ELEMENT_NODE:
            found = startTag(node, span, descend);
            break;
        case XML_TEXT_NODE:
            found = characterData();
            break;
        case XML_CDATA_SECTION_NODE:
            found = delimited("<![CDATA[", "]]>");
            break;
        case XML_COMMENT_NODE:
            found = delimited("<!--", "-->");
            break;
        case XML_PI_NODE:
            found = delimited("<?", "?>");
            break;
        default:
            break;
        }
        if (!found) {
            return false;
        }
        if (node->type != XML_ELEMENT_NODE) {
            span.openEnd = span.end = static_cast<std::uint32_t>(m_position);
        }
        node->_private = m_layout.store(span);
        return true;
    }

    bool startTag(xmlNode* node, Span& span, bool& descend) {
        if (!at("<") || m_position + 1 >= m_text.size() ||
            std::string_view("/!?").find(m_text[m_position + 1]) != std::string_view::npos) {
            return false;
        }
        // A '>' may stand inside an attribute value, a '<' never.
        char quote = 0;
        std::size_t i = m_position + 1;
        for (; i < m_text.size(); ++i) {
            const char c = m_text[i];
            if (quote != 0) {
                quote = c == quote ? 0 : quote;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>') {
                break;
            }
        }
        if (i == m_text.size()) {
            return false;
        }
        m_position = i + 1;
        span.openEnd = static_cast<std::uint32_t>(m_position);
        if (m_text[i - 1] == '/') {
            span.end = span.openEnd;
            return node->children == nullptr;
        }
        descend = node->children != nullptr;
        if (!descend) {
            return endTag(span);
        }
        return true;
    }

    bool closeElement(xmlNode* element) {
        Span* span = spanOf(element);
        return span != nullptr && endTag(*span);
    }

    bool endTag(Span& span) {
        if (!at("</")) {
            return false;
        }
        const auto close = m_text.find('>', m_position);
        if (close == std::string_view::npos) {
            return false;
        }
        m_position = close + 1;
        span.end = static_cast<std::uint32_t>(m_position);
        return true;
    }

    bool characterData() {
        if (m_position >= m_text.size() || m_text[m_position] == '<') {
            return false;
        }
        m_position = std::min(m_text.find('<', m_position), m_text.size());
        return true;
    }

    bool delimited(std::string_view open, std::string_view close) {
        if (!at(open)) {
            return false;
        }
        const auto found = m_text.find(close, m_position + open.size());
        if (found == std::string_view::npos) {
            return false;
        }
        m_position = found + close.size();
        return true;
    }

    void skipDeclaration() {
        if (m_text.starts_with("\xEF\xBB\xBF")) {
            m_position = 3;
        }
        if (at("<?xml") && m_position + 5 < m_text.size() && isBlank(m_text[m_position + 5])) {
            const auto end = m_text.find("?>", m_position);
            m_position = end == std::string_view::npos ? m_text.size() : end + 2;
        }
    }

    void skipBlanks() {
        while (m_position < m_text.size() && isBlank(m_text[m_position])) {
            ++m_position;
        }
    }

    bool at(std::string_view marker) const { return m_text.substr(m_position).starts_with(marker); }

    std::string_view m_text;
    Layout& m_layout;
    std::uint32_t m_source;
    std::size_t m_position = 0;
};

/// Maps source indices of one layout to those of another, adding sources as needed.
class SourceMap {
  public:
    SourceMap(const Layout& from, Layout& to) : m_from(from), m_to(to) {}
    std::uint32_t operator()(std::uint32_t index) {
        if (&m_from == &m_to) {
            return index;
        }
        if (index >= m_mapped.size()) {
            m_mapped.resize(index + 1, unmapped);
        }
        if (m_mapped[index] == unmapped) {
            m_mapped[index] = m_to.sourceIndex(m_from.sharedSource(index));
        }
        return m_mapped[index];
    }

  private:
    static constexpr std::uint32_t unmapped = UINT32_MAX;
    const Layout& m_from;
    Layout& m_to;
    std::vector<std::uint32_t> m_mapped;
};

/// Walks two trees of the same shape together, giving each copied node the span
/// of its original. Stops where the shapes differ; nodes left over stay without
/// a span and are generated.
void copyTreeSpans(const xmlNode* originalTop, xmlNode* copyTop, Layout& to, SourceMap& sources) {
    const xmlNode* original = originalTop;
    xmlNode* copy = copyTop;
    while (original != nullptr) {
        if (copy == nullptr || copy->type != original->type) {
            return;
        }
        if (const Span* span = spanOf(original)) {
            Span copied = *span;
            copied.source = sources(span->source);
            copy->_private = to.store(copied);
        }
        const bool enter = original->type == XML_ELEMENT_NODE && original->children != nullptr;
        if (enter != (copy->type == XML_ELEMENT_NODE && copy->children != nullptr)) {
            return;
        }
        const xmlNode* nextOriginal = nextInSubtree(original, originalTop);
        xmlNode* nextCopy = nextInSubtree(copy, copyTop);
        if ((nextOriginal == nullptr) != (nextCopy == nullptr)) {
            return;
        }
        original = nextOriginal;
        copy = nextCopy;
    }
}

} // namespace

std::uint32_t Layout::sourceIndex(const std::shared_ptr<const std::string>& bytes) {
    for (std::size_t i = 0; i < m_sources.size(); ++i) {
        if (m_sources[i] == bytes) {
            return static_cast<std::uint32_t>(i);
        }
    }
    m_sources.push_back(bytes);
    return static_cast<std::uint32_t>(m_sources.size() - 1);
}

Span* Layout::store(const Span& span) {
    if (m_usedInLastBlock == blockSize) {
        m_blocks.push_back(std::make_unique<Span[]>(blockSize));
        m_usedInLastBlock = 0;
    }
    Span* stored = &m_blocks.back()[m_usedInLastBlock++];
    *stored = span;
    return stored;
}

Span* spanOf(const xmlNode* node) {
    if (node == nullptr || node->type == XML_DOCUMENT_NODE ||
        node->type == XML_HTML_DOCUMENT_NODE) {
        return nullptr;
    }
    return static_cast<Span*>(node->_private);
}

Layout* layoutOf(const xmlDoc* doc) {
    return doc == nullptr ? nullptr : static_cast<Layout*>(doc->_private);
}

Layout& ensureLayout(xmlDoc* doc) {
    if (doc->_private == nullptr) {
        doc->_private = std::make_unique<Layout>().release();
    }
    return *layoutOf(doc);
}

void releaseLayout(xmlDoc* doc) {
    const std::unique_ptr<Layout> layout(layoutOf(doc));
    doc->_private = nullptr;
}

void Layout::keepUnlinked(xmlNode* node) {
    if (const auto [entry, inserted] = m_unlinked.try_emplace(node); inserted) {
        entry->second.reset(node);
    }
}

void Layout::forgetUnlinked(xmlNode* node) {
    if (const auto entry = m_unlinked.find(node); entry != m_unlinked.end()) {
        static_cast<void>(entry->second.release());
        m_unlinked.erase(entry);
    }
}

void keepUnlinked(xmlNode* node) {
    ensureLayout(node->doc).keepUnlinked(node);
}

void forgetUnlinked(xmlDoc* doc, xmlNode* node) {
    if (auto* layout = layoutOf(doc)) {
        layout->forgetUnlinked(node);
    }
}

void recordLayout(xmlDoc* doc, std::shared_ptr<const std::string> bytes) {
    auto& layout = ensureLayout(doc);
    const std::string_view text = *bytes;
    Recorder recorder(text, layout, layout.sourceIndex(bytes));
    if (!recorder.recordDocument(doc)) {
        for (xmlNode* top = doc->children; top != nullptr; top = top->next) {
            clearSpans(top);
        }
    }
}

void copySpans(const xmlNode* original, xmlNode* copy) {
    const Layout* from = layoutOf(original->doc);
    if (from == nullptr) {
        return;
    }
    Layout& to = ensureLayout(copy->doc);
    SourceMap sources(*from, to);
    copyTreeSpans(original, copy, to, sources);
}

void copyDocumentSpans(const xmlDoc* original, xmlDoc* copy) {
    const Layout* from = layoutOf(original);
    if (from == nullptr) {
        return;
    }
    Layout& to = ensureLayout(copy);
    if (from->holdsUnwritableText()) {
        to.noteUnwritableText();
    }
    SourceMap sources(*from, to);
    const xmlNode* top = original->children;
    xmlNode* copiedTop = copy->children;
    for (; top != nullptr && copiedTop != nullptr; top = top->next, copiedTop = copiedTop->next) {
        copyTreeSpans(top, copiedTop, to, sources);
    }
}

void noteWrittenText(xmlDoc* doc, std::string_view text) {
    if (!isXMLCharacterData(text)) {
        ensureLayout(doc).noteUnwritableText();
    }
}

void markDirty(xmlNode* node) {
    for (; node != nullptr && node->type == XML_ELEMENT_NODE; node = node->parent) {
        if (Span* span = spanOf(node)) {
            if (span->dirty) {
                return;
            }
            span->dirty = true;
        }
    }
}

void markTagChanged(xmlNode* element) {
    if (Span* span = spanOf(element)) {
        span->tagChanged = true;
    }
    markDirty(element);
}

} // namespace trackloom::xml::detail
