#pragma once

// Numbers and reports in the editor's status texts and screens. Texts are
// joined from fixed German pieces and plain numbers in the user's locale
// (no digit grouping), so that every piece can be translated on its own.

#include "core/track/gpx_track.h"

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

/// The status after appending `appended` to a track that was shown as `before`
/// (null when nothing was shown): the new point count, the gap in metres and
/// in time at the transition, or a warning when the new track starts before
/// the old one ends.
QString appendReport(const GPXTrack* before, const GPXTrack& appended, std::size_t newPointCount);

/// Suggested names for exports of the file `filename`: "Runde (bearbeitet).gpx",
/// "Runde (ein Track).gpx" and "Runde – Hinweg.gpx" for the section "Hinweg".
/// Each carries a suffix, so none is ever the opened file's own name.
QString editedExportName(const QString& filename);
QString singleTrackExportName(const QString& filename);
QString sectionExportName(const QString& filename, const QString& sectionName);

} // namespace trackloom
