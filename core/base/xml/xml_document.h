#pragma once

// The project's own thin layer over libxml2. Every GPX operation reads and edits
// documents through these two types; no libxml2 call happens anywhere else.
// `Document` owns a tree, `Element` is a non-owning handle into one.

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace trackloom::xml {

/// Why bytes could not be parsed into a document.
class ParseError : public std::runtime_error {
  public:
    enum class Kind {
        /// Not well-formed; `what()` is the parser's own first error, trimmed.
        syntax,
        /// The document has a document type declaration; parsing stopped there,
        /// before any declaration in it was read.
        documentType,
    };
    ParseError(Kind kind, const std::string& description)
        : std::runtime_error(description), m_kind(kind) {}
    Kind kind() const { return m_kind; }

  private:
    Kind m_kind;
};

class Document;

/// A handle to an element node of a `Document`; valid while that node is in
/// the document and the document lives.
class Element {
  public:
    explicit Element(_xmlNode* node) : m_node(node) {}

    std::string_view localName() const;
    /// The namespace URI, or the empty text for an element without namespace.
    std::string_view namespaceURI() const;
    /// The namespace prefix as written, or the empty text for none.
    std::string_view prefix() const;

    /// The value of the unqualified attribute `name`, absent when missing.
    std::optional<std::string> attribute(std::string_view name) const;
    /// The same value without copying when it is stored as one piece; otherwise
    /// it is assembled in `storage`, which the result then views.
    std::optional<std::string_view> attribute(std::string_view name, std::string& storage) const;
    /// The concatenated text of all descendant text and CDATA nodes.
    std::string text() const;
    /// The same text without copying when the element holds a single text node;
    /// otherwise it is assembled in `storage`, which the result then views.
    std::string_view text(std::string& storage) const;

    /// The first child element with this local name and namespace URI (the
    /// empty URI means "no namespace"), then the following ones.
    std::optional<Element> firstChild(std::string_view localName,
                                      std::string_view namespaceURI) const;
    std::optional<Element> nextSibling(std::string_view localName,
                                       std::string_view namespaceURI) const;
    /// All direct child elements with this local name and namespace URI.
    std::vector<Element> children(std::string_view localName, std::string_view namespaceURI) const;
    /// All direct child elements, in document order.
    std::vector<Element> childElements() const;
    std::optional<Element> parent() const;

    /// Replaces the content by one text node holding `text` (escaped on output).
    void setText(std::string_view text);
    /// Sets an unqualified attribute, replacing the value when present.
    void setAttribute(std::string_view name, std::string_view value);
    /// Renames the element, keeping its namespace.
    void setLocalName(std::string_view localName);

    /// Unlinks this element from the tree and frees it; the handle is dead after.
    void remove();
    /// Unlinks this element (with its subtree) and keeps it alive so that it
    /// can be inserted again in the same document.
    void detach();
    void appendChild(Element child);
    /// Links `child` as the very first child node, before any text or comment.
    void prependChild(Element child);
    void insertBefore(Element sibling);
    void insertAfter(Element sibling);
    /// A deep copy of this element, not yet linked, owned by `document`.
    Element copyInto(Document& document) const;

    /// The namespace declarations written on this element, as (prefix, URI);
    /// the prefix is empty for a default namespace.
    std::vector<std::pair<std::string, std::string>> namespaceDeclarations() const;
    /// Declares a namespace on this element (a default one for an empty prefix).
    void declareNamespace(std::string_view prefix, std::string_view uri);
    /// Puts this element into the namespace of `model`, written with its prefix.
    void adoptNamespace(Element model);
    /// After elements were copied or moved: declares in the subtree's scope every
    /// namespace it uses and drops declarations that repeat one already in scope.
    void reconcileNamespaces();

    _xmlNode* node() const { return m_node; }
    friend bool operator==(Element a, Element b) { return a.m_node == b.m_node; }

  private:
    _xmlNode* m_node;
};

/// `text` escaped for use as element content (`&`, `<`, `>` and carriage returns).
std::string escapedText(std::string_view text);

/// An owned XML document.
class Document {
  public:
    /// Parses with every detail kept (blanks, CDATA, comments, processing
    /// instructions, entity references unsubstituted), never touching the network
    /// or any file. Throws `ParseError`.
    static Document parse(std::string_view bytes);

    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;
    ~Document();

    /// A deep copy of the whole document.
    Document copy() const;
    std::optional<Element> root() const;
    /// Records the document's character encoding. Output is UTF-8 whatever it says:
    /// a document read in another encoding was converted when parsed.
    void setEncoding(std::string_view encoding);
    /// The document as UTF-8 bytes: every node not changed since parsing exactly
    /// as it was read (quoting, whitespace, references, empty-element form, the
    /// declaration and a byte-order mark), changed and created ones generated.
    /// A document read in another encoding is written as UTF-8, declared so.
    std::string serialize() const;
    /// Whether a text or attribute value set since parsing holds characters XML
    /// cannot carry (control characters, malformed UTF-8): the serialisation
    /// then does not parse again.
    bool holdsUnwritableText() const;

    /// A new element in the namespace with this URI, not yet linked. A declaration
    /// for the namespace already in scope at `scope` is reused; `prefix` is used
    /// otherwise (declared on the element itself).
    Element createElement(std::string_view localName, std::string_view namespaceURI,
                          std::string_view prefix, Element scope);

  private:
    friend class Element;
    struct Free {
        void operator()(_xmlDoc* doc) const;
    };
    explicit Document(_xmlDoc* doc);
    std::unique_ptr<_xmlDoc, Free> m_doc;
};

} // namespace trackloom::xml
