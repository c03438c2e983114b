#include "app/shell/main_window.h"

#include "app/map/tile_source.h"
#include "app/shell/about_panel.h"
#include "app/shell/settings_dialog.h"
#include "app/shell/shell_menus.h"
#include "app/shell/shortcuts_dialog.h"
#include "app/shell/welcome_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QListWidget>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <algorithm>

namespace trackloom {

MainWindow::MainWindow(AppSettings& settings, UserDialogs& dialogs, TileSource& tiles,
                       QWidget* parent)
    : QMainWindow(parent), m_settings(settings), m_dialogs(dialogs), m_tiles(tiles) {
    setAcceptDrops(true);
    m_menus = new ShellMenus(*this);
    m_sidebar = new QListWidget;
    m_sidebar->setObjectName(QStringLiteral("workspaceSidebar"));
    m_sidebar->setFrameShape(QFrame::NoFrame);
    m_sidebar->hide();
    m_pages = new QStackedWidget;
    m_pages->addWidget(new WelcomeView(&m_tiles));
    auto* splitter = new QSplitter;
    splitter->addWidget(m_sidebar);
    splitter->addWidget(m_pages);
    splitter->setStretchFactor(1, 1);
    setCentralWidget(splitter);

    connect(m_sidebar, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < static_cast<int>(m_workspaces.size())) {
            activateWorkspace(m_workspaces[row]);
        }
    });
    connect(m_menus, &ShellMenus::workspaceChosen, this,
            [this](int index) { activateWorkspace(m_workspaces.at(index)); });
    connect(m_menus->sidebarAction(), &QAction::toggled, this,
            [this](bool on) { m_sidebar->setVisible(on && !m_workspaces.empty()); });
    connect(m_menus, &ShellMenus::openRequested, this, &MainWindow::chooseAndOpenFile);
    connect(m_menus, &ShellMenus::settingsRequested, this, &MainWindow::showSettings);
    connect(m_menus, &ShellMenus::aboutRequested, this, &MainWindow::showAbout);
    connect(m_menus, &ShellMenus::shortcutsRequested, this, [this] {
        ShortcutsDialog dialog(m_menus->shortcutGroups(), this);
        dialog.exec();
    });
    connect(m_menus, &ShellMenus::recentFileChosen, this, &MainWindow::openRecentFile);
    connect(m_menus, &ShellMenus::recentFilesCleared, this, [this] {
        m_settings.clearRecentFiles();
        m_menus->setRecentFiles({});
    });
    m_menus->setRecentFiles(m_settings.recentFiles());

    // On macOS, files opened from the Finder arrive as events of the application.
    qApp->installEventFilter(this);
    resize(1200, 800);
    restoreGeometry(m_settings.windowGeometry());
    restoreState(m_settings.windowState());
    updateTitle();
}

MainWindow::~MainWindow() = default;

void MainWindow::addWorkspace(std::unique_ptr<Workspace> owned) {
    Workspace* workspace = owned.release();
    workspace->setParent(this);
    m_workspaces.push_back(workspace);
    m_pages->addWidget(workspace->view());
    m_sidebar->addItem(new QListWidgetItem(workspace->icon(), workspace->title()));
    // As wide as its longest title: on a small screen every pixel goes to the
    // workspace, which has its own status line (the window needs none).
    int widest = 0;
    for (const Workspace* each : m_workspaces) {
        widest = std::max(widest, m_sidebar->fontMetrics().horizontalAdvance(each->title()));
    }
    const int sidebarWidth = std::clamp(widest + 24, 80, 200);
    m_sidebar->setMaximumWidth(sidebarWidth);
    if (auto* splitter = qobject_cast<QSplitter*>(centralWidget())) {
        splitter->setSizes({sidebarWidth, std::max(1, splitter->width() - sidebarWidth)});
    }
    m_sidebar->setVisible(m_menus->sidebarAction()->isChecked());
    m_menus->setWorkspaces(m_workspaces);
    connect(workspace, &Workspace::stateChanged, this,
            [this, workspace] { workspaceStateChanged(workspace); });
    connect(workspace, &Workspace::activationRequested, this,
            [this, workspace] { activateWorkspace(workspace); });
    connect(workspace, &Workspace::fileOpened, this, [this](const QString& path) {
        m_settings.addRecentFile(path);
        m_menus->setRecentFiles(m_settings.recentFiles());
    });
    if (!m_active && workspace->isAvailable()) {
        activateWorkspace(workspace);
    }
    showAvailability();
}

