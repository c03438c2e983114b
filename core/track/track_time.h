#pragma once

#include "core/base/instant.h"

#include <optional>
#include <string>
#include <string_view>

namespace trackloom {

/// Reads a GPX timestamp: after trimming blanks and line breaks the text must be
/// YYYY-MM-DDTHH:MM:SS, optionally a fraction of any length, then "Z" or ±HH:MM.
/// Anything else, or an impossible date, gives nothing.
std::optional<Instant> parseTrackTime(std::string_view text);

/// Writes an instant as UTC with exactly six fractional digits and "Z", the
/// fraction truncated, never rounded (2025-06-01T08:30:00.250000Z).
std::string formatTrackTime(Instant instant);

} // namespace trackloom
