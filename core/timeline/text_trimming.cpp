#include "core/timeline/text_trimming.h"

namespace trackloom {
namespace {

bool isBlank(char32_t c) {
    return c == U'\t' || c == U' ' || c == 0xa0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200a) ||
           c == 0x202f || c == 0x205f || c == 0x3000;
}

bool isLineBreak(char32_t c) {
    return (c >= U'\n' && c <= U'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

struct CodePoint {
    char32_t value = 0;
    std::size_t length = 0;
};

/// The code point starting at `position`; a byte that does not start a
/// well-formed sequence counts as a replacement character, never blank.
CodePoint codePointAt(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto lead = byte(position);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t length = lead < 0xc0 ? 0 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    if (length == 0 || position + length > text.size()) {
        return {0xfffd, 1};
    }
    char32_t value = lead & (0x7f >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(position + i) & 0xc0) != 0x80) {
            return {0xfffd, 1};
        }
        value = (value << 6) | (byte(position + i) & 0x3f);
    }
    return {value, length};
}

/// Start of the code point that ends at `end`.
std::size_t startOfCodePointBefore(std::string_view text, std::size_t end) {
    std::size_t start = end - 1;
    while (start > 0 && end - start < 4 &&
           (static_cast<unsigned char>(text[start]) & 0xc0) == 0x80) {
        --start;
    }
    return start;
}

template <typename Predicate> std::string_view trimmed(std::string_view text, Predicate trims) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        const auto c = codePointAt(text, begin);
        if (!trims(c.value)) {
            break;
        }
        begin += c.length;
    }
    std::size_t end = text.size();
    while (end > begin) {
        const auto start = startOfCodePointBefore(text, end);
        const auto c = codePointAt(text, start);
        if (start + c.length != end || !trims(c.value)) {
            break;
        }
        end = start;
    }
    return text.substr(begin, end - begin);
}

} // namespace

std::string_view trimmedBlanks(std::string_view text) {
    return trimmed(text, isBlank);
}

std::string_view trimmedWhitespace(std::string_view text) {
    return trimmed(text, [](char32_t c) { return isBlank(c) || isLineBreak(c); });
}

} // namespace trackloom
