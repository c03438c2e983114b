#include "core/base/text_trimming.h"

namespace trackloom {
namespace {

// Matching encoded sequences rather than decoding keeps malformed input out by
// construction: no malformed byte run equals one of these, and comparing a
// prefix or suffix never reads beyond the text.
constexpr std::string_view wideBlanks[] = {
    "\xc2\xa0",     "\xe1\x9a\x80", "\xe2\x80\x80", "\xe2\x80\x81", "\xe2\x80\x82", "\xe2\x80\x83",
    "\xe2\x80\x84", "\xe2\x80\x85", "\xe2\x80\x86", "\xe2\x80\x87", "\xe2\x80\x88", "\xe2\x80\x89",
    "\xe2\x80\x8a", "\xe2\x80\xaf", "\xe2\x81\x9f", "\xe3\x80\x80"};

constexpr std::string_view wideLineBreaks[] = {"\xc2\x85", "\xe2\x80\xa8", "\xe2\x80\xa9"};

enum class Side { start, end };

/// Length of the blank (or, when asked, line break) at one side of `text`, 0 if none.
std::size_t blankLength(std::string_view text, Side side, bool lineBreaksToo) {
    if (text.empty()) {
        return 0;
    }
    // Timestamps and numbers are trimmed once per point, so plain ASCII at the
    // edge is answered without looking at the tables.
    const auto edge = static_cast<unsigned char>(side == Side::start ? text.front() : text.back());
    if (edge < 0x80) {
        const bool lineBreak = edge >= '\n' && edge <= '\r';
        return edge == ' ' || edge == '\t' || (lineBreaksToo && lineBreak) ? 1 : 0;
    }
    const auto matches = [&](std::string_view sequence) {
        return side == Side::start ? text.starts_with(sequence) : text.ends_with(sequence);
    };
    for (const auto sequence : wideBlanks) {
        if (matches(sequence)) {
            return sequence.size();
        }
    }
    if (lineBreaksToo) {
        for (const auto sequence : wideLineBreaks) {
            if (matches(sequence)) {
                return sequence.size();
            }
        }
    }
    return 0;
}

std::string_view trimmed(std::string_view text, bool lineBreaksToo) {
    while (const auto length = blankLength(text, Side::start, lineBreaksToo)) {
        text.remove_prefix(length);
    }
    while (const auto length = blankLength(text, Side::end, lineBreaksToo)) {
        text.remove_suffix(length);
    }
    return text;
}

} // namespace

std::string_view trimmedBlanks(std::string_view text) {
    return trimmed(text, false);
}

std::string_view trimmedWhitespace(std::string_view text) {
    return trimmed(text, true);
}

} // namespace trackloom
