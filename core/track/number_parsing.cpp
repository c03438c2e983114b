#include "core/track/number_parsing.h"

#include <charconv>
#include <cmath>

namespace trackloom {

std::optional<double> parseFiniteNumber(std::string_view text) {
    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    auto format = std::chars_format::general;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);
        format = std::chars_format::hex;
    }
    if (text.empty() || text.front() == '+' || text.front() == '-') {
        return std::nullopt;
    }
    double value = 0;
    const auto* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value, format);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

} // namespace trackloom