void MainWindow::showAvailability() {
    for (std::size_t i = 0; i < m_workspaces.size(); ++i) {
        QListWidgetItem* item = m_sidebar->item(static_cast<int>(i));
        const Qt::ItemFlags flags = item->flags();
        item->setFlags(m_workspaces[i]->isAvailable() ? flags | Qt::ItemIsEnabled
                                                      : flags & ~Qt::ItemIsEnabled);
    }
    m_menus->updateAvailability();
}

void MainWindow::activateWorkspace(Workspace* workspace) {
    if (workspace == m_active || !workspace->isAvailable()) {
        return;
    }
    m_active = workspace;
    m_pages->setCurrentWidget(workspace->view());
    const auto position = std::ranges::find(m_workspaces, workspace) - m_workspaces.begin();
    m_sidebar->setCurrentRow(static_cast<int>(position));
    m_menus->setActiveWorkspace(workspace);
    updateTitle();
}

void MainWindow::workspaceStateChanged(Workspace* workspace) {
    if (workspace == m_active) {
        m_menus->updateUndoRedo();
    }
    showAvailability();
    updateTitle();
}

void MainWindow::updateTitle() {
    // The application's display name is added by the platform; "[*]" marks unsaved work.
    QString title = m_active ? m_active->title() : QString();
    if (const QString document = m_active ? m_active->documentName() : QString();
        !document.isEmpty()) {
        title = document + QStringLiteral("[*] – ") + title;
    } else {
        title += QStringLiteral("[*]");
    }
    setWindowTitle(title);
    const bool unsaved = std::ranges::any_of(
        m_workspaces, [](const Workspace* w) { return w->unsavedWork().has_value(); });
    setWindowModified(unsaved);
}

void MainWindow::openFiles(const QStringList& paths) {
    for (const QString& path : paths) {
        const auto taker = std::ranges::find_if(
            m_workspaces, [&path](const Workspace* w) { return w->canOpen(path); });
        if (taker == m_workspaces.end()) {
            m_dialogs.inform(tr("Datei nicht geöffnet"),
                             tr("Diese Datei kann Trackloom nicht öffnen: ") +
                                 QFileInfo(path).fileName());
            continue;
        }
        activateWorkspace(*taker);
        (*taker)->open(path);
    }
}

void MainWindow::openRecentFile(const QString& path) {
    if (!QFileInfo::exists(path)) {
        m_settings.removeRecentFile(path);
        m_menus->setRecentFiles(m_settings.recentFiles());
        m_dialogs.inform(tr("Datei nicht gefunden"),
                         tr("Die Datei gibt es nicht mehr an ihrem Ort: ") +
                             QDir::toNativeSeparators(path) +
                             tr(". Sie wurde aus „Zuletzt geöffnet“ entfernt."));
        return;
    }
    openFiles({path});
}

void MainWindow::chooseAndOpenFile() {
    QStringList filters;
    for (const Workspace* workspace : m_workspaces) {
        filters += workspace->fileFilters();
    }
    filters.removeDuplicates();
    filters += tr("Alle Dateien (*)");
    if (const auto path = m_dialogs.fileToOpen(tr("Datei öffnen"), filters)) {
        openFiles({*path});
    }
}

bool MainWindow::isBusy() const {
    return std::ranges::any_of(m_workspaces, [](const Workspace* w) { return w->isBusy(); });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::FileOpen) {
        openFiles({static_cast<QFileOpenEvent*>(event)->file()});
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    std::vector<PendingWork> pending;
    for (Workspace* workspace : m_workspaces) {
        if (auto work = workspace->unsavedWork()) {
            pending.push_back({*work, [this, workspace] { activateWorkspace(workspace); }});
        }
    }
    if (!confirmQuit(pending, m_dialogs)) {
        event->ignore();
        return;
    }
    m_settings.setWindowLayout(saveGeometry(), saveState());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto urls = event->mimeData()->urls();
    if (std::ranges::any_of(urls, [](const QUrl& url) { return url.isLocalFile(); })) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            paths += url.toLocalFile();
        }
    }
    event->acceptProposedAction();
    openFiles(paths);
}

void MainWindow::showSettings() {
    SettingsDialog dialog(m_settings, m_tiles, this);
    dialog.exec();
}

void MainWindow::showAbout() {
    showAboutPanel(this);
}

} // namespace trackloom
