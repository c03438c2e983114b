#include "app/editor/editor_workspace.h"

#include "app/editor/editor_files.h"
#include "app/editor/editor_view.h"
#include "app/editor/map_editor.h"

#include <QFileInfo>

namespace trackloom {

EditorWorkspace::EditorWorkspace(QSettings& settings, UserDialogs& dialogs, TileSource* tiles,
                                 const date::time_zone& localZone, QObject* parent)
    : Workspace(parent), m_dialogs(dialogs), m_tiles(tiles), m_model(settings, dialogs, localZone),
      m_commands(m_model) {
    for (auto signal : {&EditorModel::trackChanged, &EditorModel::dirtyChanged,
                        &EditorModel::unsavedWorkChanged}) {
        connect(&m_model, signal, this, &Workspace::stateChanged);
    }
    connect(&m_model, &EditorModel::busyChanged, this, &Workspace::stateChanged);
    // A track from a file, not the sample or a day of the timeline, is worth reopening.
    connect(&m_model, &EditorModel::trackChanged, this, [this] {
        if (m_announcedRevision != m_model.openedRevision()) {
            m_announcedRevision = m_model.openedRevision();
            if (const auto& path = m_model.sourceURL()) {
                emit fileOpened(*path);
            }
        }
    });
    // Refusals are alerts; the status line keeps showing the last one.
    connect(&m_model, &EditorModel::errorChanged, this, [this] {
        if (const auto& error = m_model.error()) {
            m_dialogs.inform(tr("Track-Editor"), *error);
        }
    });
}

QString EditorWorkspace::title() const {
    return tr("Track-Editor");
}

QWidget* EditorWorkspace::view() {
    if (!m_view) {
        m_view = new EditorView(m_model, m_commands, m_tiles);
    }
    return m_view;
}

std::vector<WorkspaceCommand> EditorWorkspace::commands() {
    return m_commands.menuCommands();
}

QStringList EditorWorkspace::fileFilters() const {
    return gpxFileFilters();
}

bool EditorWorkspace::canOpen(const QString& path) const {
    return QFileInfo(path).suffix().compare(QLatin1String("gpx"), Qt::CaseInsensitive) == 0;
}

void EditorWorkspace::open(const QString& path) {
    if (m_model.mayReplace()) {
        m_model.load(path);
    }
}

bool EditorWorkspace::openSample() {
    m_model.demo();
    return true;
}

bool EditorWorkspace::canUndo() const {
    return m_model.canUndo();
}

bool EditorWorkspace::canRedo() const {
    return m_model.canRedo();
}

void EditorWorkspace::undo() {
    m_model.undo();
}

void EditorWorkspace::redo() {
    m_model.redo();
}

QString EditorWorkspace::documentName() const {
    return m_model.track() ? m_model.filename() : QString();
}

std::optional<UnsavedWork> EditorWorkspace::unsavedWork() const {
    if (!m_model.hasUnsavedWork()) {
        return std::nullopt;
    }
    return UnsavedWork{tr("Ungesicherte GPX-Bearbeitung"),
                       tr("Die bearbeitete GPX-Datei wurde noch nicht vollständig exportiert. Zum "
                          "Sichern zuerst abbrechen und „GPX exportieren“ wählen.")};
}

bool EditorWorkspace::isBusy() const {
    return m_model.busy() || (m_view && m_view->mapEditor()->isPreparing());
}

void EditorWorkspace::receiveTrack(TrackHandOver track) {
    m_model.acceptTimelineDay(std::move(track.gpx), track.title, std::move(track.sourcePath));
    emit activationRequested();
}

} // namespace trackloom
