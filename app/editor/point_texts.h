#pragma once

// How the editor's panels write a point's time, position and elevation, so
// that the summary, the lists and the point details read alike.

#include "core/base/instant.h"
#include "core/track/track_model.h"

#include <QString>
#include <date/tz.h>
#include <optional>

namespace trackloom {

/// "01.06.2025 12:00:00 Europe/Berlin": the wall clock in `zone`, named; "–"
/// without a time.
QString zonedTimeText(std::optional<Instant> time, const date::time_zone& zone);
/// The zone as users know it: "UTC" for every name of UTC ("Etc/UTC", "Zulu"
/// …), else its database name.
QString zoneText(const date::time_zone& zone);
/// "48,13714° N, 11,57549° O": five decimals, about a metre.
QString coordinateText(const Coordinate& coordinate);
/// "519 m", at most one decimal; "–" without a value.
QString elevationText(std::optional<double> metres);

} // namespace trackloom
