#pragma once

// Looking up time zones in the system's zone database. Callers look a zone up
// once and pass the pointer on; nothing per point goes through here.

#include <date/tz.h>
#include <string_view>

namespace trackloom {

/// The zone named by the TZ environment variable when it names a known zone,
/// else the system's configured zone, else UTC. Looked up on every call.
const date::time_zone* systemTimeZone();

/// The zone with this IANA name (such as "Europe/Berlin"), absent if unknown.
const date::time_zone* findTimeZone(std::string_view name);

} // namespace trackloom
