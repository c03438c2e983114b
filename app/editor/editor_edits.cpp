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
    // While an edit runs its session is lent out; the screens disable commands meanwhile.
    return m_session != nullptr;
}

void EditorModel::runOnSession(SessionWork work, SessionEffects effects) {
    m_lentSession = std::move(m_session);
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
}

void EditorModel::editSelected(std::function<void(GPXEditingSession&, std::int64_t)> edit,
                               const QString& done, std::optional<std::int64_t> keeping) {
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
        std::move(effects));
}

void EditorModel::splitSelected() {
    editSelected(
        [first = m_firstPartName.toStdString(), second = m_secondPartName.toStdString()](
            GPXEditingSession& session, std::int64_t at) { session.split(at, first, second); },
        tr("Track geteilt. Beide Abschnitte behalten den gemeinsamen Grenzpunkt."),
        m_selectedPointID);
}

void EditorModel::trimBeforeSelected() {
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.trimStart(at); },
                 tr("Alle Punkte vor dem gewählten entfernt."), 0);
}

void EditorModel::trimAfterSelected() {
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.trimEnd(at); },
                 tr("Alle Punkte nach dem gewählten entfernt."), m_selectedPointID);
}

void EditorModel::deleteSelected() {
    // The point after the deleted one takes its place in the selection.
    editSelected([](GPXEditingSession& session, std::int64_t at) { session.deletePoint(at); },
                 tr("Punkt gelöscht."), m_selectedPointID);
}

void EditorModel::mergeSegments() {
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
        std::move(effects));
}

void EditorModel::undo() {
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
        std::move(effects));
}

void EditorModel::redo() {
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
        std::move(effects));
}

void EditorModel::previewGenerated() {
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
            std::move(effects));
        return;
    }
    runOnSession(
        [start, end = m_timeFields.newEnd()](GPXEditingSession& session) {
            session.generate(start, end);
            const auto average = session.track()->analysis().averageSpeed().value_or(0);
            return tr("Start und Ende übernommen · Ø ") + decimalText(average, 1) +
                   tr(" km/h · Bereit zum Export.");
        },
        std::move(effects));
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
    if (!m_session) {
        // An edit runs; the screens keep showing the choice that is in effect.
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
        std::move(effects));
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
        std::move(effects));
}

} // namespace trackloom
