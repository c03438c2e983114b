// Everything that changes the session: edits, undo and redo, generated times,
// hiding air routes and the map tools. Each runs on the thread pool with the
// session lent to it, and comes back with a status text or the refusal.

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
    SessionPtr session = std::move(m_session);
    const auto epoch = m_sessionEpoch;
    emit trackChanged();
    inBackground([=, this]() -> Publish {
        try {
            QString status = work(*session);
            return [=, this] {
                if (epoch == m_sessionEpoch) {
                    finishSessionWork(session, effects, status);
                }
            };
        } catch (const GPXError& error) {
            return [=, this, message = QString::fromStdString(error.message())] {
                if (epoch == m_sessionEpoch) {
                    finishSessionWork(session, effects, std::nullopt, message);
                }
            };
        }
    });
}

void EditorModel::finishSessionWork(SessionPtr session, const SessionEffects& effects,
                                    const std::optional<QString>& status,
                                    const std::optional<QString>& failure) {
    m_session = std::move(session);
    if (failure) {
        setError(*failure);
        if (effects.failureStatus) {
            setStatus(*effects.failureStatus);
        }
        emit trackChanged();
        return;
    }
    retire(std::move(m_track));
    m_track = m_session->track();
    if (effects.succeeded) {
        effects.succeeded(*status);
    }
    if (effects.structural) {
        setStructuralDirty(true);
    }
    clearError();
    followTrackTimes();
    refreshMap(false, effects.keeping);
    setStatus(*status);
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

void EditorModel::undoSplit() {
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

void EditorModel::redoSplit() {
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
    if (const auto refusal = generationError()) {
        setError(*refusal);
        return;
    }
    if (!requireEditable()) {
        return;
    }
    SessionEffects effects;
    effects.keeping = m_selectedPointID;
    const Instant start = m_newStart;
    if (m_generationMode == GenerationMode::speed) {
        runOnSession(
            [start, kmh = m_syntheticSpeed](GPXEditingSession& session) {
                session.generate(start, kmh);
                return tr("Zeitstempel mit ") + shortDecimalText(kmh, 2) +
                       tr(" km/h erzeugt. Bereit zum Export.");
            },
            std::move(effects));
        return;
    }
    runOnSession(
        [start, end = m_newEnd](GPXEditingSession& session) {
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

void EditorModel::mapClicked(std::optional<std::int64_t> hit, Coordinate where) {
    if (m_mapTool != MapTool::insert) {
        selectPoint(hit);
        return;
    }
    if (!m_insertAnchor) {
        setStatus(tr("Zum Einfügen auf die Linie klicken, hinter dem Punkt, nach dem die neuen "
                     "Punkte folgen sollen."));
        return;
    }
    auto points = m_pendingPoints;
    points.push_back(where);
    setPending(std::move(points), m_insertAnchor);
}

void EditorModel::insertOnLine(std::int64_t legStart, Coordinate where) {
    if (m_mapTool != MapTool::insert || m_insertAnchor || !requireEditable()) {
        mapClicked(std::nullopt, where);
        return;
    }
    if (!m_session->canInsertAfterDisplayed(legStart)) {
        setError(tr("Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. Am Ende "
                    "eines Abschnitts lässt sich nichts einfügen; verbinde vorher die "
                    "Abschnitte."));
        return;
    }
    selectPoint(legStart);
    setPending({where}, legStart);
}

void EditorModel::startInserting() {
    setMapTool(MapTool::insert);
    const bool anchored =
        m_session && m_selectedPointID && m_session->canInsertAfterDisplayed(*m_selectedPointID);
    setPending({}, anchored ? m_selectedPointID : std::nullopt);
    setStatus(anchored ? tr("Neue Punkte auf die Karte klicken, dann „Fertig“ wählen.")
                       : tr("Zum Einfügen auf die Linie klicken."));
}

void EditorModel::cancelInserting() {
    setPending({}, std::nullopt);
}

void EditorModel::finishInserting() {
    if (!requireEditable()) {
        return;
    }
    if (m_pendingPoints.empty() || !m_insertAnchor) {
        setError(tr("Es wurden keine Punkte gesetzt."));
        return;
    }
    const auto anchor = *m_insertAnchor;
    const auto points = m_pendingPoints;
    SessionEffects effects;
    effects.structural = true;
    effects.keeping = anchor + static_cast<std::int64_t>(points.size());
    effects.succeeded = [this](const QString&) { setPending({}, std::nullopt); };
    runOnSession(
        [anchor, points](GPXEditingSession& session) {
            session.insert(points, anchor);
            const auto& shown = session.track()->points();
            const auto first = static_cast<std::size_t>(anchor + 1);
            for (std::size_t i = first; i < first + points.size() && i < shown.size(); ++i) {
                if (!shown[i].time) {
                    return tr("Punkt(e) eingefügt, ohne Zeit: Ein Nachbarpunkt hat keine "
                              "Zeitangabe.");
                }
            }
            return tr("Punkt(e) eingefügt.");
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
