#include "app/editor/editor_exports.h"

#include "app/editor/editor_files.h"
#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "app/shell/file_names.h"
#include "core/base/file_io.h"
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

// The section of the selected point, when a point is selected.
const GPXSegment* selectedSegment(const EditorModel& model) {
    const auto& track = model.track();
    const auto selected = model.selectedPointID();
    if (!track || !selected) {
        return nullptr;
    }
    const auto& point = track->points().at(static_cast<std::size_t>(*selected));
    const auto found = std::ranges::find(track->segments(), point.segment, &GPXSegment::id);
    return found == track->segments().end() ? nullptr : &*found;
}

} // namespace

std::optional<QString> EditorExports::refusal() const {
    const QString fixTimes = tr("Bitte erzeuge oder korrigiere zuerst die Zeitstempel.");
    if (!m_model.track()) {
        return fixTimes;
    }
    if (m_model.isEditing()) {
        return EditorModel::tr("Bitte warte, bis die laufende Bearbeitung fertig ist.");
    }
    if (m_model.timeFields().showsOtherTimes()) {
        return tr("Bitte übernimm zuerst die gewünschten Zeiten.");
    }
    if (!m_model.canShift()) {
        return fixTimes;
    }
    return std::nullopt;
}

std::optional<QString> EditorExports::sectionRefusal() const {
    if (m_model.isEditing()) {
        return EditorModel::tr("Bitte warte, bis die laufende Bearbeitung fertig ist.");
    }
    if (m_model.timeFields().showsOtherTimes()) {
        return tr("Bitte übernimm zuerst die gewünschten Zeiten.");
    }
    if (!selectedSegment(m_model)) {
        return tr("Kein Abschnitt ausgewählt.");
    }
    return std::nullopt;
}

std::optional<QString> EditorExports::destination(const QString& title,
                                                  const QString& suggestedName) {
    return m_model.m_dialogs.fileToSave(title, suggestedName, gpxFileFilters(),
                                        m_model.protectedPaths());
}

void EditorExports::exportTrack() {
    exportWhole(false);
}

void EditorExports::exportSingleTrack() {
    exportWhole(true);
}

void EditorExports::exportWhole(bool asSingleTrack) {
    if (const auto refused = refusal()) {
        m_model.setError(*refused);
        return;
    }
    const auto chosen = asSingleTrack ? destination(tr("Als ein Track exportieren"),
                                                    singleTrackExportName(m_model.filename()))
                                      : destination(tr("Bearbeiteten GPX-Track speichern"),
                                                    editedExportName(m_model.filename()));
    if (!chosen) {
        return;
    }
    const QString file = QFileInfo(*chosen).fileName();
    write({asSingleTrack ? EditorExport::Kind::singleTrack : EditorExport::Kind::whole,
           m_model.track(), m_model.timeFields().pendingShift(), 0, *chosen,
           asSingleTrack ? tr("Gesichert als ein Track mit einem Abschnitt, wie ihn Navigations- "
                              "und Reise-Apps importieren. (") +
                               file + QStringLiteral(")")
                         : tr("GPX exportiert: ") + file});
}

void EditorExports::exportSelectedSegment() {
    if (const auto refused = sectionRefusal()) {
        m_model.setError(*refused);
        return;
    }
    const GPXSegment& segment = *selectedSegment(m_model);
    if (const auto chosen = destination(
            tr("Abschnitt exportieren"),
            sectionExportName(m_model.filename(), QString::fromStdString(segment.name)))) {
        write({EditorExport::Kind::section, m_model.track(), m_model.timeFields().pendingShift(),
               segment.id, *chosen, tr("Abschnitt gespeichert: ") + QFileInfo(*chosen).fileName()});
    }
}

void EditorExports::write(EditorExport plan) {
    // The dialog refused these already; a path that reached us another way
    // is refused here, before anything is written.
    if (const auto refused =
            protectedDestinationRefusal(plan.destination, m_model.protectedPaths())) {
        m_model.setError(*refused);
        return;
    }
    m_model.setStatus(tr("GPX-Datei wird geschrieben …"));
    // Only the whole track counts as saving the edits.
    auto* session = m_model.m_session.get();
    std::optional<EditorModel::WrittenState> saved;
    TrackPtr source;
    if (plan.kind != EditorExport::Kind::section && session) {
        saved = EditorModel::WrittenState{session->workingBytes(), session->timing(), plan.shiftTo};
        source = session->workingSource();
    }
    const QString successStatus = plan.successStatus;
    m_model.m_jobs.start<bool>(
        EditorModel::writeLane,
        [plan = std::move(plan)](const JobContext&) {
            writeFileAtomically(localPath(plan.destination), exportedBytes(plan));
            return true;
        },
        [this, saved = std::move(saved), source = std::move(source), successStatus](bool) {
            if (saved) {
                m_model.markExported(*saved, source);
            }
            m_model.clearError();
            m_model.setStatus(successStatus);
        },
        [this](const QString& failure) { m_model.fail(failure, tr("Export fehlgeschlagen.")); });
}

} // namespace trackloom
