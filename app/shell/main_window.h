#pragma once

// The one main window: workspaces side by side behind a sidebar, the menus, the
// quit guard, files from the command line or dropped on the window, and the
// window's geometry and the recently opened files kept across launches.

#include "app/shell/app_settings.h"
#include "app/shell/workspace.h"

#include <QMainWindow>
#include <memory>
#include <vector>

class QListWidget;
class QStackedWidget;

namespace trackloom {

class ShellMenus;
class TileSource;
class UserDialogs;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// `tiles` serves every map of the window and the settings panel.
    MainWindow(AppSettings& settings, UserDialogs& dialogs, TileSource& tiles,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Adds a workspace (the window takes ownership); the first one becomes active.
    void addWorkspace(std::unique_ptr<Workspace> workspace);
    const std::vector<Workspace*>& workspaces() const { return m_workspaces; }
    Workspace* activeWorkspace() const { return m_active; }
    void activateWorkspace(Workspace* workspace);
    ShellMenus& menus() const { return *m_menus; }

    /// Hands each file to the first workspace that opens it and tells the user
    /// about files none of them can open.
    void openFiles(const QStringList& paths);
    /// Offers an open dialog for every kind of file the workspaces read.
    void chooseAndOpenFile();
    /// Opens an entry of "Zuletzt geöffnet"; one that is gone leaves the list
    /// with a message.
    void openRecentFile(const QString& path);
    /// Whether any workspace is still reading or writing.
    bool isBusy() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void showSettings();
    void showAbout();
    void workspaceStateChanged(Workspace* workspace);
    void showAvailability();
    void updateTitle();

    AppSettings& m_settings;
    UserDialogs& m_dialogs;
    TileSource& m_tiles;
    ShellMenus* m_menus = nullptr;
    QListWidget* m_sidebar = nullptr;
    QStackedWidget* m_pages = nullptr;
    std::vector<Workspace*> m_workspaces;
    Workspace* m_active = nullptr;
};

} // namespace trackloom
