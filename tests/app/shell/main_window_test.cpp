#include "app/map/tile_source.h"
#include "app/shell/main_window.h"
#include "app/shell/screenshot.h"
#include "app/shell/shell_menus.h"
#include "app/shell/shortcuts_dialog.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QDir>
#include <QFile>
#include <QFileOpenEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace trackloom {
namespace {

// A workspace that records what the shell asks of it.
struct RecordingWorkspace : Workspace {
    QString name;
    QString suffix;
    QLabel* screen = nullptr;
    QAction command{"Probe-Befehl"};
    std::optional<UnsavedWork> unsaved;
    bool undoable = false;
    int undos = 0;
    int redos = 0;
    QStringList opened;

    RecordingWorkspace(QString title, QString fileSuffix)
        : name(std::move(title)), suffix(std::move(fileSuffix)) {}

    QString title() const override { return name; }
    // The window owns the screen once it is placed.
    QWidget* view() override {
        if (!screen) {
            screen = new QLabel(name);
        }
        return screen;
    }
    std::vector<WorkspaceCommand> commands() override { return {{ShellMenu::edit, &command}}; }
    QStringList fileFilters() const override { return {name + " (*." + suffix + ")"}; }
    bool canOpen(const QString& path) const override { return path.endsWith("." + suffix); }
    void open(const QString& path) override { opened += path; }
    bool canUndo() const override { return undoable; }
    void undo() override { ++undos; }
    void redo() override { ++redos; }
    std::optional<UnsavedWork> unsavedWork() const override { return unsaved; }
    bool available = true;
    bool isAvailable() const override { return available; }
};

class MainWindowTest : public testing::ApplicationTest {
  protected:
    MainWindowTest()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat), settings(store),
          tiles(QString(), QString(), nullptr),
          window(std::make_unique<MainWindow>(settings, dialogs, tiles)) {}

    // The window takes ownership; the test keeps a handle.
    RecordingWorkspace* add(QString title, QString suffix) {
        auto workspace = std::make_unique<RecordingWorkspace>(std::move(title), std::move(suffix));
        RecordingWorkspace* handle = workspace.get();
        window->addWorkspace(std::move(workspace));
        return handle;
    }

    bool menuHolds(ShellMenu which, const QAction* action) const {
        return window->menus().menu(which)->actions().contains(const_cast<QAction*>(action));
    }

    QTemporaryDir folder;
    QSettings store;
    AppSettings settings;
    TileSource tiles;
    testing::ScriptedDialogs dialogs;
    std::unique_ptr<MainWindow> window;
};

