#include "bench/support/large_timeline.h"

#include "core/base/file_io.h"
#include "core/timeline/timeline_document.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <date/date.h>
#include <stdexcept>
#include <string>

namespace trackloom::bench {
namespace {

constexpr std::size_t targetSize = 250'000'000;

/// xorshift64*: the same numbers on every machine, unlike the standard
/// library's distributions.
class Random {
  public:
    double unit() {
        m_state ^= m_state >> 12;
        m_state ^= m_state << 25;
        m_state ^= m_state >> 27;
        return static_cast<double>((m_state * 2685821657736338717ULL) >> 11) * 0x1p-53;
    }
    long between(long low, long high) {
        return low + static_cast<long>(unit() * static_cast<double>(high - low + 1));
    }

  private:
    std::uint64_t m_state = 20240501;
};

/// Central European time without the zone database: summer time from April
/// to October is close enough for test data.
int offsetMinutes(long unixSeconds) {
    const date::year_month_day day{
        date::floor<date::days>(date::sys_seconds(std::chrono::seconds(unixSeconds)))};
    const unsigned month = static_cast<unsigned>(day.month());
    return month >= 4 && month <= 10 ? 120 : 60;
}

std::string localTime(long unixSeconds) {
    const int offset = offsetMinutes(unixSeconds);
    const auto local = date::sys_seconds(std::chrono::seconds(unixSeconds + offset * 60L));
    const auto days = date::floor<date::days>(local);
    const date::year_month_day day{days};
    const date::hh_mm_ss time{local - days};
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02uT%02ld:%02ld:%02ld.000+%02d:00",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<long>(time.hours().count()),
                  static_cast<long>(time.minutes().count()),
                  static_cast<long>(time.seconds().count()), offset / 60);
    return buffer;
}

struct Position {
    double latitude = 50.7374;
    double longitude = 7.0982;
};

std::string latLng(Position at) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.7f\xc2\xb0, %.7f\xc2\xb0", at.latitude, at.longitude);
    return buffer;
}

class Generator {
  public:
    std::string run() {
        m_out.reserve(targetSize + (1 << 20));
        m_out += "{\n  \"semanticSegments\": [";
        for (bool first = true; m_out.size() < targetSize; first = false) {
            m_out += first ? "\n" : ",\n";
            const double kind = m_random.unit();
            if (kind < 0.6) {
                appendPath();
            } else if (kind < 0.85) {
                appendVisit();
            } else {
                appendActivity();
            }
        }
        m_out += "\n  ],\n  \"rawSignals\": [],\n  \"userLocationProfile\": {\n"
                 "    \"frequentPlaces\": []\n  }\n}\n";
        if (m_out.size() > maximumTimelineFileSize) {
            throw std::logic_error("the generated history must stay within the size limit");
        }
        return std::move(m_out);
    }

  private:
    void appendTimes(long start, long end) {
        m_out +=
            "    {\n      \"startTime\": \"" + localTime(start) + "\",\n      \"endTime\": \"" +
            localTime(end) + "\",\n      \"startTimeTimezoneUtcOffsetMinutes\": " +
            std::to_string(offsetMinutes(start)) +
            ",\n      \"endTimeTimezoneUtcOffsetMinutes\": " + std::to_string(offsetMinutes(end)) +
            ",\n";
    }

    void wander(double step) {
        m_at.latitude += (m_random.unit() - 0.5) * step;
        m_at.longitude += (m_random.unit() - 0.5) * step;
    }

    void appendPath() {
        const long count = m_random.between(10, 60);
        std::string points;
        long time = m_time;
        for (long i = 0; i < count; ++i) {
            time += m_random.between(20, 120);
            wander(0.002);
            points += i == 0 ? "\n" : ",\n";
            points += "        {\n          \"point\": \"" + latLng(m_at) +
                      "\",\n          \"time\": \"" + localTime(time) + "\"\n        }";
        }
        appendTimes(m_time, time);
        m_out += "      \"timelinePath\": [" + points + "\n      ]\n    }";
        m_time = time + m_random.between(60, 1800);
    }

    void appendVisit() {
        static constexpr const char* types[] = {"HOME", "WORK", "UNKNOWN", "INFERRED_HOME",
                                                "SEARCHED_ADDRESS"};
        const long end = m_time + m_random.between(1200, 36000);
        char place[128];
        std::snprintf(place, sizeof place, "ChIJ%016llx",
                      static_cast<unsigned long long>(m_random.unit() * 1e18));
        appendTimes(m_time, end);
        m_out +=
            "      \"visit\": {\n        \"hierarchyLevel\": 0,\n        \"probability\": 0.85,\n"
            "        \"topCandidate\": {\n          \"placeId\": \"" +
            std::string(place) + "\",\n          \"semanticType\": \"" +
            types[m_random.between(0, 4)] +
            "\",\n          \"probability\": 0.9,\n          \"placeLocation\": {\n"
            "            \"latLng\": \"" +
            latLng(m_at) + "\"\n          }\n        }\n      }\n    }";
        m_time = end;
    }

    void appendActivity() {
        static constexpr const char* types[] = {"IN_PASSENGER_VEHICLE", "WALKING", "CYCLING",
                                                "IN_TRAIN", "FLYING"};
        const long end = m_time + m_random.between(600, 5400);
        const auto start = m_at;
        wander(m_random.unit() < 0.05 ? 8.0 : 0.2);
        appendTimes(m_time, end);
        m_out += "      \"activity\": {\n        \"start\": {\n          \"latLng\": \"" +
                 latLng(start) + "\"\n        },\n        \"end\": {\n          \"latLng\": \"" +
                 latLng(m_at) + "\"\n        },\n        \"distanceMeters\": " +
                 std::to_string(m_random.between(500, 50000)) +
                 ",\n        \"topCandidate\": {\n          \"type\": \"" +
                 types[m_random.between(0, 4)] +
                 "\",\n          \"probability\": 0.8\n        }\n      }\n    }";
        m_time = end;
    }

    std::string m_out;
    Random m_random;
    Position m_at;
    long m_time = 1325376000; // 2012-01-01T00:00:00Z
};

} // namespace

std::filesystem::path ensureLargeTimeline(const std::filesystem::path& folder) {
    const auto path = folder / "large-generated-timeline.json";
    if (!std::filesystem::exists(path)) {
        std::filesystem::create_directories(folder);
        writeFileAtomically(path, Generator().run());
    }
    return path;
}

} // namespace trackloom::bench
