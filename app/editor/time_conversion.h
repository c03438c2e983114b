#pragma once

#include "core/base/instant.h"

#include <QDateTime>
#include <cmath>

namespace trackloom {

/// The instant as a date and time in UTC or in the local zone, to the millisecond.
inline QDateTime dateTimeOf(Instant instant, bool utc) {
    const auto milliseconds = static_cast<qint64>(std::llround(instant.unixSeconds() * 1000.0));
    return QDateTime::fromMSecsSinceEpoch(milliseconds, utc ? Qt::UTC : Qt::LocalTime);
}

inline Instant instantOf(const QDateTime& dateTime) {
    return Instant::fromUnixSeconds(static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0);
}

} // namespace trackloom