TEST_F(MainWindowTest, OffersTheUsualMenusWithPlatformShortcuts) {
    QStringList titles;
    for (QAction* menu : window->menuBar()->actions()) {
        titles += menu->text();
    }
    EXPECT_EQ(titles, (QStringList{"Datei", "Bearbeiten", "Darstellung", "Fenster", "Hilfe"}));
    EXPECT_EQ(window->menus().undoAction()->shortcut(), QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(window->menus().redoAction()->shortcut(), QKeySequence(QKeySequence::Redo));
    EXPECT_FALSE(window->menus().undoAction()->isEnabled())
        << "nothing to undo without a workspace";
}

TEST_F(MainWindowTest, CommandsAndUndoFollowTheActiveWorkspace) {
    RecordingWorkspace* editor = add("Track-Editor", "gpx");
    RecordingWorkspace* timeline = add("Zeitachse", "json");
    EXPECT_EQ(window->activeWorkspace(), editor) << "the first workspace comes first";
    EXPECT_TRUE(menuHolds(ShellMenu::edit, &editor->command));
    EXPECT_FALSE(menuHolds(ShellMenu::edit, &timeline->command));

    editor->undoable = true;
    emit editor->stateChanged();
    ASSERT_TRUE(window->menus().undoAction()->isEnabled());
    window->menus().undoAction()->trigger();
    EXPECT_EQ(editor->undos, 1);

    window->activateWorkspace(timeline);
    EXPECT_FALSE(menuHolds(ShellMenu::edit, &editor->command));
    EXPECT_TRUE(menuHolds(ShellMenu::edit, &timeline->command));
    EXPECT_FALSE(window->menus().undoAction()->isEnabled());
    window->menus().undoAction()->trigger();
    EXPECT_EQ(editor->undos, 1) << "undo never reaches a workspace in the background";
    EXPECT_EQ(timeline->undos, 0);
}

TEST_F(MainWindowTest, AWorkspaceWithNothingToShowCannotBeChosen) {
    auto* editor = add("Editor", "gpx");
    auto* places = add("Orte", "none");
    places->available = false;
    emit places->stateChanged();
    auto* sidebar = window->findChild<QListWidget*>(QStringLiteral("workspaceSidebar"));
    QAction* entry = nullptr;
    for (QAction* action : window->menus().menu(ShellMenu::window)->actions()) {
        if (action->text() == "Orte") {
            entry = action;
        }
    }
    ASSERT_TRUE(sidebar && entry);
    EXPECT_FALSE(sidebar->item(1)->flags() & Qt::ItemIsEnabled);
    EXPECT_FALSE(entry->isEnabled());
    window->activateWorkspace(places);
    EXPECT_EQ(window->activeWorkspace(), editor);

    places->available = true;
    emit places->stateChanged();
    EXPECT_TRUE(sidebar->item(1)->flags() & Qt::ItemIsEnabled);
    EXPECT_TRUE(entry->isEnabled());
    emit places->activationRequested();
    EXPECT_EQ(window->activeWorkspace(), places);
}

TEST_F(MainWindowTest, FilesGoToTheWorkspaceThatReadsThem) {
    RecordingWorkspace* editor = add("Track-Editor", "gpx");
    RecordingWorkspace* timeline = add("Zeitachse", "json");
    window->openFiles({"/tmp/a.json", "/tmp/b.gpx", "/tmp/notes.txt"});
    EXPECT_EQ(timeline->opened, QStringList{"/tmp/a.json"});
    EXPECT_EQ(editor->opened, QStringList{"/tmp/b.gpx"});
    EXPECT_EQ(window->activeWorkspace(), editor);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].second, "Diese Datei kann Trackloom nicht öffnen: notes.txt");

    QFileOpenEvent fromFinder(QStringLiteral("/tmp/d.gpx"));
    QCoreApplication::sendEvent(qApp, &fromFinder);
    EXPECT_EQ(editor->opened, (QStringList{"/tmp/b.gpx", "/tmp/d.gpx"}));

    dialogs.filesToOpen.push_back("/tmp/c.json");
    window->chooseAndOpenFile();
    EXPECT_EQ(timeline->opened.size(), 2);
    EXPECT_TRUE(dialogs.openFilters[0].contains("Zeitachse (*.json)"));
    EXPECT_TRUE(dialogs.openFilters[0].contains("Track-Editor (*.gpx)"));
}

TEST_F(MainWindowTest, QuitGuardAsksForEveryWorkspaceWithUnsavedWork) {
    RecordingWorkspace* editor = add("Track-Editor", "gpx");
    RecordingWorkspace* timeline = add("Zeitachse", "json");
    editor->unsaved = UnsavedWork{"Ungesicherte GPX-Bearbeitung", "Noch nicht exportiert."};
    timeline->unsaved = UnsavedWork{"Ungesicherte Änderungen", "Noch nicht gesichert."};
    window->show();

    dialogs.confirmations = {true, false};
    EXPECT_FALSE(window->close());
    ASSERT_EQ(dialogs.questions.size(), 2u);
    EXPECT_EQ(dialogs.questions[0].title, "Ungesicherte GPX-Bearbeitung");
    EXPECT_EQ(dialogs.questions[1].title, "Ungesicherte Änderungen");
    EXPECT_EQ(dialogs.questions[1].cancelTitle, "Abbrechen");
    EXPECT_EQ(dialogs.questions[1].acceptTitle, "Änderungen verwerfen");
    EXPECT_EQ(window->activeWorkspace(), timeline) << "each question shows its workspace";

    dialogs.questions.clear();
    dialogs.confirmations = {true, true};
    EXPECT_TRUE(window->close());
    EXPECT_EQ(dialogs.questions.size(), 2u);
}

TEST_F(MainWindowTest, QuitsWithoutAskingWhenNothingIsUnsavedAndKeepsTheGeometry) {
    add("Track-Editor", "gpx");
    window->resize(900, 640);
    window->show();
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(dialogs.questions.empty());

    MainWindow reopened(settings, dialogs, tiles);
    EXPECT_EQ(reopened.size(), QSize(900, 640));
}

