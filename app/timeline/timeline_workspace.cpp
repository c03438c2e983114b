#include "app/timeline/timeline_workspace.h"

#include "app/timeline/timeline_map.h"
#include "app/timeline/timeline_view.h"

#include <QFileInfo>

namespace trackloom {

TimelineWorkspace::TimelineWorkspace(UserDialogs& dialogs, TileSource* tiles,
                                     const date::time_zone& zone, QObject* parent)
    : Workspace(parent), m_tiles(tiles), m_model(dialogs, zone), m_commands(m_model) {
    for (auto signal : {&TimelineModel::historyChanged, &TimelineModel::dirtyChanged,
                        &TimelineModel::sourceChanged}) {
        connect(&m_model, signal, this, &Workspace::stateChanged);
    }
    connect(&m_model, &TimelineModel::busyChanged, this, &Workspace::stateChanged);
    connect(&m_model, &TimelineModel::sourceChanged, this, [this] {
        if (const auto& path = m_model.sourceURL()) {
            emit fileOpened(*path);
        }
    });
}

void TimelineWorkspace::setTrackReceiver(TrackReceiver* receiver) {
    m_commands.setTrackReceiver(receiver);
}

void TimelineWorkspace::setPlaceScopeReceiver(PlaceScopeReceiver* receiver) {
    m_commands.setPlaceScopeReceiver(receiver);
}

QString TimelineWorkspace::title() const {
    return tr("Zeitachse");
}

QWidget* TimelineWorkspace::view() {
    if (!m_view) {
        m_view = new TimelineView(m_model, m_tiles);
    }
    return m_view;
}

std::vector<WorkspaceCommand> TimelineWorkspace::commands() {
    return m_commands.menuCommands();
}

QStringList TimelineWorkspace::fileFilters() const {
    return {tr("Zeitachsen (*.json *.gpxhistory)")};
}

bool TimelineWorkspace::canOpen(const QString& path) const {
    const QString suffix = QFileInfo(path).suffix();
    return suffix.compare(QLatin1String("json"), Qt::CaseInsensitive) == 0 ||
           suffix.compare(QLatin1String("gpxhistory"), Qt::CaseInsensitive) == 0;
}

void TimelineWorkspace::open(const QString& path) {
    if (m_model.mayReplace()) {
        m_model.load(path);
    }
}

bool TimelineWorkspace::canUndo() const {
    return m_model.canUndo();
}

bool TimelineWorkspace::canRedo() const {
    return m_model.canRedo();
}

QString TimelineWorkspace::undoText() const {
    return m_model.undoName();
}

QString TimelineWorkspace::redoText() const {
    return m_model.redoName();
}

void TimelineWorkspace::undo() {
    m_model.undo();
}

void TimelineWorkspace::redo() {
    m_model.redo();
}

std::optional<UnsavedWork> TimelineWorkspace::unsavedWork() const {
    if (!m_model.dirty()) {
        return std::nullopt;
    }
    return UnsavedWork{
        tr("Ungesicherte Änderungen"),
        tr("Es gibt Änderungen, die noch nicht als Arbeitskopie gesichert wurden. Exporte einer "
           "Auswahl enthalten nur den jeweiligen Ausschnitt. Zum Sichern zuerst abbrechen und "
           "„Arbeitskopie sichern“ wählen.")};
}

bool TimelineWorkspace::isBusy() const {
    return m_model.busy() || (m_view && m_view->map()->isPreparing());
}

void TimelineWorkspace::showDay(Instant day, const date::time_zone* zone) {
    // The giver counts days in its own zone; the day's middle lies on the same
    // date here in nearly every zone.
    Instant shown = day;
    if (zone && zone != &m_model.zone()) {
        shown = day.advanced(12 * 3600);
    }
    m_model.selectDay(shown);
    emit activationRequested();
}

} // namespace trackloom
