// Reading a recorded start tag again: the parser has accepted it, so names end
// at a blank, '/', '=' or '>' and every attribute value is quoted.

#include "core/base/xml/xml_layout.h"

namespace trackloom::xml::detail {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::size_t endOfName(std::string_view tag, std::size_t at) {
    while (at < tag.size() && !isBlank(tag[at]) && tag[at] != '/' && tag[at] != '=' &&
           tag[at] != '>') {
        ++at;
    }
    return at;
}

std::size_t skipBlanks(std::string_view tag, std::size_t at) {
    while (at < tag.size() && isBlank(tag[at])) {
        ++at;
    }
    return at;
}

} // namespace

std::string_view startTagName(std::string_view tag) {
    return tag.substr(1, endOfName(tag, 1) - 1);
}

bool startTagDeclares(std::string_view tag, std::string_view prefix) {
    std::size_t at = endOfName(tag, 1);
    while (true) {
        at = skipBlanks(tag, at);
        if (at >= tag.size() || tag[at] == '/' || tag[at] == '>') {
            return false;
        }
        const auto nameEnd = endOfName(tag, at);
        const auto name = tag.substr(at, nameEnd - at);
        if (prefix.empty() ? name == "xmlns"
                           : name.starts_with("xmlns:") && name.substr(6) == prefix) {
            return true;
        }
        const auto open = skipBlanks(tag, skipBlanks(tag, nameEnd) + 1);
        if (open >= tag.size()) {
            return false;
        }
        at = tag.find(tag[open], open + 1);
        if (at == std::string_view::npos) {
            return false;
        }
        ++at;
    }
}

} // namespace trackloom::xml::detail
