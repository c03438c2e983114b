#pragma once

// Where every node of a document stood in the bytes it was parsed from, so that
// serialising writes untouched nodes exactly as they were read.
//
// Each node's `_private` points to its `Span`; the document's `_private` owns the
// `Layout` that holds the spans and the source bytes they refer to. Deep copies
// take the spans along (a copied node still refers to the bytes it came from),
// and every edit through `Element` marks what it changed, so the serialiser copies
// recorded bytes where nothing changed and generates markup only for the rest.
// A node without a span (created, or from a document whose layout could not be
// recorded) is always generated.

#include "core/base/xml/xml_internal.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace trackloom::xml::detail {

struct Span {
    /// Byte offsets into the source: the node is [begin, end); for an element
    /// the start tag is [begin, openEnd) and openEnd == end means `<a/>` form.
    std::uint32_t begin = 0;
    std::uint32_t openEnd = 0;
    std::uint32_t end = 0;
    /// Index of the source bytes in the owning `Layout`.
    std::uint32_t source = 0;
    /// The element's name or attributes changed: its tags must be generated.
    bool tagChanged = false;
    /// Something inside the node changed: its bytes cannot be copied as a whole.
    /// Always set on every ancestor of a changed node as well.
    bool dirty = false;
};

class Layout {
  public:
    /// The index of `bytes` among the sources, adding it when new.
    std::uint32_t sourceIndex(const std::shared_ptr<const std::string>& bytes);
    std::string_view source(std::uint32_t index) const { return *m_sources[index]; }
    const std::shared_ptr<const std::string>& sharedSource(std::uint32_t index) const {
        return m_sources[index];
    }
    /// Keeps a copy of `span` at an address that stays valid as long as the layout.
    Span* store(const Span& span);

    /// Takes ownership of a node of this document that is not (or is about to
    /// stop being) linked into its tree; nothing happens when it has it already.
    void keepUnlinked(_xmlNode* node);
    /// Gives up ownership of `node` without freeing it (it has been linked into
    /// the tree, or freed by the caller); nothing happens for a node it does not own.
    void forgetUnlinked(_xmlNode* node);

    /// Some text written since parsing is not XML character data.
    bool holdsUnwritableText() const { return m_unwritableText; }
    void noteUnwritableText() { m_unwritableText = true; }

  private:
    static constexpr std::size_t blockSize = 4096;
    std::vector<std::shared_ptr<const std::string>> m_sources;
    std::vector<std::unique_ptr<Span[]>> m_blocks;
    std::size_t m_usedInLastBlock = blockSize;
    bool m_unwritableText = false;
    // Created, copied and detached nodes until they are linked. Last, so that
    // they go before the spans they point to.
    std::unordered_map<_xmlNode*, OwnedNode> m_unlinked;
};

/// The span of a node, or null (always null for the document node itself).
Span* spanOf(const _xmlNode* node);
/// The layout a document owns, or null.
Layout* layoutOf(const _xmlDoc* doc);
/// The document's layout, created when it has none yet.
Layout& ensureLayout(_xmlDoc* doc);
/// Frees the layout a document owns, with its unlinked nodes (before the
/// document itself is freed).
void releaseLayout(_xmlDoc* doc);

/// Gives the document of `node` ownership of it while it is outside the tree.
void keepUnlinked(_xmlNode* node);
/// Ends the ownership `doc` took by `keepUnlinked`, if it did.
void forgetUnlinked(_xmlDoc* doc, _xmlNode* node);

/// Records the spans of a freshly parsed document from its source `bytes` (the
/// UTF-8 text it was parsed from). Leaves every node without a span when the
/// tree and the bytes do not line up.
void recordLayout(_xmlDoc* doc, std::shared_ptr<const std::string> bytes);

/// Gives the nodes of `copy` (a deep copy of `original`, which may belong to
/// another document) the spans of their originals.
void copySpans(const _xmlNode* original, _xmlNode* copy);
/// The same for all top-level nodes of a copied document.
void copyDocumentSpans(const _xmlDoc* original, _xmlDoc* copy);

/// The qualified name a recorded start tag opens with.
std::string_view startTagName(std::string_view tag);
/// Whether a recorded start tag declares the namespace prefix `prefix` (the
/// empty text for the default namespace). A copied element may carry
/// declarations its tag lacks, which it needs only where its new place does.
bool startTagDeclares(std::string_view tag, std::string_view prefix);

/// Remembers in the document's layout when `text`, about to be written into it,
/// is not XML character data.
void noteWrittenText(_xmlDoc* doc, std::string_view text);

/// Marks `node` and its ancestors as no longer matching their bytes as a whole.
void markDirty(_xmlNode* node);
/// Marks an element whose name or attributes changed.
void markTagChanged(_xmlNode* element);

} // namespace trackloom::xml::detail