TEST_F(MainWindowTest, AScreenshotShowsTheWindow) {
    add("Track-Editor", "gpx");
    const QString path = folder.filePath("shot.png");
    const auto error = writeScreenshot(*window, {800, 600}, path, [] { return false; });
    ASSERT_FALSE(error) << error->toStdString();
    const QImage image(path);
    ASSERT_EQ(image.size(), QSize(800, 600));
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 5) {
        for (int x = 0; x < image.width(); x += 5) {
            colours.insert(image.pixel(x, y));
        }
    }
    EXPECT_GT(colours.size(), 8u) << "menus, sidebar and text, not a blank picture";

    EXPECT_TRUE(writeScreenshot(*window, {800, 600}, folder.filePath("missing/shot.png"),
                                [] { return false; }));
}

TEST_F(MainWindowTest, RecentFilesReopenAndForgetFilesThatAreGone) {
    RecordingWorkspace* editor = add("Track-Editor", "gpx");
    const auto entries = [this] {
        QStringList texts;
        for (const QAction* action : window->menus().recentMenu()->actions()) {
            if (!action->isSeparator()) {
                texts += action->text();
            }
        }
        return texts;
    };
    EXPECT_EQ(entries(), QStringList{"Liste leeren"});

    const QString kept = folder.filePath("Runde.gpx");
    QFile(kept).open(QIODevice::WriteOnly);
    const QString gone = folder.filePath("Weg.gpx");
    emit editor->fileOpened(gone);
    emit editor->fileOpened(kept);
    EXPECT_EQ(entries(), (QStringList{"Runde.gpx", "Weg.gpx", "Liste leeren"}));
    EXPECT_EQ(settings.recentFiles(), (QStringList{kept, gone})) << "kept for the next launch";

    window->menus().recentMenu()->actions().at(0)->trigger();
    EXPECT_EQ(editor->opened, QStringList{kept});
    window->menus().recentMenu()->actions().at(1)->trigger();
    EXPECT_EQ(editor->opened, QStringList{kept}) << "nothing to open";
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].second.contains(QDir::toNativeSeparators(gone)));
    EXPECT_EQ(entries(), (QStringList{"Runde.gpx", "Liste leeren"}));

    window->menus().recentMenu()->actions().back()->trigger();
    EXPECT_EQ(entries(), QStringList{"Liste leeren"});
    EXPECT_TRUE(settings.recentFiles().isEmpty());
}

TEST_F(MainWindowTest, TheShortcutOverviewListsTheActionsAsTheyAre) {
    RecordingWorkspace* editor = add("Track-Editor", "gpx");
    add("Zeitachse", "json");
    editor->command.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    const auto groups = window->menus().shortcutGroups();
    ASSERT_EQ(groups.size(), 3u);
    EXPECT_EQ(groups[0].title, "Allgemein");
    const auto& general = groups[0].entries;
    const auto keys = [](const char* sequence) {
        return QKeySequence(QString::fromLatin1(sequence)).toString(QKeySequence::NativeText);
    };
    EXPECT_NE(std::ranges::find(general, ShortcutEntry{"Öffnen …", keys("Ctrl+O")}), general.end());
    EXPECT_NE(std::ranges::find(general, ShortcutEntry{"Zeitachse", keys("Ctrl+2")}),
              general.end());
    // The active workspace's commands sit in the menus, but under its own title.
    EXPECT_EQ(std::ranges::find(general, ShortcutEntry{"Probe-Befehl", keys("Ctrl+E")}),
              general.end());
    EXPECT_EQ(groups[1].title, "Track-Editor");
    EXPECT_EQ(groups[1].entries, (std::vector<ShortcutEntry>{{"Probe-Befehl", keys("Ctrl+E")}}));
    EXPECT_TRUE(groups[2].entries.empty());

    editor->command.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    EXPECT_EQ(window->menus().shortcutGroups()[1].entries,
              (std::vector<ShortcutEntry>{{"Probe-Befehl", keys("Ctrl+K")}}));
    ShortcutsDialog dialog(window->menus().shortcutGroups(), window.get());
    EXPECT_EQ(dialog.windowTitle(), "Tastenkürzel");
}

} // namespace
} // namespace trackloom
