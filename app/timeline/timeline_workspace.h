#pragma once

// The timeline as a workspace of the main window: its model, its commands in
// the menus, its screen, the answers the shell needs, and the days other
// workspaces ask it to show.

#include "app/shell/hand_over.h"
#include "app/shell/workspace.h"
#include "app/timeline/timeline_commands.h"
#include "app/timeline/timeline_model.h"

#include <QPointer>

namespace trackloom {

class TileSource;
class TimelineView;

class TimelineWorkspace : public Workspace, public DayReceiver {
    Q_OBJECT

  public:
    /// Days are counted in `zone` until the user picks another; `tiles` may be null.
    TimelineWorkspace(UserDialogs& dialogs, TileSource* tiles, const date::time_zone& zone,
                      QObject* parent = nullptr);

    TimelineModel& model() { return m_model; }
    TimelineCommands& commandActions() { return m_commands; }
    void setTrackReceiver(TrackReceiver* receiver);
    void setPlaceScopeReceiver(PlaceScopeReceiver* receiver);

    QString title() const override;
    QWidget* view() override;
    std::vector<WorkspaceCommand> commands() override;
    QStringList fileFilters() const override;
    bool canOpen(const QString& path) const override;
    void open(const QString& path) override;
    bool canUndo() const override;
    bool canRedo() const override;
    QString undoText() const override;
    QString redoText() const override;
    void undo() override;
    void redo() override;
    std::optional<UnsavedWork> unsavedWork() const override;
    bool isBusy() const override;

    void showDay(Instant day, const date::time_zone* zone) override;

  private:
    TileSource* m_tiles;
    TimelineModel m_model;
    TimelineCommands m_commands;
    QPointer<TimelineView> m_view;
};

} // namespace trackloom
