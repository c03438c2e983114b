#include "app/editor/editor_map_tool.h"

#include "app/editor/editor_model.h"

namespace trackloom {

void EditorMapTool::setTool(MapTool tool) {
    if (tool != m_tool) {
        m_tool = tool;
        setPending({}, std::nullopt);
        emit toolChanged();
    }
}

void EditorMapTool::reset() {
    setTool(MapTool::select);
    setPending({}, std::nullopt);
}

void EditorMapTool::setPending(std::vector<Coordinate> points, std::optional<std::int64_t> anchor) {
    if (points != m_pendingPoints || anchor != m_insertAnchor) {
        m_pendingPoints = std::move(points);
        m_insertAnchor = anchor;
        emit pendingPointsChanged();
    }
}

void EditorMapTool::mapClicked(std::optional<std::int64_t> hit, Coordinate where) {
    if (m_tool != MapTool::insert) {
        m_model.selectPoint(hit);
        return;
    }
    if (!m_insertAnchor) {
        m_model.setStatus(tr("Zum Einfügen auf die Linie klicken, hinter dem Punkt, nach dem die "
                             "neuen Punkte folgen sollen."));
        return;
    }
    auto points = m_pendingPoints;
    points.push_back(where);
    setPending(std::move(points), m_insertAnchor);
}

void EditorMapTool::insertOnLine(std::int64_t legStart, Coordinate where) {
    if (m_tool != MapTool::insert || m_insertAnchor || !m_model.requireEditable()) {
        mapClicked(std::nullopt, where);
        return;
    }
    if (!m_model.session()->canInsertAfterDisplayed(legStart)) {
        m_model.setError(tr("Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. "
                            "Am Ende eines Abschnitts lässt sich nichts einfügen; verbinde vorher "
                            "die Abschnitte."));
        return;
    }
    m_model.selectPoint(legStart);
    setPending({where}, legStart);
}

void EditorMapTool::startInserting() {
    setTool(MapTool::insert);
    const auto selected = m_model.selectedPointID();
    const auto* session = m_model.session();
    const bool anchored = session && selected && session->canInsertAfterDisplayed(*selected);
    setPending({}, anchored ? selected : std::nullopt);
    m_model.setStatus(anchored ? tr("Neue Punkte auf die Karte klicken, dann „Fertig“ wählen.")
                               : tr("Zum Einfügen auf die Linie klicken."));
}

void EditorMapTool::cancelInserting() {
    setPending({}, std::nullopt);
}

void EditorMapTool::finishInserting() {
    if (!m_model.requireEditable()) {
        return;
    }
    if (m_pendingPoints.empty() || !m_insertAnchor) {
        m_model.setError(tr("Es wurden keine Punkte gesetzt."));
        return;
    }
    const auto anchor = *m_insertAnchor;
    const auto points = m_pendingPoints;
    EditorModel::SessionEffects effects;
    effects.structural = true;
    effects.keeping = anchor + static_cast<std::int64_t>(points.size());
    effects.succeeded = [this](const QString&) { setPending({}, std::nullopt); };
    m_model.runOnSession(
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
        std::move(effects), tr("Punkte werden eingefügt …"));
}

} // namespace trackloom
