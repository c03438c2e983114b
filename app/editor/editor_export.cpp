// The three exports: the whole edited track, the same as one track of one
// section, and the section of the selected point. In shift mode the start
// chosen in the time fields is applied while writing. No export ever writes
// over a file that was opened or appended, or the timeline a day came from.

#include "app/editor/editor_files.h"
#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/base/original_file_protection.h"
#include "core/editing/segment_merging.h"
#include "core/editing/time_operations.h"

#include <QFileInfo>

namespace trackloom {

/// What to write where, captured on the main thread.
struct EditorExport {
    enum class Kind { whole, singleTrack, section };
    Kind kind = Kind::whole;
    TrackPtr track;
    std::optional<Instant> shiftTo;
    std::int64_t segmentID = 0;
    QString destination;
    QString successStatus;
};

namespace {

std::string exportedBytes(const EditorExport& plan);

} // namespace

std::optional<Instant> EditorModel::pendingShift() const {
    if (m_generate || !m_track || !m_track->start() || *m_track->start() == m_newStart) {
        return std::nullopt;
    }
    return m_newStart;
}

std::optional<QString> EditorModel::exportRefusal() const {
    const QString fixTimes = tr("Bitte erzeuge oder korrigiere zuerst die Zeitstempel.");
    if (!m_track) {
        return fixTimes;
    }
    if (!timeFieldsApplied()) {
        return tr("Bitte übernimm zuerst die gewünschten Zeiten.");
    }
    if (!canShift()) {
        return fixTimes;
    }
    return std::nullopt;
}

std::optional<QString> EditorModel::protectionError(const QString& destination) const {
    QStringList opened = m_protectedGPXURLs;
    if (m_protectedTimelineURL) {
        opened.append(*m_protectedTimelineURL);
    }
    try {
        for (const QString& path : opened) {
            OriginalFileProtection::checkExport(localPath(destination), localPath(path));
        }
    } catch (const GPXError& error) {
        return QString::fromStdString(error.message());
    }
    return std::nullopt;
}

void EditorModel::exportTrack() {
    if (const auto refusal = exportRefusal()) {
        setError(*refusal);
        return;
    }
    const auto destination = m_dialogs.fileToSave(tr("Bearbeiteten GPX-Track speichern"),
                                                  editedExportName(m_filename), gpxFileFilters());
    if (destination) {
        writeExport({EditorExport::Kind::whole, m_track, pendingShift(), 0, *destination,
                     tr("GPX exportiert: ") + QFileInfo(*destination).fileName()});
    }
}

void EditorModel::exportSingleTrack() {
    if (const auto refusal = exportRefusal()) {
        setError(*refusal);
        return;
    }
    const auto destination = m_dialogs.fileToSave(
        tr("Als ein Track exportieren"), singleTrackExportName(m_filename), gpxFileFilters());
    if (destination) {
        writeExport({EditorExport::Kind::singleTrack, m_track, pendingShift(), 0, *destination,
                     tr("Gesichert. In Vandrel: Strecke öffnen → Gefahrene Route → Route aus GPX "
                        "importieren. (") +
                         QFileInfo(*destination).fileName() + QStringLiteral(")")});
    }
}

void EditorModel::exportSelectedSegment() {
    if (!timeFieldsApplied()) {
        setError(tr("Bitte übernimm zuerst die gewünschten Zeiten."));
        return;
    }
    static const std::vector<GPXSegment> noSegments;
    const auto& segments = m_track ? m_track->segments() : noSegments;
    auto segment = segments.end();
    if (m_track && m_selectedPointID) {
        const auto& point = m_track->points().at(static_cast<std::size_t>(*m_selectedPointID));
        segment = std::ranges::find(segments, point.segment, &GPXSegment::id);
    }
    if (segment == segments.end()) {
        setError(tr("Kein Abschnitt ausgewählt."));
        return;
    }
    const auto destination = m_dialogs.fileToSave(
        tr("Abschnitt exportieren"),
        sectionExportName(m_filename, QString::fromStdString(segment->name)), gpxFileFilters());
    if (destination) {
        writeExport({EditorExport::Kind::section, m_track, pendingShift(), segment->id,
                     *destination,
                     tr("Abschnitt gespeichert: ") + QFileInfo(*destination).fileName()});
    }
}

void EditorModel::writeExport(EditorExport plan) {
    if (const auto refusal = protectionError(plan.destination)) {
        setError(*refusal);
        return;
    }
    setStatus(tr("GPX-Datei wird geschrieben …"));
    // Only the whole track counts as saving the edits.
    const TrackPtr saved = plan.kind == EditorExport::Kind::section || !m_session
                               ? nullptr
                               : m_session->workingSource();
    inBackground([=, this]() -> Publish {
        try {
            writeFileAtomically(localPath(plan.destination), exportedBytes(plan));
            return [=, this] {
                if (saved) {
                    retire(std::move(m_lastExportedSource));
                    m_lastExportedSource = saved;
                    setStructuralDirty(false);
                }
                clearError();
                setStatus(plan.successStatus);
            };
        } catch (const GPXError& error) {
            return [=, this, message = QString::fromStdString(error.message())] {
                fail(message, tr("Export fehlgeschlagen."));
            };
        }
    });
}

namespace {

std::string exportedBytes(const EditorExport& plan) {
    using Kind = EditorExport::Kind;
    if (!plan.shiftTo && plan.kind == Kind::whole) {
        return plan.track->data();
    }
    TrackPtr track = plan.track;
    if (plan.shiftTo) {
        auto bytes = shifted(*track, *plan.shiftTo);
        if (plan.kind == Kind::whole) {
            return bytes;
        }
        track = GPXTrack::read(bytes, track->name());
    }
    if (plan.kind == Kind::singleTrack) {
        return singleTrack(*track, track->name())->data();
    }
    return track->exportingSegment(plan.segmentID)->data();
}

} // namespace

} // namespace trackloom
