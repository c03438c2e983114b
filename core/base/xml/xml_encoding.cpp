// Documents are kept and written as UTF-8. A document in another encoding is
// converted once before parsing, and its declaration is changed to say UTF-8,
// so that the bytes recorded for untouched nodes can be written as they stand.

#include "core/base/xml/xml_internal.h"

#include <libxml/encoding.h>
#include <libxml/tree.h>
#include <memory>

namespace trackloom::xml {
namespace {

constexpr std::string_view utf8ByteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Where the value of the declaration's `encoding` stands, if it has one.
struct Range {
    std::size_t begin;
    std::size_t end;
};

std::optional<Range> declaredEncoding(std::string_view text) {
    if (!text.starts_with("<?xml")) {
        return std::nullopt;
    }
    const auto declaration = text.substr(0, text.find("?>"));
    auto at = declaration.find("encoding");
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    at += 8;
    while (at < declaration.size() && isBlank(declaration[at])) {
        ++at;
    }
    if (at >= declaration.size() || declaration[at] != '=') {
        return std::nullopt;
    }
    ++at;
    while (at < declaration.size() && isBlank(declaration[at])) {
        ++at;
    }
    if (at >= declaration.size() || (declaration[at] != '"' && declaration[at] != '\'')) {
        return std::nullopt;
    }
    const auto close = declaration.find(declaration[at], at + 1);
    if (close == std::string_view::npos) {
        return std::nullopt;
    }
    return Range{at + 1, close};
}

/// Whether 8-bit text declaring this encoding is parsed as it stands: UTF-8, and
/// the wide encodings, whose mislabelling the parser reports in its own words.
bool keepsUtf8(std::string_view name) {
    std::string upper(name);
    for (auto& c : upper) {
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    }
    return upper == "UTF-8" || upper == "UTF8" || upper.starts_with("UTF-16") ||
           upper.starts_with("UTF16") || upper.starts_with("UCS");
}

struct CloseHandler {
    void operator()(xmlCharEncodingHandler* handler) const { xmlCharEncCloseFunc(handler); }
};
using Handler = std::unique_ptr<xmlCharEncodingHandler, CloseHandler>;

struct FreeBuffer {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};
using Buffer = std::unique_ptr<xmlBuffer, FreeBuffer>;

/// Nothing for UTF-8 bytes; otherwise the converter for their encoding (told by
/// their first bytes or by their declaration), null when none can convert it.
std::optional<Handler> foreignEncoding(std::string_view bytes) {
    if (bytes.starts_with(utf8ByteOrderMark)) {
        return std::nullopt;
    }
    if (bytes.size() >= 4) {
        const auto detected =
            xmlDetectCharEncoding(reinterpret_cast<const unsigned char*>(bytes.data()), 4);
        if (detected != XML_CHAR_ENCODING_NONE && detected != XML_CHAR_ENCODING_UTF8) {
            return Handler(xmlGetCharEncodingHandler(detected));
        }
    }
    const auto declared = declaredEncoding(bytes);
    if (!declared) {
        return std::nullopt;
    }
    const std::string name(bytes.substr(declared->begin, declared->end - declared->begin));
    if (keepsUtf8(name)) {
        return std::nullopt;
    }
    return Handler(xmlFindCharEncodingHandler(name.c_str()));
}

std::optional<std::string> converted(xmlCharEncodingHandler& handler, std::string_view bytes) {
    Buffer in(xmlBufferCreate());
    Buffer out(xmlBufferCreate());
    if (!in || !out ||
        xmlBufferAdd(in.get(), reinterpret_cast<const xmlChar*>(bytes.data()),
                     static_cast<int>(bytes.size())) != 0) {
        return std::nullopt;
    }
    while (xmlBufferLength(in.get()) > 0) {
        const int before = xmlBufferLength(in.get());
        xmlCharEncInFunc(&handler, out.get(), in.get());
        if (xmlBufferLength(in.get()) == before) {
            return std::nullopt;
        }
    }
    std::string text(reinterpret_cast<const char*>(xmlBufferContent(out.get())),
                     static_cast<std::size_t>(xmlBufferLength(out.get())));
    if (text.starts_with(utf8ByteOrderMark)) {
        text.erase(0, utf8ByteOrderMark.size());
    }
    return text;
}

} // namespace

SourceText sourceTextOf(std::string_view bytes) {
    const auto handler = foreignEncoding(bytes);
    if (!handler) {
        return {std::string(bytes), true};
    }
    auto text = *handler ? converted(**handler, bytes) : std::nullopt;
    if (!text) {
        return {std::string(bytes), false};
    }
    if (const auto declared = declaredEncoding(*text)) {
        text->replace(declared->begin, declared->end - declared->begin, "UTF-8");
    }
    return {std::move(*text), true};
}

} // namespace trackloom::xml
