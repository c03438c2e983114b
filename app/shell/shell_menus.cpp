#include "app/shell/shell_menus.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenuBar>
#include <algorithm>

namespace trackloom {

ShellMenus::ShellMenus(QMainWindow& window) : QObject(&window) {
    QMenuBar* bar = window.menuBar();
    m_menus[ShellMenu::file] = bar->addMenu(tr("Datei"));
    m_menus[ShellMenu::edit] = bar->addMenu(tr("Bearbeiten"));
    m_menus[ShellMenu::view] = bar->addMenu(tr("Darstellung"));
    m_menus[ShellMenu::window] = bar->addMenu(tr("Fenster"));
    m_help = bar->addMenu(tr("Hilfe"));
    buildFileMenu(window);
    buildEditMenu();
    buildViewMenu(window);
    buildWindowMenu(window);
    QAction* help = m_help->addAction(tr("Tastenkürzel"));
    connect(help, &QAction::triggered, this, &ShellMenus::shortcutsRequested);
    m_help->addSeparator();
    QAction* about = m_help->addAction(tr("Über Trackloom"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &ShellMenus::aboutRequested);
    QAction* aboutQt = m_help->addAction(tr("Über Qt"));
    aboutQt->setMenuRole(QAction::AboutQtRole);
    connect(aboutQt, &QAction::triggered, qApp, &QApplication::aboutQt);
    updateUndoRedo();
}

QAction* ShellMenus::add(ShellMenu which, const QString& text, const QKeySequence& shortcut) {
    QAction* action = m_menus.at(which)->addAction(text);
    action->setShortcut(shortcut);
    return action;
}

void ShellMenus::buildFileMenu(QMainWindow& window) {
    QAction* open = add(ShellMenu::file, tr("Öffnen …"), QKeySequence::Open);
    connect(open, &QAction::triggered, this, &ShellMenus::openRequested);
    m_recent = m_menus[ShellMenu::file]->addMenu(tr("Zuletzt geöffnet"));
    // The entries show file names; the tool tip tells apart two of the same name.
    m_recent->setToolTipsVisible(true);
    setRecentFiles({});
    m_menus[ShellMenu::file]->addSeparator();
    m_sectionEnds[ShellMenu::file] = m_menus[ShellMenu::file]->addSeparator();
    QAction* close = add(ShellMenu::file, tr("Fenster schließen"), QKeySequence::Close);
    connect(close, &QAction::triggered, &window, &QWidget::close);
    QAction* quit = add(ShellMenu::file, tr("Beenden"), QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);
    // Quitting goes through the window's close, where the quit guard asks.
    connect(quit, &QAction::triggered, &window, &QWidget::close);
}

void ShellMenus::buildEditMenu() {
    m_undo = add(ShellMenu::edit, tr("Rückgängig"), QKeySequence::Undo);
    m_redo = add(ShellMenu::edit, tr("Wiederholen"), QKeySequence::Redo);
    connect(m_undo, &QAction::triggered, this, [this] {
        if (m_active && m_active->canUndo()) {
            m_active->undo();
        }
    });
    connect(m_redo, &QAction::triggered, this, [this] {
        if (m_active && m_active->canRedo()) {
            m_active->redo();
        }
    });
    m_menus[ShellMenu::edit]->addSeparator();
    m_sectionEnds[ShellMenu::edit] = m_menus[ShellMenu::edit]->addSeparator();
    QAction* settings = add(ShellMenu::edit, tr("Einstellungen …"), QKeySequence::Preferences);
    settings->setMenuRole(QAction::PreferencesRole);
    connect(settings, &QAction::triggered, this, &ShellMenus::settingsRequested);
}

void ShellMenus::buildViewMenu(QMainWindow& window) {
    m_sidebar = add(ShellMenu::view, tr("Seitenleiste anzeigen"),
                    QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S));
    m_sidebar->setCheckable(true);
    m_sidebar->setChecked(true);
    m_menus[ShellMenu::view]->addSeparator();
    m_sectionEnds[ShellMenu::view] = m_menus[ShellMenu::view]->addSeparator();
    QAction* fullScreen = add(ShellMenu::view, tr("Vollbild"), QKeySequence::FullScreen);
    fullScreen->setCheckable(true);
    connect(fullScreen, &QAction::toggled, &window, [&window](bool on) {
        window.setWindowState(on ? window.windowState() | Qt::WindowFullScreen
                                 : window.windowState() & ~Qt::WindowFullScreen);
    });
}

void ShellMenus::buildWindowMenu(QMainWindow& window) {
    QAction* minimise =
        add(ShellMenu::window, tr("Minimieren"), QKeySequence(Qt::CTRL | Qt::Key_M));
    connect(minimise, &QAction::triggered, &window, &QWidget::showMinimized);
    QAction* zoom = add(ShellMenu::window, tr("Zoomen"));
    connect(zoom, &QAction::triggered, &window,
            [&window] { window.isMaximized() ? window.showNormal() : window.showMaximized(); });
    m_menus[ShellMenu::window]->addSeparator();
    m_sectionEnds[ShellMenu::window] = m_menus[ShellMenu::window]->addSeparator();
}

void ShellMenus::setWorkspaces(const std::vector<Workspace*>& workspaces) {
    QMenu* windowMenu = m_menus[ShellMenu::window];
    for (QAction* entry : m_workspaceEntries) {
        windowMenu->removeAction(entry);
        entry->deleteLater();
    }
    m_workspaceEntries.clear();
    m_workspaces.assign(workspaces.begin(), workspaces.end());
    for (std::size_t i = 0; i < workspaces.size(); ++i) {
        auto* entry = new QAction(workspaces[i]->title(), this);
        if (i < 9) {
            entry->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + int(i))));
        }
        connect(entry, &QAction::triggered, this,
                [this, i] { emit workspaceChosen(static_cast<int>(i)); });
        windowMenu->insertAction(m_sectionEnds[ShellMenu::window], entry);
        m_workspaceEntries.push_back(entry);
    }
    updateAvailability();
}

