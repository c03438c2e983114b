#include "core/track/track_time.h"

#include <date/date.h>
#include <gtest/gtest.h>
#include <random>
#include <regex>

namespace trackloom {
namespace {

Instant utc(int y, unsigned m, unsigned d, int hh, int mm, double ss) {
    const auto days = date::sys_days(date::year(y) / date::month(m) / date::day(d));
    return Instant::fromUnixSeconds(static_cast<double>(days.time_since_epoch().count()) * 86400 +
                                    hh * 3600 + mm * 60 + ss);
}

TEST(TrackTimeParsing, ZoneIsRequiredAndOffsetsApply) {
    EXPECT_EQ(parseTrackTime("2024-05-01T10:00:00Z"), utc(2024, 5, 1, 10, 0, 0));
    EXPECT_EQ(parseTrackTime(" \t2024-05-01T10:00:00.5+02:00\r\n"), utc(2024, 5, 1, 8, 0, 0.5));
    EXPECT_EQ(parseTrackTime("2024-05-01T00:30:00-01:30"), utc(2024, 5, 1, 2, 0, 0));
    EXPECT_EQ(parseTrackTime("\xc2\xa0"
                             "2024-05-01T10:00:00Z"),
              utc(2024, 5, 1, 10, 0, 0));
    for (const auto* text :
         {"2024-05-01T10:00:00", "2024-05-01 10:00:00Z", "2024-05-01t10:00:00Z",
          "2024-05-01T10:00:00z", "2024-05-01T10:00:00.Z", "2024-05-01T10:00:00+0200",
          "2024-02-30T10:00:00Z", "2024-13-01T10:00:00Z", "2024-05-01T24:00:00Z", "", "Z"}) {
        EXPECT_FALSE(parseTrackTime(text)) << text;
    }
}

TEST(TrackTimeParsing, FractionsOfAnyLengthKeepTheirPrecision) {
    EXPECT_NEAR(parseTrackTime("2016-05-27T10:08:47.8Z")->unixSeconds(),
                utc(2016, 5, 27, 10, 8, 47.8).unixSeconds(), 1e-6);
    const auto many = parseTrackTime("2024-05-01T10:00:00.123456789012345678901234567890Z");
    ASSERT_TRUE(many);
    EXPECT_NEAR(many->unixSeconds() - utc(2024, 5, 1, 10, 0, 0).unixSeconds(), 0.123456789, 1e-6);
}

// The reader must accept exactly what this expression accepts (and then only
// real calendar dates); a hand-written matcher replaces it for speed.
bool matchesExpression(const std::string& text) {
    static const std::regex expression(
        R"(^\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}(?:\.\d+)?(?:Z|[+-]\d{2}:\d{2})$)");
    return std::regex_match(text, expression);
}

bool hasRealFields(const std::string& text) {
    const auto number = [&](std::size_t at, std::size_t length) {
        return std::stoi(text.substr(at, length));
    };
    const date::year_month_day day{date::year(number(0, 4)),
                                   date::month(static_cast<unsigned>(number(5, 2))),
                                   date::day(static_cast<unsigned>(number(8, 2)))};
    const auto zone = text.substr(text.find_last_of("Z+-"));
    const bool zoneOk =
        zone == "Z" || (number(text.size() - 5, 2) < 24 && number(text.size() - 2, 2) < 60);
    return day.ok() && number(11, 2) < 24 && number(14, 2) < 60 && number(17, 2) < 60 && zoneOk;
}

TEST(TrackTimeParsing, AgreesWithTheRegularExpressionOnGeneratedTexts) {
    const std::vector<std::string> seeds = {"2024-05-01T10:00:00Z", "1999-12-31T23:59:59.999+01:00",
                                            "2024-02-29T00:00:00.5-05:30"};
    const std::string alphabet = "0123456789-:T.Z+ zt";
    std::mt19937 random(12345);
    int accepted = 0;
    for (int round = 0; round < 60000; ++round) {
        auto text = seeds[random() % seeds.size()];
        const int edits = 1 + static_cast<int>(random() % 3);
        for (int e = 0; e < edits && !text.empty(); ++e) {
            const auto at = random() % text.size();
            const char c = alphabet[random() % alphabet.size()];
            switch (random() % 4) {
            case 0:
                text[at] = c;
                break;
            case 1:
                text.insert(text.begin() + static_cast<long>(at), c);
                break;
            case 2:
                text.erase(at, 1);
                break;
            default:
                text[at] = static_cast<char>('0' + random() % 10);
                break;
            }
        }
        const auto first = text.find_first_not_of(' ');
        const auto trimmed = first == std::string::npos
                                 ? std::string()
                                 : text.substr(first, text.find_last_not_of(' ') - first + 1);
        const bool expected = matchesExpression(trimmed) && hasRealFields(trimmed);
        ASSERT_EQ(parseTrackTime(text).has_value(), expected) << text;
        accepted += expected;
    }
    EXPECT_GT(accepted, 1000);
}

TEST(TrackTimeFormatting, SixDigitsTruncatedNeverRounded) {
    EXPECT_EQ(formatTrackTime(utc(2025, 6, 1, 8, 30, 0)), "2025-06-01T08:30:00.000000Z");
    EXPECT_EQ(formatTrackTime(utc(2025, 6, 1, 8, 30, 0.25)), "2025-06-01T08:30:00.250000Z");
    EXPECT_EQ(formatTrackTime(Instant::fromUnixSeconds(1.9999999)), "1970-01-01T00:00:01.999999Z");
    EXPECT_EQ(formatTrackTime(Instant(0)), "2001-01-01T00:00:00.000000Z");
    const auto written = formatTrackTime(utc(2025, 6, 1, 8, 30, 0.25));
    EXPECT_EQ(parseTrackTime(written), utc(2025, 6, 1, 8, 30, 0.25));
}

} // namespace
} // namespace trackloom
