// Everything that changes the session: edits, undo and redo, generated times
// and hiding air routes. Each runs on the model's job runner with the session
// lent to it, and comes back with a status text or the refusal.

#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "core/base/gpx_error.h"

namespace trackloom {

bool EditorModel::requireEditable() {
    if (!m_track) {
        setError(tr("Bitte öffne zuerst einen Track."));
        return false;
    }
    if (isEditing()) {
        setError(tr("Bitte warte, bis die laufende Bearbeitung fertig ist."));
        return false;
    }
    return m_session != nullptr;
}

bool EditorModel::queuedWhileEditing(std::function<void()> request) {
    if (!isEditing()) {
        return false;
    }
    m_queued.push_back(std::move(request));
    const auto waiting = m_queued.size() == 1
                             ? tr("1 weitere Aktion vorgemerkt")
                             : tr("%1 weitere Aktionen vorgemerkt").arg(m_queued.size());
    setStatus(m_running + QStringLiteral(" · ") + waiting);
    return true;
}

void EditorModel::runNextQueued() {
    if (m_queued.empty()) {
        return;
    }
    const auto next = std::move(m_queued.front());
    m_queued.pop_front();
    next();
}

void EditorModel::runOnSession(SessionWork work, SessionEffects effects, const QString& running) {
    m_lentSession = std::move(m_session);
    m_running = running;
    setStatus(running);
    emit trackChanged();
    m_jobs.start<QString>(
        editLane,
        [work = std::move(work), session = m_lentSession](const JobContext&) {
            return work(*session);
        },
        [this, effects](QString status) { finishSessionWork(effects, status); },
        [this, effects](const QString& failure) { failSessionWork(effects, failure); });
}

void EditorModel::failSessionWork(const SessionEffects& effects, const QString& failure) {
    // The session operations change nothing when they refuse, so the lent
    // session comes back as it was (unless showing the result failed after
    // it had come back).
    if (m_lentSession) {
        m_session = std::move(m_lentSession);
    }
    updateUnsavedWork();
    setError(failure);
    if (effects.failureStatus) {
        setStatus(*effects.failureStatus);
    }
    if (!m_queued.empty()) {
        // They were asked for on top of what was just refused.
        m_queued.clear();
        setStatus(m_status + QStringLiteral(" ") + tr("Vorgemerkte Aktionen wurden verworfen."));
    }
    emit trackChanged();
}

void EditorModel::finishSessionWork(const SessionEffects& effects, const QString& status) {
    m_session = std::move(m_lentSession);
    m_jobs.retire(std::move(m_track));
    m_track = m_session->track();
    if (effects.succeeded) {
        effects.succeeded(status);
    }
    if (effects.structural) {
        setStructuralDirty(true);
    }
    clearError();
    m_timeFields.follow(*m_track, false);
    updateUnsavedWork();
    refreshMap(effects.fitsMap, effects.keeping);
    setStatus(status);
    emit trackChanged();
    runNextQueued();
}

void EditorModel::editSelected(std::function<void(GPXEditingSession&, std::int64_t)> edit,
                               const QString& running, const QString& done,
                               std::optional<std::int64_t> keeping) {
    if (!requireEditable()) {
        return;
    }
    if (!m_selectedPointID) {
        setError(tr("Bitte wähle einen Streckenpunkt aus."));
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = keeping;
    runOnSession(
        [edit, done, displayed = *m_selectedPointID](GPXEditingSession& session) {
            edit(session, displayed);
            return done;
        },
        std::move(effects), running);
}

void EditorModel::splitSelected() {
    if (queuedWhileEditing([this] { splitSelected(); })) {
        return;
    }
    editSelected(
        [first = m_firstPartName.toStdString(), second = m_secondPartName.toStdString()](
            GPXEditingSession& session, std::int64_t at) { session.split(at, first, second); },
        tr("Track wird geteilt …"),
        tr("Track geteilt. Beide Abschnitte behalten den gemeinsamen Grenzpunkt."),
        m_selectedPointID);
}

void EditorModel::trimBeforeSelected() {
    if (queuedWhileEditing([this] { trimBeforeSelected(); })) {
        return;
    }
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.trimStart(at); },
                 tr("Punkte werden entfernt …"), tr("Alle Punkte vor dem gewählten entfernt."), 0);
}

void EditorModel::trimAfterSelected() {
    if (queuedWhileEditing([this] { trimAfterSelected(); })) {
        return;
    }
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.trimEnd(at); },
                 tr("Punkte werden entfernt …"), tr("Alle Punkte nach dem gewählten entfernt."),
                 m_selectedPointID);
}

