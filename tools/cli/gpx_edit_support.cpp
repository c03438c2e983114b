#include "tools/cli/gpx_edit_support.h"

#include <charconv>

namespace trackloom::cli {
namespace {

template <typename Number> std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0;;) {
        const auto end = text.find(separator, start);
        parts.push_back(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) {
            return parts;
        }
        start = end + 1;
    }
}

} // namespace

std::optional<std::int64_t> parseInteger(const std::string& text) {
    return number<std::int64_t>(text);
}

std::optional<double> parseDecimal(const std::string& text) {
    return number<double>(text);
}

std::optional<Coordinate> parseCoordinate(const std::string& text) {
    const auto parts = split(text, ',');
    if (parts.size() != 2) {
        return std::nullopt;
    }
    const auto latitude = number<double>(parts[0]);
    const auto longitude = number<double>(parts[1]);
    if (!latitude || !longitude) {
        return std::nullopt;
    }
    return Coordinate{*latitude, *longitude};
}

std::optional<std::vector<Coordinate>> parseCoordinates(const std::string& text) {
    std::vector<Coordinate> coordinates;
    for (const auto part : split(text, ';')) {
        const auto coordinate = parseCoordinate(std::string(part));
        if (!coordinate) {
            return std::nullopt;
        }
        coordinates.push_back(*coordinate);
    }
    return coordinates;
}

std::optional<std::set<std::int64_t>> parseIDs(const std::string& text) {
    std::set<std::int64_t> ids;
    for (const auto part : split(text, ',')) {
        const auto id = number<std::int64_t>(part);
        if (!id) {
            return std::nullopt;
        }
        ids.insert(*id);
    }
    return ids;
}

} // namespace trackloom::cli
