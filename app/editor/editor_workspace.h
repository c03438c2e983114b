#pragma once

// The track editor as a workspace of the main window: its model, its commands
// in the menus, its screen, and the answers the shell needs (files it opens,
// undo and redo, unexported edits before quitting, background work).

#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"
#include "app/shell/hand_over.h"
#include "app/shell/workspace.h"

#include <QPointer>

namespace trackloom {

class EditorView;
class TileSource;

class EditorWorkspace : public Workspace, public TrackReceiver {
    Q_OBJECT

  public:
    /// `settings` keeps the editor's two stored choices; `tiles` may be null.
    EditorWorkspace(QSettings& settings, UserDialogs& dialogs, TileSource* tiles,
                    const date::time_zone& localZone, QObject* parent = nullptr);

    EditorModel& model() { return m_model; }

    QString title() const override;
    QWidget* view() override;
    std::vector<WorkspaceCommand> commands() override;
    QStringList fileFilters() const override;
    bool canOpen(const QString& path) const override;
    void open(const QString& path) override;
    bool openSample() override;
    bool canUndo() const override;
    bool canRedo() const override;
    void undo() override;
    void redo() override;
    QString documentName() const override;
    std::optional<UnsavedWork> unsavedWork() const override;
    bool isBusy() const override;

    /// A selection of the timeline becomes the edited track, and the editor comes to the front.
    void receiveTrack(TrackHandOver track) override;

  private:
    UserDialogs& m_dialogs;
    TileSource* m_tiles;
    EditorModel m_model;
    EditorCommands m_commands;
    QPointer<EditorView> m_view;
    // The opening last reported as a file opened.
    int m_announcedRevision = 0;
};

} // namespace trackloom
