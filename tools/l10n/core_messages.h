#pragma once

// The core has no Qt, so lupdate cannot see its German texts: they reach the
// user through GPXError and localized(). This scanner finds the literals handed
// to those calls (and to named constants that are handed to them) so that a
// generated file can list them for lupdate in the context the application's
// lookup uses.

#include <string>
#include <string_view>
#include <vector>

namespace trackloom::l10n {

/// The context the application translates the core's messages in.
inline constexpr std::string_view coreContext = "trackloom::core";

/// One text as written in the source: the contents of its adjacent literals
/// joined, escapes kept as they stand, so it can be written back as a literal.
struct SourceText {
    std::string literal;
    int line = 0;
};

/// Every text in `source` that is passed to GPXError(…), GPXError::withNumber,
/// GPXError::withDetail or localized(…), in order of appearance. Comments,
/// character literals and raw strings are skipped; an identifier argument
/// counts when the same source defines it as `name = "literal"`.
std::vector<SourceText> coreMessagesIn(std::string_view source);

/// A C++ file of QT_TRANSLATE_NOOP entries in `coreContext`, one per distinct
/// text, for lupdate to read.
std::string lupdateInput(const std::vector<std::string>& literals);

} // namespace trackloom::l10n
