#pragma once

#include <optional>
#include <string_view>

namespace trackloom {

/// A finite double written entirely as a number with a point as decimal
/// separator: an optional sign, decimals with optional exponent, or a
/// hexadecimal float. Blanks anywhere make it unreadable.
std::optional<double> parseFiniteNumber(std::string_view text);

} // namespace trackloom
