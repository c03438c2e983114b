#pragma once

// The guard before every export or save: a file the user opened is never
// overwritten, whichever path leads to it.

#include <filesystem>
#include <optional>

namespace trackloom::OriginalFileProtection {

/// Throws `GPXError` when writing to `destination` would overwrite `source`, the
/// opened file: when both paths are equal once standardised with their symbolic
/// links resolved, or when both name the same existing file (a hard link).
/// Without a source nothing is checked.
void checkExport(const std::filesystem::path& destination,
                 const std::optional<std::filesystem::path>& source);

} // namespace trackloom::OriginalFileProtection
