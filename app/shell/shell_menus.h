#pragma once

// The menu bar: "Datei", "Bearbeiten", "Darstellung", "Fenster", "Hilfe" with the
// platform's standard shortcuts and menu roles (so that on macOS "Über",
// "Einstellungen" and "Beenden" move to the application menu). The commands of
// the active workspace appear in a section of each menu; undo and redo go to it.
// "Datei" lists the files opened lately; "Hilfe" offers an overview of every
// shortcut.

#include "app/shell/shortcuts_dialog.h"
#include "app/shell/workspace.h"

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <map>
#include <vector>

class QMainWindow;

namespace trackloom {

class ShellMenus : public QObject {
    Q_OBJECT

  public:
    explicit ShellMenus(QMainWindow& window);

    QMenu* menu(ShellMenu which) const { return m_menus.at(which); }
    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }
    QAction* sidebarAction() const { return m_sidebar; }

    /// Lists the workspaces in "Fenster", each with Ctrl+1, Ctrl+2, …
    void setWorkspaces(const std::vector<Workspace*>& workspaces);
    /// Shows the commands of `workspace` (or none) and routes undo and redo to it.
    void setActiveWorkspace(Workspace* workspace);
    /// Re-reads whether undo and redo are possible.
    void updateUndoRedo();
    /// Enables the "Fenster" entries of the workspaces that have something to show.
    void updateAvailability();
    /// Lists `paths` under "Zuletzt geöffnet", newest first.
    void setRecentFiles(const QStringList& paths);
    QMenu* recentMenu() const { return m_recent; }
    /// The shortcuts of the menus' own commands ("Allgemein"), then those of
    /// every workspace, as the actions have them now.
    std::vector<ShortcutGroup> shortcutGroups() const;

  signals:
    void openRequested();
    void settingsRequested();
    void aboutRequested();
    void shortcutsRequested();
    void recentFileChosen(const QString& path);
    void recentFilesCleared();
    void workspaceChosen(int index);

  private:
    QAction* add(ShellMenu which, const QString& text, const QKeySequence& shortcut = {});
    void buildFileMenu(QMainWindow& window);
    void buildEditMenu();
    void buildViewMenu(QMainWindow& window);
    void buildWindowMenu(QMainWindow& window);

    std::map<ShellMenu, QMenu*> m_menus;
    QMenu* m_help = nullptr;
    QMenu* m_recent = nullptr;
    // Workspace commands go right before these separators.
    std::map<ShellMenu, QAction*> m_sectionEnds;
    std::vector<QAction*> m_shownCommands;
    std::vector<QAction*> m_workspaceEntries;
    std::vector<QPointer<Workspace>> m_workspaces;
    QPointer<Workspace> m_active;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_sidebar = nullptr;
};

} // namespace trackloom