void ShellMenus::updateAvailability() {
    for (std::size_t i = 0; i < m_workspaceEntries.size() && i < m_workspaces.size(); ++i) {
        m_workspaceEntries[i]->setEnabled(m_workspaces[i] && m_workspaces[i]->isAvailable());
    }
}

void ShellMenus::setActiveWorkspace(Workspace* workspace) {
    for (QAction* action : m_shownCommands) {
        for (const auto& [which, menu] : m_menus) {
            menu->removeAction(action);
        }
    }
    m_shownCommands.clear();
    m_active = workspace;
    if (workspace) {
        for (const WorkspaceCommand& command : workspace->commands()) {
            m_menus.at(command.menu)->insertAction(m_sectionEnds.at(command.menu), command.action);
            m_shownCommands.push_back(command.action);
        }
    }
    updateUndoRedo();
}

void ShellMenus::updateUndoRedo() {
    const bool canUndo = m_active && m_active->canUndo();
    const bool canRedo = m_active && m_active->canRedo();
    m_undo->setEnabled(canUndo);
    m_redo->setEnabled(canRedo);
    const auto named = [](const QString& plain, const QString& name) {
        return name.isEmpty() ? plain : plain + QStringLiteral(": ") + name;
    };
    m_undo->setText(named(tr("Rückgängig"), canUndo ? m_active->undoText() : QString()));
    m_redo->setText(named(tr("Wiederholen"), canRedo ? m_active->redoText() : QString()));
}

void ShellMenus::setRecentFiles(const QStringList& paths) {
    m_recent->clear();
    for (const QString& path : paths) {
        QString name = QFileInfo(path).fileName();
        QAction* entry = m_recent->addAction(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        entry->setToolTip(QDir::toNativeSeparators(path));
        connect(entry, &QAction::triggered, this, [this, path] { emit recentFileChosen(path); });
    }
    m_recent->addSeparator();
    QAction* clear = m_recent->addAction(tr("Liste leeren"));
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, this, &ShellMenus::recentFilesCleared);
}

std::vector<ShortcutGroup> ShellMenus::shortcutGroups() const {
    // Walks the menus themselves, so that no shortcut can be left out.
    std::vector<QAction*> general;
    const auto collect = [this, &general](const QMenu* menu, const auto& self) -> void {
        for (QAction* action : menu->actions()) {
            if (action->menu()) {
                self(action->menu(), self);
            } else if (std::ranges::find(m_shownCommands, action) == m_shownCommands.end()) {
                general.push_back(action);
            }
        }
    };
    for (const auto& [which, menu] : m_menus) {
        collect(menu, collect);
    }
    collect(m_help, collect);
    std::vector<ShortcutGroup> groups{{tr("Allgemein"), shortcutEntries(general)}};
    for (const auto& workspace : m_workspaces) {
        if (!workspace) {
            continue;
        }
        std::vector<QAction*> actions;
        for (const WorkspaceCommand& command : workspace->commands()) {
            actions.push_back(command.action);
        }
        groups.push_back({workspace->title(), shortcutEntries(actions)});
    }
    return groups;
}

} // namespace trackloom
