#pragma once

// Shared by the XML layer's own sources (and the benchmark's libxml2 baseline).

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct _xmlDoc;
struct _xmlNode;

namespace trackloom::xml {

/// A string libxml2 allocated for us (its `xmlChar` is `unsigned char`).
struct FreeText {
    void operator()(unsigned char* text) const;
};
using OwnedText = std::unique_ptr<unsigned char, FreeText>;

/// A node with its subtree, not linked into any tree.
struct FreeNode {
    void operator()(_xmlNode* node) const;
};
using OwnedNode = std::unique_ptr<_xmlNode, FreeNode>;

/// The libxml2 parser options every document is read with.
int parseOptions();
/// `text` without leading and trailing ASCII blanks.
std::string trimmed(std::string_view text);

/// The text a document is parsed from.
struct SourceText {
    /// UTF-8 text: the bytes themselves, or their conversion from another
    /// encoding with the declaration changed to say UTF-8.
    std::string text;
    /// False when the bytes are in an encoding that could not be converted:
    /// they are parsed as they stand, and their document is generated on output.
    bool faithful;
};
SourceText sourceTextOf(std::string_view bytes);

/// The whole document as UTF-8: recorded bytes for what did not change,
/// generated markup for the rest.
std::string serializeDocument(const _xmlDoc* doc);

} // namespace trackloom::xml
