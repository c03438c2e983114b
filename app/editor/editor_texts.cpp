#include "app/editor/editor_texts.h"

#include "app/shell/file_names.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <cmath>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

QString transitionTimeText(const TrackPoint& last, const TrackPoint& first) {
    if (!last.time || !first.time) {
        return tr(" Am Übergang fehlen Zeitangaben.");
    }
    const double gap = first.time->secondsSince(*last.time);
    if (gap >= 0) {
        return tr(" Zeit zwischen den Tracks: ") + durationText(gap);
    }
    return tr(" Achtung: Der neue Track beginnt ") + durationText(-gap) +
           tr(" vor dem Ende des bisherigen Tracks.");
}

QString baseName(const QString& filename) {
    const QString base = QFileInfo(filename).completeBaseName().trimmed();
    return base.isEmpty() ? tr("Track") : base;
}

} // namespace

QString appendReport(const GPXTrack* before, const GPXTrack& appended, std::size_t newPointCount) {
    QString report = tr("Track angehängt · ") + QString::number(newPointCount) +
                     tr(" Punkte · Rückgängig ist möglich.");
    if (!before || before->points().empty() || appended.points().empty()) {
        return report;
    }
    const TrackPoint& last = before->points().back();
    const TrackPoint& first = appended.points().front();
    report +=
        tr(" Abstand am Übergang: ") + decimalText(GPXTrack::distance(last, first), 1) + tr(" m.");
    return report + transitionTimeText(last, first);
}

QString editedExportName(const QString& filename) {
    return baseName(filename) + tr(" (bearbeitet)") + QStringLiteral(".gpx");
}

QString singleTrackExportName(const QString& filename) {
    return baseName(filename) + tr(" (ein Track)") + QStringLiteral(".gpx");
}

QString sectionExportName(const QString& filename, const QString& sectionName) {
    const QString section = fileNamePart(sectionName);
    return baseName(filename) + QStringLiteral(" – ") +
           (section.isEmpty() ? tr("Abschnitt") : section) + QStringLiteral(".gpx");
}

} // namespace trackloom
