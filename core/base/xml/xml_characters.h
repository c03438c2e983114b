#pragma once

// What XML can carry as character data: the parser refuses anything else, so a
// document holding such text would write bytes that never read back.

#include <string_view>

namespace trackloom::xml::detail {

/// Whether `text` is well-formed UTF-8 made only of characters XML 1.0 allows
/// (tab, line feed, carriage return, U+0020–U+D7FF, U+E000–U+FFFD, U+10000 on).
bool isXMLCharacterData(std::string_view text);

} // namespace trackloom::xml::detail