void EditorModel::deleteSelected() {
    // The point after the deleted one takes its place in the selection, so a
    // second Delete pressed while the first runs takes the next point.
    if (queuedWhileEditing([this] { deleteSelected(); })) {
        return;
    }
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.deletePoint(at); },
                 tr("Punkt wird gelöscht …"), tr("Punkt gelöscht."), m_selectedPointID);
}

void EditorModel::mergeSegments() {
    if (queuedWhileEditing([this] { mergeSegments(); })) {
        return;
    }
    if (!requireEditable()) {
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = m_selectedPointID;
    runOnSession(
        [](GPXEditingSession& session) {
            session.mergeSegments();
            return tr("Alle Abschnitte zu einem zusammengefügt.");
        },
        std::move(effects), tr("Abschnitte werden zusammengefügt …"));
}

void EditorModel::undo() {
    if (queuedWhileEditing([this] { undo(); })) {
        return;
    }
    if (!canUndo()) {
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = m_selectedPointID;
    runOnSession(
        [](GPXEditingSession& session) {
            session.undo();
            return tr("Track-Bearbeitung rückgängig gemacht.");
        },
        std::move(effects), tr("Rückgängig …"));
}

void EditorModel::redo() {
    if (queuedWhileEditing([this] { redo(); })) {
        return;
    }
    if (!canRedo()) {
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = m_selectedPointID;
    runOnSession(
        [](GPXEditingSession& session) {
            session.redo();
            return tr("Track-Bearbeitung wiederhergestellt.");
        },
        std::move(effects), tr("Wiederherstellen …"));
}

void EditorModel::previewGenerated() {
    if (queuedWhileEditing([this] { previewGenerated(); })) {
        return;
    }
    if (const auto refusal = m_timeFields.generationError()) {
        setError(*refusal);
        return;
    }
    if (!requireEditable()) {
        return;
    }
    SessionEffects effects;
    effects.keeping = m_selectedPointID;
    const Instant start = m_timeFields.newStart();
    if (m_timeFields.generationMode() == GenerationMode::speed) {
        runOnSession(
            [start, kmh = m_timeFields.syntheticSpeed()](GPXEditingSession& session) {
                session.generate(start, kmh);
                return tr("Zeitstempel mit ") + shortDecimalText(kmh, 2) +
                       tr(" km/h erzeugt. Bereit zum Export.");
            },
            std::move(effects), tr("Zeitstempel werden erzeugt …"));
        return;
    }
    runOnSession(
        [start, end = m_timeFields.newEnd()](GPXEditingSession& session) {
            session.generate(start, end);
            const auto average = session.track()->analysis().averageSpeed().value_or(0);
            return tr("Start und Ende übernommen · Ø ") + decimalText(average, 1) +
                   tr(" km/h · Bereit zum Export.");
        },
        std::move(effects), tr("Zeitstempel werden erzeugt …"));
}

void EditorModel::setAirRouteRemoval(bool remove) {
    const auto done = remove ? tr("Luftlinien-Routen ausgeblendet; sie werden beim Export "
                                  "entfernt.")
                             : tr("Luftlinien-Routen werden angezeigt, mitgerechnet und "
                                  "exportiert.");
    const auto adopt = [this, remove] {
        m_settings.setValue(QStringLiteral("removeAirRoutes"), remove);
        m_removeAirRoutes = remove;
        emit removeAirRoutesChanged();
    };
    if (!m_track) {
        adopt();
        setStatus(done);
        return;
    }
    if (queuedWhileEditing([this, remove] { setAirRouteRemoval(remove); })) {
        // The screens keep showing the choice in effect until it runs.
        emit removeAirRoutesChanged();
        return;
    }
    SessionEffects effects;
    effects.keeping = m_selectedPointID;
    effects.succeeded = [adopt](const QString&) { adopt(); };
    runOnSession(
        [remove, done](GPXEditingSession& session) {
            session.setRemovesAirRoutes(remove);
            return done;
        },
        std::move(effects),
        remove ? tr("Luftlinien-Routen werden ausgeblendet …")
               : tr("Luftlinien-Routen werden eingeblendet …"));
}

void EditorModel::dragPoint(std::int64_t displayed, Coordinate to) {
    if (!requireEditable()) {
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = displayed;
    runOnSession(
        [displayed, to](GPXEditingSession& session) {
            session.move(displayed, to);
            return tr("Punkt verschoben.");
        },
        std::move(effects), tr("Punkt wird verschoben …"));
}

} // namespace trackloom
