#include "core/editing/supported_years.h"

#include <cmath>
#include <date/tz.h>
#include <stdexcept>

namespace trackloom {
namespace {

// Unix seconds of 0001-01-01T00:00:00Z and 10000-01-01T00:00:00Z.
constexpr double firstSupportedSecond = -62135596800.0;
constexpr double endOfSupportedYears = 253402300800.0;
// Wider than any zone offset, so the calendar only sees instants it can convert.
constexpr double zoneMargin = 2 * 86400.0;

} // namespace

bool liesInSupportedYears(Instant instant, const date::time_zone* zone) {
    if (!instant.isFinite()) {
        return false;
    }
    const double unix = instant.unixSeconds();
    if (unix < firstSupportedSecond - zoneMargin || unix >= endOfSupportedYears + zoneMargin) {
        return false;
    }
    const date::sys_seconds utc{std::chrono::seconds(static_cast<long long>(std::floor(unix)))};
    const auto local = zone ? zone->to_local(utc) : date::local_seconds(utc.time_since_epoch());
    const date::year_month_day day(date::floor<date::days>(local));
    const int year = static_cast<int>(day.year());
    return year >= 1 && year <= 9999;
}

const date::time_zone* currentZoneOrUTC() {
    try {
        return date::current_zone();
    } catch (const std::exception&) {
        return nullptr;
    }
}

} // namespace trackloom
