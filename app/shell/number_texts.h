#pragma once

// Numbers and durations in status texts and screens of every workspace. Texts
// are joined from fixed German pieces and plain numbers in the user's locale
// (no digit grouping), so that every piece can be translated on its own.

#include <QString>

namespace trackloom {

/// A number with exactly `decimals` fraction digits, without digit grouping:
/// 1234,5.
QString decimalText(double value, int decimals);
/// Like `decimalText`, with trailing zeros of the fraction dropped: 20, 12,5.
QString shortDecimalText(double value, int maxDecimals);

/// A duration in whole seconds, negative ones counted as 0: "12 min 5 s" below
/// an hour, "2 h 3 min" from an hour on.
QString durationText(double seconds);

/// A distance in metres below one kilometre, in kilometres with one decimal
/// from there on: "850 m", "12,4 km".
QString distanceText(double metres);

} // namespace trackloom
