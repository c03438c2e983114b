#pragma once

#include "core/base/instant.h"

namespace date {
class time_zone;
}

namespace trackloom {

/// Whether `instant` is finite and falls in a year from 1 to 9999 of the Gregorian
/// calendar in `zone` (UTC when `zone` is null).
bool liesInSupportedYears(Instant instant, const date::time_zone* zone);

/// The user's current time zone, or null (meaning UTC) when the system names none.
const date::time_zone* currentZoneOrUTC();

} // namespace trackloom
