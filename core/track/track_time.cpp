#include "core/track/track_time.h"

#include "core/base/text_trimming.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <date/date.h>

namespace trackloom {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

int digitsValue(std::string_view text, std::size_t position, std::size_t count) {
    int value = 0;
    for (std::size_t i = position; i < position + count; ++i) {
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

/// The fixed part "YYYY-MM-DDTHH:MM:SS": digits where digits belong, separators
/// where separators belong.
bool matchesDateTimeShape(std::string_view text) {
    static constexpr std::string_view shape = "dddd-dd-ddTdd:dd:dd";
    if (text.size() < shape.size()) {
        return false;
    }
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == 'd' ? !isDigit(text[i]) : text[i] != shape[i]) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<Instant> parseTrackTime(std::string_view input) {
    const auto text = trimmedWhitespace(input);
    if (!matchesDateTimeShape(text)) {
        return std::nullopt;
    }
    std::size_t position = 19;
    std::string_view fraction;
    if (position < text.size() && text[position] == '.') {
        const auto digitsStart = position + 1;
        position = digitsStart;
        while (position < text.size() && isDigit(text[position])) {
            ++position;
        }
        if (position == digitsStart) {
            return std::nullopt;
        }
        fraction = text.substr(digitsStart, position - digitsStart);
    }
    int offsetSeconds = 0;
    const auto zone = text.substr(position);
    if (zone == "Z") {
        offsetSeconds = 0;
    } else if (zone.size() == 6 && (zone[0] == '+' || zone[0] == '-') && isDigit(zone[1]) &&
               isDigit(zone[2]) && zone[3] == ':' && isDigit(zone[4]) && isDigit(zone[5])) {
        const int hours = digitsValue(zone, 1, 2);
        const int minutes = digitsValue(zone, 4, 2);
        if (hours > 23 || minutes > 59) {
            return std::nullopt;
        }
        offsetSeconds = (zone[0] == '-' ? -1 : 1) * (hours * 3600 + minutes * 60);
    } else {
        return std::nullopt;
    }

    const date::year_month_day day{date::year(digitsValue(text, 0, 4)),
                                   date::month(static_cast<unsigned>(digitsValue(text, 5, 2))),
                                   date::day(static_cast<unsigned>(digitsValue(text, 8, 2)))};
    const int hour = digitsValue(text, 11, 2);
    const int minute = digitsValue(text, 14, 2);
    const int second = digitsValue(text, 17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const auto days = date::sys_days(day).time_since_epoch().count();
    const double wholeUnix =
        static_cast<double>(days) * 86400.0 + hour * 3600 + minute * 60 + second - offsetSeconds;
    double fractionValue = 0;
    if (!fraction.empty()) {
        std::string decimal = "0.";
        decimal.append(fraction.substr(0, 40));
        std::from_chars(decimal.data(), decimal.data() + decimal.size(), fractionValue);
    }
    // Rounded once in the 1970-based value, so that writing the instant again
    // (which works from that value) sees the nearest double to the text.
    return Instant::fromUnixSeconds(wholeUnix + fractionValue);
}

std::string formatTrackTime(Instant instant) {
    const double seconds = instant.unixSeconds();
    auto whole = std::trunc(seconds);
    auto micro = static_cast<long long>(std::trunc((seconds - whole) * 1000000.0));
    if (micro == 1000000) {
        whole += 1;
        micro = 0;
    }
    const auto wholeSeconds = static_cast<long long>(whole);
    const auto days =
        date::floor<date::days>(date::sys_seconds(std::chrono::seconds(wholeSeconds)));
    const date::year_month_day day(days);
    const auto timeOfDay = wholeSeconds - days.time_since_epoch().count() * 86400LL;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02uT%02lld:%02lld:%02lld.%06lldZ",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), timeOfDay / 3600, timeOfDay / 60 % 60,
                  timeOfDay % 60, micro);
    return buffer;
}

} // namespace trackloom
