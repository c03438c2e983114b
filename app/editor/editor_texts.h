#pragma once

// Reports and suggested file names in the editor's status texts and screens,
// joined from fixed German pieces and the shell's number texts.

#include "app/shell/number_texts.h"
#include "core/track/gpx_track.h"

#include <QString>

namespace trackloom {

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
