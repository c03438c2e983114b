#pragma once

// The place a workspace (track editor, timeline, …) plugs into the main window.
// The shell shows the workspace's screen, adds its commands to the menus while
// it is active, routes undo and redo to it, hands it the files it can open and
// asks it about unsaved work before quitting.

#include "app/shell/quit_guard.h"

#include <QAction>
#include <QIcon>
#include <QObject>
#include <QStringList>
#include <optional>
#include <vector>

class QWidget;

namespace trackloom {

/// The menus a workspace can add commands to.
enum class ShellMenu { file, edit, view, window };

struct WorkspaceCommand {
    ShellMenu menu;
    /// Owned by the workspace; shown while the workspace is active.
    QAction* action;
};

class Workspace : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// The name in the sidebar and the "Fenster" menu.
    virtual QString title() const = 0;
    virtual QIcon icon() const { return {}; }
    /// The workspace's screen, created once; the shell places it in its window,
    /// which then owns it.
    virtual QWidget* view() = 0;
    /// Commands for the menus while this workspace is active.
    virtual std::vector<WorkspaceCommand> commands() { return {}; }

    /// Open-dialog filters for the files this workspace reads.
    virtual QStringList fileFilters() const = 0;
    /// Whether `path` is a file for this workspace.
    virtual bool canOpen(const QString& path) const = 0;
    /// Opens `path`; asks first when unsaved work would be replaced.
    virtual void open(const QString& path) = 0;
    /// Shows the workspace's built-in sample, when it has one.
    virtual bool openSample() { return false; }

    virtual bool canUndo() const { return false; }
    virtual bool canRedo() const { return false; }
    virtual void undo() {}
    virtual void redo() {}
    /// What undo and redo would do ("Punkt ändern"), for the menu; empty when
    /// the workspace does not name its steps.
    virtual QString undoText() const { return {}; }
    virtual QString redoText() const { return {}; }

    /// The name of what is open in the workspace (a file name) for the window
    /// title; empty when nothing is.
    virtual QString documentName() const { return {}; }
    /// What quitting now would lose, or nothing.
    virtual std::optional<UnsavedWork> unsavedWork() const = 0;
    /// A file is being read or written in the background.
    virtual bool isBusy() const { return false; }
    /// Whether the workspace has anything to show; the shell disables the
    /// entries of one that has not (it tells through `stateChanged`).
    virtual bool isAvailable() const { return true; }

  signals:
    /// Undo, redo, unsaved work, busy state, availability or the title changed.
    void stateChanged();
    /// The workspace wants to be in front (another one handed it work).
    void activationRequested();
    /// A file was read successfully, for the list of recently opened files.
    void fileOpened(const QString& path);
};

} // namespace trackloom
