// Exports, working copies and the hand-overs to the other workspaces. Nothing
// here ever writes over a file the user opened.

#include "app/shell/file_names.h"
#include "app/shell/file_paths.h"
#include "app/timeline/timeline_model.h"
#include "core/base/file_io.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace trackloom {
namespace {

QStringList gpxFilters() {
    return {QCoreApplication::translate("trackloom::TimelineModel", "GPX-Dateien (*.gpx)")};
}

QStringList workingCopyFilters() {
    return {
        QCoreApplication::translate("trackloom::TimelineModel", "Arbeitskopien (*.gpxhistory)")};
}

} // namespace

std::optional<QString> TimelineModel::chooseDestination(const QString& title,
                                                        const QString& suggestedName,
                                                        const QStringList& filters) {
    // The dialog refuses the opened files before it asks about replacing
    // anything; the check here is the last line of defence.
    const auto destination = m_dialogs.fileToSave(title, suggestedName, filters, m_protectedURLs);
    if (!destination) {
        return std::nullopt;
    }
    if (const auto refusal = protectedDestinationRefusal(*destination, m_protectedURLs)) {
        setError(*refusal);
        return std::nullopt;
    }
    return destination;
}

void TimelineModel::writeInBackground(std::function<std::string()> bytes,
                                      const QString& destination, const QString& doneStatus,
                                      bool clearsDirty) {
    clearError();
    m_jobs.start<bool>(
        saveLane,
        [bytes = std::move(bytes), file = localPath(destination)](const JobContext&) {
            writeFileAtomically(file, bytes());
            return true;
        },
        [this, doneStatus, clearsDirty](bool) {
            if (clearsDirty) {
                setDirty(false);
            }
            setStatus(doneStatus);
        },
        [this](const QString& message) { fail(message, tr("Speichern fehlgeschlagen.")); });
}

void TimelineModel::exportDay() {
    if (!canEdit() || !hasScope() || !requireAppliedRange()) {
        if (!hasScope()) {
            setError(tr("Bitte zuerst einen Tag oder Zeitraum anzeigen."));
        }
        return;
    }
    TimelineGPX gpx;
    try {
        gpx = m_rangeMode ? m_session->gpxIn(*m_appliedRange, m_showActivities, m_showVisits)
                          : m_session->gpxOn(*m_selectedDay, m_showActivities, m_showVisits);
    } catch (const GPXError& error) {
        setError(QString::fromStdString(error.message()));
        return;
    }
    const auto destination =
        chooseDestination(tr("Auswahl als GPX exportieren"),
                          selectionFilename() + QStringLiteral(".gpx"), gpxFilters());
    if (destination) {
        writeInBackground([data = std::move(gpx.data)] { return data; }, *destination,
                          tr("Auswahl exportiert: ") + QFileInfo(*destination).fileName(), false);
    }
}

void TimelineModel::exportSection() {
    const auto section = selectedSection();
    const auto interval = scopeInterval();
    if (!canEdit() || !section || !interval) {
        setError(tr("Bitte Punkte eines einzigen Abschnitts auswählen."));
        return;
    }
    if (!requireAppliedRange()) {
        return;
    }
    TimelineGPX gpx;
    try {
        gpx = m_session->gpxIn(*interval, m_showActivities, m_showVisits, *section);
    } catch (const GPXError& error) {
        setError(QString::fromStdString(error.message()));
        return;
    }
    const auto destination = chooseDestination(
        tr("Abschnitt als GPX exportieren"),
        selectionFilename() + tr("-Abschnitt") + QStringLiteral(".gpx"), gpxFilters());
    if (destination) {
        writeInBackground([data = std::move(gpx.data)] { return data; }, *destination,
                          tr("Auswahl exportiert: ") + QFileInfo(*destination).fileName(), false);
    }
}

void TimelineModel::saveWorkingCopy(bool selectionOnly) {
    if (!canEdit()) {
        return;
    }
    if (!selectionOnly) {
        const auto destination = chooseDestination(
            tr("Gesamte Arbeitskopie sichern"),
            tr("Zeitachse-Arbeitskopie") + QStringLiteral(".gpxhistory"), workingCopyFilters());
        if (destination) {
            setStatus(tr("Arbeitskopie wird gespeichert …"));
            // The session is only read meanwhile: the model takes no edits while saving.
            writeInBackground(
                [session = m_session] { return session->workingCopy(); }, *destination,
                tr("Arbeitskopie gespeichert: ") + QFileInfo(*destination).fileName(), true);
        }
        return;
    }
    const auto interval = scopeInterval();
    if (!requireAppliedRange()) {
        return;
    }
    if (!interval || m_session->pointsIn(*interval).empty()) {
        setError(tr("Die Auswahl enthält keine Punkte."));
        return;
    }
    std::string bytes = m_session->workingCopy(*interval);
    const auto destination =
        chooseDestination(tr("Auswahl als neue Arbeitskopie sichern"),
                          selectionFilename() + tr("-Arbeitskopie") + QStringLiteral(".gpxhistory"),
                          workingCopyFilters());
    if (destination) {
        setStatus(tr("Arbeitskopie wird gespeichert …"));
        writeInBackground([bytes = std::move(bytes)] { return bytes; }, *destination,
                          tr("Auswahl gespeichert: ") + QFileInfo(*destination).fileName(), false);
    }
}

void TimelineModel::openInEditor(TrackReceiver& receiver) {
    const auto interval = scopeInterval();
    if (!canEdit() || !interval) {
        setError(tr("Bitte zuerst einen Tag oder Zeitraum anzeigen."));
        return;
    }
    if (!requireAppliedRange()) {
        return;
    }
    TimelineGPX gpx;
    try {
        gpx = m_rangeMode ? m_session->gpxIn(*interval, m_showActivities, m_showVisits)
                          : m_session->gpxOn(interval->start, m_showActivities, m_showVisits);
    } catch (const GPXError& error) {
        setError(QString::fromStdString(error.message()));
        return;
    }
    clearError();
    const auto title = timelineExportTitle(*interval, m_session->calendar());
    receiver.receiveTrack({std::move(gpx.data), QString::fromStdString(title), m_sourceURL});
    setStatus(tr("Auswahl an den Track-Editor übergeben."));
}

void TimelineModel::explorePlaces(PlaceScopeReceiver& receiver) {
    if (!canEdit()) {
        return;
    }
    // Copying and ordering millions of points takes too long for the main
    // thread; the explorer opens once they are ready.
    setStatus(tr("Punkte für die Ortssuche werden vorbereitet …"));
    m_jobs.start<std::shared_ptr<const std::vector<TimelinePoint>>>(
        saveLane,
        [session = m_session](const JobContext&) {
            return std::make_shared<const std::vector<TimelinePoint>>(session->allPoints());
        },
        [this, &receiver, interval = scopeInterval(),
         title = scopeTitle()](std::shared_ptr<const std::vector<TimelinePoint>> points) {
            setStatus(tr("Ortssuche geöffnet: ") + title);
            receiver.explore({std::move(points), interval, title, m_zone, m_sourceURL});
        },
        [this](const QString& message) { setError(message); });
}

} // namespace trackloom
