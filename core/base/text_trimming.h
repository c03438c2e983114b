#pragma once

// Trimming UTF-8 text the way users see it: besides ASCII blanks, the Unicode
// space separators (no-break space, the typographic spaces, ideographic space)
// count as blank, which phone exports, typed names and hand-edited files contain.
//
// Only a well-formed, shortest-form encoding of a blank is removed. Malformed
// bytes (a stray continuation byte, a truncated or overlong sequence) are never
// blank: trimming stops at them and leaves them in place.

#include <string_view>

namespace trackloom {

/// `text` without leading and trailing tabs and Unicode space separators.
/// Line breaks stay.
std::string_view trimmedBlanks(std::string_view text);

/// `text` without leading and trailing blanks and line breaks (LF, CR, VT, FF,
/// NEL, line and paragraph separators).
std::string_view trimmedWhitespace(std::string_view text);

} // namespace trackloom
