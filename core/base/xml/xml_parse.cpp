// Parsing with libxml2 under the rules the GPX reader needs: nothing external is
// ever loaded, nothing is substituted, and a document type declaration stops the
// parser at once, so entity bombs and external entities are never expanded.

#include "core/base/xml/xml_document.h"
#include "core/base/xml/xml_internal.h"
#include "core/base/xml/xml_layout.h"

#include <exception>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <mutex>

namespace trackloom::xml {
namespace {

xmlParserInputPtr refuseExternalEntity(const char*, const char*, xmlParserCtxtPtr) noexcept {
    return nullptr;
}

void ignoreGenericError(void*, const char*, ...) noexcept {}

void prepareParser() {
    // libxml2 sets up its globals lazily and without a lock: two threads that
    // parse at once for the first time would both make them. So the set-up
    // comes first, once, before any other call into the library.
    static std::once_flag once;
    std::call_once(once, [] {
        xmlInitParser();
        xmlThrDefSetGenericErrorFunc(nullptr, ignoreGenericError);
        xmlSetExternalEntityLoader(refuseExternalEntity);
    });
    // Encoding problems are reported outside the parser context; they must not
    // reach the terminal, the parser's own error decides the message.
    xmlSetGenericErrorFunc(nullptr, ignoreGenericError);
}

struct ParseState {
    std::string firstFatal;
    std::string firstError;
    bool documentType = false;
    // An exception never crosses libxml2's C frames: a callback parks it here,
    // stops the parser, and `parse` rethrows it once libxml2 has returned.
    std::exception_ptr failure;
};

ParseState& stateOf(void* context) {
    return *static_cast<ParseState*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

void recordError(void* context, xmlErrorPtr error) noexcept {
    if (error == nullptr || error->message == nullptr) {
        return;
    }
    auto& state = stateOf(context);
    auto& slot = error->level == XML_ERR_FATAL ? state.firstFatal : state.firstError;
    if (slot.empty() && error->level >= XML_ERR_ERROR) {
        try {
            slot = trimmed(error->message);
        } catch (...) {
            if (!state.failure) {
                state.failure = std::current_exception();
            }
            xmlStopParser(static_cast<xmlParserCtxtPtr>(context));
        }
    }
}

void stopAtDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) noexcept {
    stateOf(context).documentType = true;
    xmlStopParser(static_cast<xmlParserCtxtPtr>(context));
}

struct FreeContext {
    void operator()(xmlParserCtxtPtr context) const { xmlFreeParserCtxt(context); }
};

} // namespace

std::string trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

int parseOptions() {
    return XML_PARSE_NONET | XML_PARSE_HUGE;
}

Document Document::parse(std::string_view bytes) {
    prepareParser();
    std::unique_ptr<xmlParserCtxt, FreeContext> context(xmlNewParserCtxt());
    if (!context) {
        throw ParseError(ParseError::Kind::syntax, "out of memory");
    }
    ParseState state;
    context->_private = &state;
    context->sax->serror = recordError;
    context->sax->internalSubset = stopAtDocumentType;

    auto source = sourceTextOf(bytes);
    const auto text = std::make_shared<const std::string>(std::move(source.text));
    xmlDocPtr doc = xmlCtxtReadMemory(context.get(), text->c_str(), static_cast<int>(text->size()),
                                      nullptr, nullptr, parseOptions());
    Document document(doc);
    if (state.failure) {
        std::rethrow_exception(state.failure);
    }
    if (state.documentType) {
        throw ParseError(ParseError::Kind::documentType, "document type declaration");
    }
    if (doc == nullptr || !context->wellFormed) {
        auto description = !state.firstFatal.empty() ? state.firstFatal : state.firstError;
        if (description.empty()) {
            description = "Document is empty";
        }
        throw ParseError(ParseError::Kind::syntax, description);
    }
    if (source.faithful) {
        detail::recordLayout(doc, text);
    }
    return document;
}

} // namespace trackloom::xml
