#include "core/base/xml/xml_characters.h"

#include <cstdint>

namespace trackloom::xml::detail {
namespace {

bool isAllowed(std::uint32_t code) {
    if (code < 0x20) {
        return code == 0x9 || code == 0xA || code == 0xD;
    }
    return code <= 0xD7FF || (code >= 0xE000 && code <= 0xFFFD) ||
           (code >= 0x10000 && code <= 0x10FFFF);
}

/// Decodes one shortest-form UTF-8 sequence at `text[i]`, advancing `i`; false
/// for a malformed one.
bool decode(std::string_view text, std::size_t& i, std::uint32_t& code) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int length = 0;
    std::uint32_t minimum = 0;
    if (lead < 0x80) {
        code = lead;
        ++i;
        return true;
    }
    if ((lead & 0xE0) == 0xC0) {
        length = 2, minimum = 0x80, code = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, minimum = 0x800, code = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, minimum = 0x10000, code = lead & 0x07;
    } else {
        return false;
    }
    if (i + static_cast<std::size_t>(length) > text.size()) {
        return false;
    }
    for (int k = 1; k < length; ++k) {
        const auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
        if ((next & 0xC0) != 0x80) {
            return false;
        }
        code = (code << 6) | (next & 0x3F);
    }
    i += static_cast<std::size_t>(length);
    return code >= minimum;
}

} // namespace

bool isXMLCharacterData(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        std::uint32_t code = 0;
        if (!decode(text, i, code) || !isAllowed(code)) {
            return false;
        }
    }
    return true;
}

} // namespace trackloom::xml::detail
