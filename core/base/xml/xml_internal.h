#pragma once

// Shared by the XML layer's own sources (and the benchmark's libxml2 baseline).

#include <string>
#include <string_view>

namespace trackloom::xml {

/// The libxml2 parser options every document is read with.
int parseOptions();
/// `text` without leading and trailing ASCII blanks.
std::string trimmed(std::string_view text);

} // namespace trackloom::xml
